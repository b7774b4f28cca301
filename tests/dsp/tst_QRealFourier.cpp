#include "dsp/InstructionSet.h"
#include "dsp/QFourierVariableCalculator.h"
#include "dsp/QRealFourier.h"
#include "tests/support/Table.h"

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
#include <numeric>
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

/// By halving the samples until each stands alone.
Spectrum exactTransform(const Spectrum& samples)
{
    const std::size_t half = samples.size() / 2;
    if (half == 0)
        return samples;
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

double errorBound(int size)
{
    return 6e-8 + 1e-8 * std::log2(size);
}

void addSizes()
{
    QTest::addColumn<int>("size");
    for (int size = 1; size <= 65536; size *= 2)
        QTest::addRow("%d", size) << size;
}

} // namespace

class tst_QRealFourier : public QObject
{
    Q_OBJECT

    using SetSizeRow = Table<int, int>;                         // size, result
    using WindowShapesRow = Table<QString, std::vector<float>>; // name, coefficients
    using SameBitsRow = Table<int, Signal>;

private slots:
    void cleanup() { useInstructionSet(bestInstructionSet()); }

    void setSize_data()
    {
        SetSizeRow row;
        for (int size = 8; size <= 16384; size *= 2)
            row(QString::asprintf("%d", size), size, 1);
        for (int size : {1, 2, 4, 32768, 65536})
            row(QString::asprintf("%d", size), size, 0);
        for (int size : {0, -1, -8, 3, 12, 1000, 16383, INT_MAX, INT_MIN})
            row(QString::asprintf("%d", size), size, 2);
    }
    void setSize()
    {
        const auto& [size, result] = SetSizeRow::row();
        QRealFourier fourier(64);
        QCOMPARE(fourier.setSize(size), result);
        QCOMPARE(fourier.size(), result == 2 ? 0 : size);
        QCOMPARE(QRealFourier(size).size(), fourier.size());
    }

    void invalidSizeTransformsNothing()
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

    void windowNames()
    {
        for (const char* name : {"Rectangular", "Hamming", "HAMMING", "  Hann Function  ", "HammingFunction",
                                 "\tFUNCTION Hann\n"})
            QVERIFY2(QRealFourier(8).setWindowFunction(name), name);
        QRealFourier fourier(8, "Hann");
        for (const char* name : {"", "Function", "Blackman", "Han n", "Hanning", "Hann Hamming"})
            QVERIFY2(!fourier.setWindowFunction(name), name);
        std::vector<float> input(8, 1.0f);
        std::vector<float> output(8);
        fourier.forward(input.data(), output.data());
        QCOMPARE(input[0], 0.0f); // still that of before
    }

    void windowShapes_data()
    {
        WindowShapesRow row;
        // Around the circle in 7 steps.
        std::vector<float> hamming(8, 1.0f); // at the ends, too
        std::vector<float> hann(8, 0.0f);
        for (std::size_t i = 1; i < 7; ++i) {
            const double cosine = std::cos(2 * M_PI * static_cast<double>(i) / 7);
            hamming[i] = static_cast<float>(0.54 + 0.46 * cosine);
            hann[i] = static_cast<float>(0.5 - 0.5 * cosine);
        }
        row("rectangular", "Rectangular", std::vector<float>(8, 1.0f));
        row("hamming", "Hamming", hamming);
        row("hann", "Hann", hann);
        row("hamming of two", "Hamming", {1, 1});
        row("hann of one", "Hann", {0});
    }
    void windowShapes()
    {
        const auto& [name, coefficients] = WindowShapesRow::row();
        const std::size_t size = coefficients.size();
        QRealFourier fourier(static_cast<int>(size), name);
        std::vector<float> input(size, 2.0f);
        std::vector<float> output(size);
        fourier.forward(input.data(), output.data());
        for (std::size_t i = 0; i < size; ++i)
            QVERIFY2(std::abs(input[i] - 2 * coefficients[i]) < 1e-6f, qPrintable(QString::number(i)));
        QVERIFY(std::abs(output[0] - std::accumulate(input.begin(), input.end(), 0.0f)) < 1e-5f);
    }

    void windowFollowsSize()
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

    void matchesExactTransform_data() { addSizes(); }
    /// Odd addresses, values around the arrays and the input are looked at, too.
    void matchesExactTransform()
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
            const auto untouched = std::count(output.data(), spectrum, guard) +
                                   std::count(spectrum + count, output.data() + output.size(), guard);
            QCOMPARE(static_cast<std::size_t>(untouched), shift + 2 * guardCount);
            const double error = relativeError(binsOf(spectrum, size), expected);
            QVERIFY2(error < errorBound(size), qPrintable(QString::number(error)));
        }
        // The one for other sizes gives the same for those that have a calculator of their own.
        std::vector<float> input = samples;
        std::vector<float> output(count);
        QFourierVariableCalculator calculator;
        calculator.setSize(size);
        calculator.setData(input.data(), output.data());
        calculator.forward();
        QVERIFY(relativeError(binsOf(output.data(), size), expected) < errorBound(size));
    }

    void sameBitsForAllInstructionSets_data()
    {
        SameBitsRow row;
        for (int size = 8; size <= 16384; size *= 2) {
            row(QString::asprintf("noise %d", size), size, Signal::Noise);
            row(QString::asprintf("denormal range %d", size), size, Signal::Tiny);
            row(QString::asprintf("full scale %d", size), size, Signal::FullScale);
        }
    }
    void sameBitsForAllInstructionSets()
    {
        const auto& [size, signal] = SameBitsRow::row();
        std::vector<float> samples = makeSignal(signal, size);
        std::vector<float> portable;
        for (InstructionSet set : {InstructionSet::Portable, InstructionSet::Sse2, InstructionSet::Avx2}) {
            useInstructionSet(set);
            std::vector<float> output(samples.size(), 0.0f);
            QRealFourier(size).forward(samples.data(), output.data());
            if (set == InstructionSet::Portable)
                portable = output;
            QVERIFY(std::memcmp(output.data(), portable.data(), sizeof(float) * output.size()) == 0);
        }
        QVERIFY(portable != std::vector<float>(samples.size(), 0.0f));
    }

    void roundTrip_data() { addSizes(); }
    void roundTrip()
    {
        QFETCH(int, size);
        const std::vector<float> samples = makeSignal(Signal::Noise, size);
        std::vector<float> input = samples;
        std::vector<float> spectrum(samples.size());
        std::vector<float> restored(samples.size() + guardCount, guard);
        QRealFourier fourier(size);
        int before = allocations;
        fourier.forward(input.data(), spectrum.data());
        QCOMPARE(allocations.load(), before);
        const std::vector<float> kept = spectrum;
        before = allocations;
        fourier.inverse(spectrum.data(), restored.data());
        QVERIFY(spectrum == kept);
        fourier.rescale(restored.data());
        QCOMPARE(allocations.load(), before);
        for (std::size_t i = 0; i < samples.size(); ++i)
            QVERIFY2(std::abs(restored[i] - samples[i]) < 1.5e-6f, qPrintable(QString::number(i)));
        QCOMPARE(restored[samples.size()], guard);
    }
};

QTEST_GUILESS_MAIN(tst_QRealFourier)
#include "tst_QRealFourier.moc"
