#include "dsp/InstructionSet.h"
#include "dsp/SpectrogramEngine.h"
#include "dsp/SpectrogramKernels.h"
#include "dsp/WindowShapes.h"
#include "tests/support/Table.h"

#include <QtTest>

#include <cmath>
#include <complex>
#include <cstring>
#include <limits>
#include <random>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
const std::vector<InstructionSet> allSets{InstructionSet::Portable, InstructionSet::Sse2,
                                          InstructionSet::Avx2};

/// A loud tone in noise, then silence for a tenth of the length.
std::vector<int> recording(int length)
{
    std::vector<int> samples(length);
    std::minstd_rand random(11);
    for (int i = 0; i < length - length / 10; ++i)
        samples[i] = static_cast<int>(9000 * std::sin(0.7 * i)) + static_cast<int>(random() % 2001) - 1000;
    return samples;
}

SpectrogramInput inputFor(const std::vector<int>& samples, const SpectrogramGeometry& geometry,
                          const QString& window = "Rectangular", int bits = 16)
{
    return {samples.data(), bits, geometry, window};
}

Spectrogram compute(const SpectrogramInput& input,
                    SpectrogramEngine::Output outputs = SpectrogramEngine::Both, int threads = 1)
{
    SpectrogramEngine engine;
    engine.setThreadCount(threads);
    Spectrogram result;
    if (engine.compute(input, outputs, result) != SpectrogramEngine::Outcome::Complete)
        QTest::qFail("not computed", __FILE__, __LINE__);
    return result;
}

bool sameBits(const QVector<double>& a, const QVector<double>& b)
{
    return a.size() == b.size() && std::memcmp(a.constData(), b.constData(), a.size() * sizeof(double)) == 0;
}

bool sameBits(const AmplitudeImage& a, const AmplitudeImage& b)
{
    return a.cells() == b.cells() && std::memcmp(a.row(0), b.row(0), a.cells() * sizeof(float)) == 0;
}

/// The amplitude of one bin of one frame by the definition of the transform, in double.
double definedAmplitude(const SpectrogramInput& input, const std::vector<double>& window, qint64 frame,
                        int bin)
{
    const SpectrogramGeometry& geometry = input.geometry;
    const int* samples = input.samples + frame * geometry.hop + geometry.offset;
    std::complex<double> sum = 0;
    for (int n = 0; n < geometry.framed; ++n)
        sum += samples[n] * window[n] *
               std::polar(1.0, -2 * M_PI * (bin * n % geometry.windowSize) / geometry.windowSize);
    return 2 * std::abs(sum) / geometry.windowSize / (std::pow(2.0, input.bitsPerSample) / 2 - 1);
}

} // namespace

class tst_SpectrogramEngine : public QObject
{
    Q_OBJECT

    // Samples, window size, frame size, overlap; framed, offset, overlap samples, hop, bins, frames.
    using GeometryRow = Table<qint64, int, float, double, QVector<qint64>>;
    using DefinitionRow = Table<int, float, QString, double>; // window size, frame size, window, overlap
    using NothingToComputeRow = Table<int, int, double>;      // length, windowSize, minimum
    using ProgressRow = Table<int, int, int>;                 // frames, threads, reports
    using TooLargeRow = Table<qint64, int>;                   // samples, windowSize

private slots:
    void cleanup() { useInstructionSet(bestInstructionSet()); }

    void geometry_data()
    {
        GeometryRow row;
        row("one second", 500000, 1024, 100, 50, {1024, 0, 512, 512, 511, 975});
        row("dense", 500000, 2048, 100, 98.4375, {2048, 0, 2016, 32, 1023, 15562});
        row("no overlap", 500000, 64, 100, 0, {64, 0, 0, 64, 31, 7812});
        row("a quarter of the window", 5000, 1024, 25, 50, {256, 384, 512, 512, 511, 8});
        row("odd padding", 5000, 512, 12.7F, 0, {65, 223, 0, 512, 255, 9});
        row("exactly one window", 1024, 1024, 100, 50, {1024, 0, 512, 512, 511, 1});
        row("one sample less", 1023, 1024, 100, 50, {1024, 0, 512, 512, 511, 0});
        row("beyond 32 bits", qint64{1} << 40, 1024, 100, 0, {1024, 0, 0, 1024, 511, qint64{1} << 30});
        row("full overlap", 5000, 512, 100, 100, {512, 0, 512, 0, 255, 0});
        row("no number", 5000, 512, 0, std::numeric_limits<double>::quiet_NaN(), {0, 256, 0, 512, 255, 9});
        row("no window", 5000, 0, 100, 50, {0, 0, 0, 0, 0, 0});
    }
    void geometry()
    {
        const auto& [samples, windowSize, frameSize, overlap, expected] = GeometryRow::row();
        const auto g = SpectrogramGeometry::of(samples, windowSize, frameSize, overlap);
        const QVector<qint64> actual{g.framed, g.offset, g.overlapSamples, g.hop, g.bins, g.frames};
        QCOMPARE(actual, expected);
    }

    void singlePrecisionSharesOneSampleLess()
    {
        QCOMPARE(SpectrogramGeometry::of(5000, 512, 100, 87.5).hop, 64);
        QCOMPARE(SpectrogramGeometry::ofSingle(5000, 512, 100, 87.5F).hop, 65);
    }

    void fullScaleOfBits()
    {
        for (const int bits : {8, 16, 24, 32}) {
            const std::vector<int> samples(64, static_cast<int>((qint64{1} << (bits - 1)) - 1));
            const auto geometry = SpectrogramGeometry::of(64, 64, 100, 0);
            const Spectrogram result = compute(inputFor(samples, geometry, "Rectangular", bits));
            QCOMPARE(result.image.row(0)[0], 2.0F); // bin 0 counts twice like the others
            QCOMPARE(result.decibels[0], 20 * std::log10(2.0));
            QCOMPARE(result.image.row(0)[1], 0.0F);
            QCOMPARE(result.decibels[1], -infinity);
            QCOMPARE(result.minimum, -100.0);
            QCOMPARE(result.maximum, 20 * std::log10(2.0));
        }
    }

    void equalsTheDefinition_data()
    {
        DefinitionRow row;
        for (const char* window :
             {"Rectangular", "Hamming", "Hann", "Blackman", "Bartlett", "Flattop", "Blackman-Harris"})
            row(window, 64, 100.0F, window, 50.0);
        row("128, 75 %", 128, 75.0F, "Hamming", 87.5);
        row("256, 50 %", 256, 50.0F, "Bartlett", 75.0);
        row("512, 25 %", 512, 25.0F, "Hann", 0.0);
        row("1024, 12.5 %", 1024, 12.5F, "Flattop", 93.75);
        row("2048", 2048, 100.0F, "Blackman", 98.4375);
    }
    void equalsTheDefinition()
    {
        const auto& [windowSize, frameSize, window, overlap] = DefinitionRow::row();
        const std::vector<int> samples = recording(windowSize + windowSize / 2);
        const auto count = static_cast<qint64>(samples.size());
        const auto input =
            inputFor(samples, SpectrogramGeometry::of(count, windowSize, frameSize, overlap), window);
        const Spectrogram result = compute(input);
        const std::vector<double> shape = windowShape(window, input.geometry.framed);
        for (int frame = 0; frame < result.frames; frame += 3) {
            for (int bin = 0; bin < input.geometry.bins; ++bin) {
                const double amplitude = result.image.row(frame)[bin];
                QVERIFY(std::abs(amplitude - definedAmplitude(input, shape, frame, bin)) < 2e-6);
                const double decibels = result.decibels[bin * result.frames + frame];
                const long double exact = 20 * std::log10(static_cast<long double>(amplitude));
                QVERIFY(std::abs(decibels - exact) <= 1e-14L * std::abs(exact));
            }
        }
    }

    void sameBitsOnEveryMachine()
    {
        const std::vector<int> samples = recording(30000);
        for (const int windowSize : {16, 64, 512}) {
            const auto geometry = SpectrogramGeometry::of(30000, windowSize, 75, 87.5);
            const auto input = inputFor(samples, geometry, "Hamming");
            const Spectrogram reference = compute(input);
            for (const InstructionSet set : allSets) {
                useInstructionSet(set);
                for (const int threads : {1, 2, 3, 7}) {
                    const Spectrogram result = compute(input, SpectrogramEngine::Both, threads);
                    QVERIFY(sameBits(result.decibels, reference.decibels));
                    QVERIFY(sameBits(result.image, reference.image));
                    QCOMPARE(result.minimum, reference.minimum);
                    QCOMPARE(result.maximum, reference.maximum);
                }
            }
            const Spectrogram image = compute(input, SpectrogramEngine::Image);
            QVERIFY(sameBits(image.image, reference.image) && image.decibels.isEmpty());
            const Spectrogram decibels = compute(input, SpectrogramEngine::Decibels);
            QVERIFY(sameBits(decibels.decibels, reference.decibels) && decibels.image.isNull());
        }
    }

    void rangeIsThatOfTheDecibels()
    {
        // Loud enough everywhere for a minimum above -100, quiet enough for one below 0.
        std::vector<int> samples(5000);
        std::minstd_rand random(5);
        for (int& sample : samples)
            sample = static_cast<int>(random() % 40001) - 20000;
        const auto geometry = SpectrogramGeometry::of(5000, 64, 100, 50);
        const Spectrogram result = compute(inputFor(samples, geometry), SpectrogramEngine::Decibels, 2);
        const auto range = std::minmax_element(result.decibels.cbegin(), result.decibels.cend());
        QCOMPARE(result.minimum, std::max(*range.first, -100.0));
        QCOMPARE(result.maximum, *range.second);
    }

    void decibelsAreExact()
    {
        std::vector<float> amplitudes(1024);
        std::minstd_rand random(2);
        double worst = 0;
        for (int round = 0; round < 200; ++round) {
            for (float& amplitude : amplitudes) {
                const int exponent = static_cast<int>(random() % 170) - 149; // subnormal ones, too
                const auto mantissa = 1.0F + static_cast<float>(random() & 0x7FFFFFU) * 0x1p-23F;
                amplitude = std::ldexp(mantissa, round % 2 == 0 ? 0 - (exponent & 1) : exponent);
            }
            amplitudes[round] = std::nextafter(1.0F, round % 2 == 0 ? 0.0F : 2.0F);
            amplitudes[round + 1] = 0;
            std::vector<double> reference;
            for (const InstructionSet set : allSets) {
                std::vector<double> decibels(amplitudes.size());
                DecibelRange range;
                spectrogramKernels(set).decibels({amplitudes.data(), 64, 16, 64, decibels.data(), 16}, range);
                if (reference.empty())
                    reference = decibels;
                QVERIFY(std::memcmp(decibels.data(), reference.data(), decibels.size() * sizeof(double)) ==
                        0);
            }
            for (std::size_t i = 0; i < amplitudes.size(); ++i) {
                const long double exact = 20 * std::log10(static_cast<long double>(amplitudes[i]));
                const double value = reference[i % 64 * 16 + i / 64];
                if (amplitudes[i] == 0 || exact == 0)
                    QCOMPARE(value, static_cast<double>(exact));
                else
                    worst = std::max(worst, static_cast<double>(std::abs((value - exact) / exact)));
            }
        }
        QVERIFY2(worst < 6e-16, qPrintable(QString::number(worst)));
    }

    void nothingToCompute_data()
    {
        NothingToComputeRow row;
        row("shorter than the window", 511, 512, 0.0);
        row("silence", 5000, 512, -100.0);
        row("no power of two", 5000, 1000, -100.0);
        row("no bins", 5000, 2, 0.0);
    }
    void nothingToCompute()
    {
        const auto& [length, windowSize, minimum] = NothingToComputeRow::row();
        const std::vector<int> samples = windowSize == 1000 ? recording(length) : std::vector<int>(length);
        const auto geometry = SpectrogramGeometry::of(length, windowSize, 100, 50);
        const Spectrogram result = compute(inputFor(samples, geometry, "Hann"));
        QCOMPARE(result.decibels, QVector<double>(static_cast<int>(geometry.cells()), -infinity));
        QCOMPARE(result.minimum, minimum);
        QCOMPARE(result.maximum, -5000.0);
    }

    void progress_data()
    {
        ProgressRow row;
        row("99", 99, 1, 0);
        row("100", 100, 1, 100);
        row("199", 199, 2, 199);
        row("975", 975, 1, 109);
        row("20000", 20000, 3, 100);
    }
    void progress()
    {
        const auto& [frames, threads, count] = ProgressRow::row();
        const std::size_t length = std::size_t{64} * frames;
        const std::vector<int> samples(length);
        QVector<int> reports;
        SpectrogramEngine engine;
        engine.setThreadCount(threads);
        engine.setProgress([&reports](int percent) { reports << percent; });
        Spectrogram result;
        engine.compute(inputFor(samples, SpectrogramGeometry::of(length, 64, 100, 0)),
                       SpectrogramEngine::Image, result);
        QCOMPARE(reports.size(), count);
        for (int i = 0; i < reports.size(); ++i)
            QCOMPARE(reports[i], i * (frames / 100) * 100 / frames);
    }

    void stopsWhenTold()
    {
        const std::vector<int> samples(6'400'000);
        std::atomic<bool> stop{true};
        int reports = 0;
        SpectrogramEngine engine;
        engine.setThreadCount(2);
        engine.setStopFlag(&stop);
        const auto input = inputFor(samples, SpectrogramGeometry::of(6'400'000, 64, 100, 0));
        Spectrogram result;
        QCOMPARE(engine.compute(input, SpectrogramEngine::Both, result), SpectrogramEngine::Outcome::Stopped);

        stop = false;
        engine.setThreadCount(1); // the thread that stops is not overtaken by another
        engine.setProgress([&](int) { stop = ++reports >= 3; });
        QCOMPARE(engine.compute(input, SpectrogramEngine::Both, result), SpectrogramEngine::Outcome::Stopped);
        QCOMPARE(reports, 3);
        QVERIFY(result.decibels.isEmpty() && result.image.isNull());
        QCOMPARE(result.frames, 0);
    }

    void tooLarge_data()
    {
        TooLargeRow row;
        row("for the vector", qint64{300'000'000}, 1024);
        row("for the count of frames", (qint64{1} << 50), 64);
        row("window", (qint64{1} << 30), (1 << 29));
    }
    void tooLarge()
    {
        const auto& [samples, windowSize] = TooLargeRow::row();
        const std::vector<int> none;
        Spectrogram result;
        const auto input = inputFor(none, SpectrogramGeometry::of(samples, windowSize, 100, 50));
        QCOMPARE(SpectrogramEngine().compute(input, SpectrogramEngine::Both, result),
                 SpectrogramEngine::Outcome::TooLarge);
        QVERIFY(result.decibels.isEmpty() && result.image.isNull());
    }
};

QTEST_GUILESS_MAIN(tst_SpectrogramEngine)
#include "tst_SpectrogramEngine.moc"
