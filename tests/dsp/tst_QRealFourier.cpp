#include "dsp/InstructionSet.h"
#include "dsp/QFourierVariableCalculator.h"
#include "dsp/QRealFourier.h"

#include <QtMath>
#include <QtTest>

#include <algorithm>
#include <atomic>
#include <climits>
#include <cmath>
#include <complex>
#include <cstdlib>
#include <cstring>
#include <new>
#include <random>
#include <vector>

static std::atomic<int> allocations{0};

void* operator new(std::size_t size)
{
    ++allocations;
    if (void* memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace {

using Spectrum = std::vector<std::complex<long double>>;

constexpr std::size_t guardCount = 16;
constexpr float guard = -12345.0f;

enum class Signal { Noise, Tiny, FullScale };

std::vector<float> makeSignal(Signal kind, int size)
{
    std::mt19937 random(static_cast<unsigned>(size));
    std::vector<float> samples(static_cast<std::size_t>(size));
    for (float& sample : samples) {
        const auto bits = static_cast<std::int32_t>(random());
        switch (kind) {
        case Signal::Noise:
            sample = static_cast<float>(bits >> 16) / 32768.0f;
            break;
        // Around the smallest normal number of 1.2e-38.
        case Signal::Tiny:
            sample = std::ldexp(static_cast<float>(bits >> 8), -150 - (bits & 15));
            break;
        case Signal::FullScale:
            sample = static_cast<float>(bits > 0 ? INT32_MAX : INT32_MIN);
            break;
        }
    }
    return samples;
}

/// The sum itself; for sizes where its square number of steps is bearable.
Spectrum directTransform(const Spectrum& samples)
{
    const std::size_t size = samples.size();
    Spectrum roots(size);
    for (std::size_t k = 0; k < size; ++k)
        roots[k] = std::polar(1.0L, -2.0L * std::acos(-1.0L) * static_cast<long double>(k) / size);
    Spectrum result(size);
    for (std::size_t k = 0; k < size; ++k)
        for (std::size_t n = 0; n < size; ++n)
            result[k] += samples[n] * roots[k * n % size];
    return result;
}

/// Halves large transforms until they are small enough for the sum.
Spectrum exactTransform(const Spectrum& samples)
{
    if (samples.size() <= 256)
        return directTransform(samples);
    const std::size_t half = samples.size() / 2;
    Spectrum even(half);
    Spectrum odd(half);
    for (std::size_t i = 0; i < half; ++i) {
        even[i] = samples[2 * i];
        odd[i] = samples[2 * i + 1];
    }
    even = exactTransform(even);
    odd = exactTransform(odd);
    Spectrum result(2 * half);
    for (std::size_t k = 0; k < half; ++k) {
        const auto turned = odd[k] * std::polar(1.0L, -std::acos(-1.0L) * static_cast<long double>(k) / half);
        result[k] = even[k] + turned;
        result[k + half] = even[k] - turned;
    }
    return result;
}

/// Bins 0 .. N/2 out of the facade's layout.
Spectrum binsOf(const float* output, int size)
{
    Spectrum bins(static_cast<std::size_t>(size / 2 + 1));
    for (int k = 0; k <= size / 2; ++k) {
        const bool real = k == 0 || 2 * k == size;
        bins[static_cast<std::size_t>(k)] = {output[k], real ? 0.0f : output[size / 2 + k]};
    }
    return bins;
}

/// Root mean square of the difference over that of the expected values, for as many as `actual` has.
double relativeError(const Spectrum& actual, const Spectrum& expected)
{
    long double difference = 0;
    long double power = 0;
    for (std::size_t k = 0; k < actual.size(); ++k) {
        difference += std::norm(actual[k] - expected[k]);
        power += std::norm(expected[k]);
    }
    return static_cast<double>(std::sqrt(difference / power));
}

std::uint32_t bitsOf(float value)
{
    std::uint32_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return bits;
}

double errorBound(int size)
{
    return 6e-8 + 1e-8 * std::log2(size);
}

struct KnownSignal
{
    std::vector<float> samples;
    std::vector<double> spectrum;
    double tolerance;
};

/// Signals of amplitude 1 whose transform is written down by hand. Oscillations are those of bin 3.
KnownSignal makeKnownSignal(const QString& name, int size)
{
    const auto count = static_cast<std::size_t>(size);
    const std::size_t half = count / 2;
    const auto angle = [size](std::size_t n) { return 2 * M_PI * static_cast<double>(n) / size; };
    KnownSignal known{std::vector<float>(count, 0.0f), std::vector<double>(count, 0.0), 0.0};
    if (name == "constant") {
        known.samples.assign(count, 1.0f);
        known.spectrum[0] = size;
    } else if (name == "nyquist") {
        for (std::size_t n = 0; n < count; ++n)
            known.samples[n] = n % 2 == 0 ? 1.0f : -1.0f;
        known.spectrum[half] = size;
    } else if (name == "impulse") { // one sample late
        known.samples[1] = 1.0f;
        for (std::size_t k = 0; k <= half; ++k)
            known.spectrum[k] = std::cos(angle(k));
        for (std::size_t k = 1; k < half; ++k)
            known.spectrum[half + k] = -std::sin(angle(k));
        known.tolerance = 3e-7;
    } else {
        const bool cosine = name == "cosine";
        for (std::size_t n = 0; n < count; ++n)
            known.samples[n] = static_cast<float>(cosine ? std::cos(angle(3 * n)) : std::sin(angle(3 * n)));
        known.spectrum[cosine ? 3 : half + 3] = cosine ? size / 2 : -size / 2;
        known.tolerance = 1e-7 * size;
    }
    return known;
}

void addSizes(int first, int last)
{
    QTest::addColumn<int>("size");
    for (int size = first; size <= last; size *= 2)
        QTest::addRow("%d", size) << size;
}

} // namespace

class tst_QRealFourier : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { useInstructionSet(bestInstructionSet()); }

    void setSize_data();
    void setSize();
    void invalidSizeTransformsNothing();
    void windowNames_data();
    void windowNames();
    void unknownWindowChangesNothing();
    void windowShapes_data();
    void windowShapes();
    void windowFollowsSize();
    void knownSignals_data();
    void knownSignals();
    void matchesExactTransform_data() { addSizes(1, 65536); }
    void matchesExactTransform();
    void fixedEqualsVariable_data() { addSizes(8, 16384); }
    void fixedEqualsVariable();
    void sameBitsForAllInstructionSets_data();
    void sameBitsForAllInstructionSets();
    void roundTrip_data() { addSizes(1, 65536); }
    void roundTrip();
    void transformsAllocateNothing_data() { addSizes(1, 65536); }
    void transformsAllocateNothing();
};

void tst_QRealFourier::setSize_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("result");
    for (int size = 8; size <= 16384; size *= 2)
        QTest::addRow("%d", size) << size << 1;
    for (int size : {1, 2, 4, 32768, 65536})
        QTest::addRow("%d", size) << size << 0;
    for (int size : {0, -1, -8, 3, 12, 1000, 16383, INT_MAX, INT_MIN})
        QTest::addRow("%d", size) << size << 2;
}

void tst_QRealFourier::setSize()
{
    QFETCH(int, size);
    QFETCH(int, result);
    QRealFourier fourier(64);
    QCOMPARE(fourier.setSize(size), result);
    QCOMPARE(fourier.size(), result == 2 ? 0 : size);
    QCOMPARE(QRealFourier(size).size(), fourier.size());
}

void tst_QRealFourier::invalidSizeTransformsNothing()
{
    QRealFourier fourier(8, "Hann");
    fourier.setSize(1000);
    std::vector<float> input(1000, 1.0f);
    std::vector<float> output(1000, guard);
    fourier.forward(input.data(), output.data());
    fourier.inverse(input.data(), output.data());
    fourier.rescale(output.data());
    QCOMPARE(input, std::vector<float>(1000, 1.0f));
    QCOMPARE(output, std::vector<float>(1000, guard));
}

void tst_QRealFourier::windowNames_data()
{
    QTest::addColumn<bool>("known");
    for (const char* name : {"Rectangular", "Hamming", "Hann", "hann", "HAMMING", "  Hann Function  ",
                             "rectangular function", "HammingFunction", "\tFUNCTION Hann\n"})
        QTest::newRow(name) << true;
    for (const char* name : {"", " ", "Function", "Blackman", "Han n", "Hanning", "Hann Hamming"})
        QTest::newRow(name) << false;
}

void tst_QRealFourier::windowNames()
{
    QFETCH(bool, known);
    QRealFourier fourier(8);
    QCOMPARE(fourier.setWindowFunction(QTest::currentDataTag()), known);
}

void tst_QRealFourier::unknownWindowChangesNothing()
{
    QRealFourier fourier(8, "Hann");
    QVERIFY(!fourier.setWindowFunction("Blackman"));
    std::vector<float> input(8, 1.0f);
    std::vector<float> output(8);
    fourier.forward(input.data(), output.data());
    QCOMPARE(input[0], 0.0f);
}

void tst_QRealFourier::windowShapes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<std::vector<float>>("coefficients");
    const double c1 = std::cos(2 * M_PI / 7); // around the circle in 7 steps
    const double c2 = std::cos(4 * M_PI / 7);
    const double c3 = std::cos(6 * M_PI / 7);
    const auto table = [](std::initializer_list<double> values) {
        return std::vector<float>(values.begin(), values.end());
    };
    const auto hamming = [](double c) { return 0.54 + 0.46 * c; };
    const auto hann = [](double c) { return 0.5 - 0.5 * c; };
    QTest::newRow("rectangular") << "Rectangular" << std::vector<float>(8, 1.0f);
    QTest::newRow("hamming, 1 at the ends")
        << "Hamming"
        << table({1, hamming(c1), hamming(c2), hamming(c3), hamming(c3), hamming(c2), hamming(c1), 1});
    QTest::newRow("hann") << "Hann"
                          << table({0, hann(c1), hann(c2), hann(c3), hann(c3), hann(c2), hann(c1), 0});
    QTest::newRow("hamming of two") << "Hamming" << table({1, 1});
    QTest::newRow("hann of one") << "Hann" << table({0});
}

void tst_QRealFourier::windowShapes()
{
    QFETCH(QString, name);
    QFETCH(std::vector<float>, coefficients);
    QRealFourier fourier(static_cast<int>(coefficients.size()), name);
    std::vector<float> input(coefficients.size(), 2.0f);
    std::vector<float> output(coefficients.size());
    fourier.forward(input.data(), output.data());
    float sum = 0;
    for (std::size_t i = 0; i < coefficients.size(); ++i) {
        QVERIFY2(std::abs(input[i] - 2 * coefficients[i]) < 1e-6f, qPrintable(QString::number(i)));
        sum += input[i];
    }
    QVERIFY(std::abs(output[0] - sum) < 1e-5f);
}

void tst_QRealFourier::windowFollowsSize()
{
    QRealFourier fourier(0, "Hamming");
    fourier.setSize(512);
    fourier.setSize(16);
    std::vector<float> input(16, 1.0f);
    std::vector<float> output(16);
    fourier.forward(input.data(), output.data());
    QCOMPARE(input[15], 1.0f);
    QVERIFY(input[7] < 0.11f);
    QVERIFY(fourier.setWindowFunction("Rectangular"));
    const std::vector<float> before = input;
    fourier.forward(input.data(), output.data());
    QCOMPARE(input, before);
}

void tst_QRealFourier::knownSignals_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<int>("size");
    for (const char* signal : {"constant", "cosine", "sine", "nyquist", "impulse"})
        for (int size = 8; size <= 32768; size *= 2)
            QTest::newRow(qPrintable(QString::fromLatin1(signal) + QLatin1Char(' ') + QString::number(size)))
                << signal << size;
}

void tst_QRealFourier::knownSignals()
{
    QFETCH(QString, signal);
    QFETCH(int, size);
    KnownSignal known = makeKnownSignal(signal, size);
    std::vector<float> output(known.samples.size(), guard);
    QRealFourier(size).forward(known.samples.data(), output.data());
    for (std::size_t i = 0; i < output.size(); ++i)
        QVERIFY2(std::abs(output[i] - known.spectrum[i]) <= known.tolerance,
                 qPrintable(QString("[%1] %2 for %3").arg(i).arg(double(output[i])).arg(known.spectrum[i])));
}

// Odd addresses, values around the arrays and the input are looked at, too.
void tst_QRealFourier::matchesExactTransform()
{
    QFETCH(int, size);
    const auto count = static_cast<std::size_t>(size);
    const std::vector<float> samples = makeSignal(Signal::Noise, size);
    const Spectrum expected = exactTransform(Spectrum(samples.begin(), samples.end()));
    QRealFourier fourier(size);
    for (std::size_t shift : {std::size_t(0), std::size_t(1), std::size_t(3)}) {
        std::vector<float> input(guardCount + shift, guard);
        input.insert(input.end(), samples.begin(), samples.end());
        input.insert(input.end(), guardCount, guard);
        const std::vector<float> before = input;
        std::vector<float> output(count + shift + 2 * guardCount, guard);
        float* const spectrum = output.data() + guardCount + shift;
        fourier.forward(input.data() + guardCount + shift, spectrum);
        QCOMPARE(input, before);
        QVERIFY(std::all_of(output.data(), spectrum, [](float x) { return x == guard; }));
        QVERIFY(
            std::all_of(spectrum + count, output.data() + output.size(), [](float x) { return x == guard; }));
        const double error = relativeError(binsOf(spectrum, size), expected);
        QVERIFY2(error < errorBound(size), qPrintable(QString::number(error)));
    }
}

void tst_QRealFourier::fixedEqualsVariable()
{
    QFETCH(int, size);
    std::vector<float> samples = makeSignal(Signal::Noise, size);
    std::vector<float> fixed(samples.size());
    std::vector<float> variable(samples.size());
    QRealFourier(size).forward(samples.data(), fixed.data());
    QFourierVariableCalculator calculator;
    calculator.setSize(size);
    calculator.setData(samples.data(), variable.data());
    calculator.forward();
    const double error = relativeError(binsOf(fixed.data(), size), binsOf(variable.data(), size));
    QVERIFY2(error < 2 * errorBound(size), qPrintable(QString::number(error)));
}

void tst_QRealFourier::sameBitsForAllInstructionSets_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("signal");
    for (int size = 8; size <= 16384; size *= 2) {
        QTest::addRow("noise %d", size) << size << int(Signal::Noise);
        QTest::addRow("denormal range %d", size) << size << int(Signal::Tiny);
        QTest::addRow("full scale %d", size) << size << int(Signal::FullScale);
    }
}

void tst_QRealFourier::sameBitsForAllInstructionSets()
{
    QFETCH(int, size);
    QFETCH(int, signal);
    std::vector<float> samples = makeSignal(Signal(signal), size);
    std::vector<std::vector<float>> outputs;
    for (InstructionSet set : {InstructionSet::Portable, InstructionSet::Sse2, InstructionSet::Avx2}) {
        useInstructionSet(set);
        QRealFourier fourier(size);
        std::vector<float> output(samples.size(), guard);
        fourier.forward(samples.data(), output.data());
        outputs.push_back(output);
    }
    QVERIFY(
        std::any_of(outputs[0].begin(), outputs[0].end(), [](float x) { return x != 0.0f && x != guard; }));
    for (std::size_t i = 0; i < samples.size(); ++i)
        for (std::size_t set = 1; set < outputs.size(); ++set)
            QVERIFY2(bitsOf(outputs[set][i]) == bitsOf(outputs[0][i]),
                     qPrintable(QString("set %1, value %2").arg(set).arg(i)));
}

void tst_QRealFourier::roundTrip()
{
    QFETCH(int, size);
    const std::vector<float> samples = makeSignal(Signal::Noise, size);
    std::vector<float> input = samples;
    std::vector<float> spectrum(samples.size());
    std::vector<float> restored(samples.size() + guardCount, guard);
    QRealFourier fourier(size);
    fourier.forward(input.data(), spectrum.data());
    const std::vector<float> before = spectrum;
    fourier.inverse(spectrum.data(), restored.data());
    QCOMPARE(spectrum, before);
    fourier.rescale(restored.data());
    for (std::size_t i = 0; i < samples.size(); ++i)
        QVERIFY2(std::abs(restored[i] - samples[i]) < 1.5e-6f, qPrintable(QString::number(i)));
    QCOMPARE(restored[samples.size()], guard);
}

void tst_QRealFourier::transformsAllocateNothing()
{
    QFETCH(int, size);
    std::vector<float> samples = makeSignal(Signal::Noise, size);
    std::vector<float> spectrum(samples.size());
    QRealFourier fourier(size, "Hann");
    const int before = allocations;
    fourier.forward(samples.data(), spectrum.data());
    fourier.inverse(spectrum.data(), samples.data());
    fourier.rescale(samples.data());
    QCOMPARE(allocations.load(), before);
}

QTEST_GUILESS_MAIN(tst_QRealFourier)
#include "tst_QRealFourier.moc"
