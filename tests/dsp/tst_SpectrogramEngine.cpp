#include "dsp/InstructionSet.h"
#include "dsp/SpectrogramEngine.h"
#include "dsp/SpectrogramKernels.h"
#include "dsp/WindowShapes.h"

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

private slots:
    void cleanup() { useInstructionSet(bestInstructionSet()); }

    void geometry_data()
    {
        QTest::addColumn<qint64>("samples");
        QTest::addColumn<int>("windowSize");
        QTest::addColumn<float>("frameSize");
        QTest::addColumn<double>("overlap");
        QTest::addColumn<QVector<qint64>>("expected"); // framed, offset, overlap samples, hop, bins, frames
        const auto row = [](const char* name, qint64 samples, int windowSize, float frameSize, double overlap,
                            const QVector<qint64>& expected) {
            QTest::newRow(name) << samples << windowSize << frameSize << overlap << expected;
        };
        row("one second", 500000, 1024, 100, 50, {1024, 0, 512, 512, 511, 975});
        row("dense", 500000, 2048, 100, 98.4375, {2048, 0, 2016, 32, 1023, 15562});
        row("no overlap", 500000, 64, 100, 0, {64, 0, 0, 64, 31, 7812});
        row("a quarter of the window", 5000, 1024, 25, 50, {256, 384, 512, 512, 511, 8});
        row("odd padding", 5000, 512, 12.7F, 0, {65, 223, 0, 512, 255, 9});
        row("exactly one window", 1024, 1024, 100, 50, {1024, 0, 512, 512, 511, 1});
        row("one sample less", 1023, 1024, 100, 50, {1024, 0, 512, 512, 511, 0});
        row("empty", 0, 1024, 100, 50, {1024, 0, 512, 512, 511, 0});
        row("beyond 32 bits", qint64{1} << 40, 1024, 100, 0, {1024, 0, 0, 1024, 511, qint64{1} << 30});
        row("full overlap", 5000, 512, 100, 100, {512, 0, 512, 0, 255, 0});
        row("no number", 5000, 512, 0, std::numeric_limits<double>::quiet_NaN(), {0, 256, 0, 512, 255, 9});
        row("no window", 5000, 0, 100, 50, {0, 0, 0, 0, 0, 0});
    }
    void geometry()
    {
        QFETCH(qint64, samples);
        QFETCH(int, windowSize);
        QFETCH(float, frameSize);
        QFETCH(double, overlap);
        const auto g = SpectrogramGeometry::of(samples, windowSize, frameSize, overlap);
        const QVector<qint64> actual{g.framed, g.offset, g.overlapSamples, g.hop, g.bins, g.frames};
        QTEST(actual, "expected");
    }

    void singlePrecisionSharesOneSampleLess()
    {
        QCOMPARE(SpectrogramGeometry::of(5000, 512, 100, 87.5).hop, 64);
        QCOMPARE(SpectrogramGeometry::ofSingle(5000, 512, 100, 87.5F).hop, 65);
    }

    void fullScaleTone()
    {
        // A cosine of bin 5 whose peak is 16384 of 32767, in frames that hold whole periods of it.
        std::vector<int> samples(256);
        for (int i = 0; i < 256; ++i)
            samples[i] = static_cast<int>(std::lround(16384 * std::cos(2 * M_PI * 5 * i / 64)));
        const Spectrogram result = compute(inputFor(samples, SpectrogramGeometry::of(256, 64, 100, 0)));
        QCOMPARE(result.frames, 4);
        QCOMPARE(result.decibels.size(), 31 * 4);
        for (int frame = 0; frame < 4; ++frame) {
            QVERIFY(std::abs(result.image.row(frame)[5] - 16384.0 / 32767.0) < 1e-5);
            QVERIFY(std::abs(result.decibels[5 * 4 + frame] - 20 * std::log10(16384.0 / 32767.0)) < 1e-3);
            QVERIFY(result.decibels[4 * 4 + frame] < -90);
        }
        QCOMPARE(result.maximum, result.decibels[5 * 4]);
    }

    void fullScaleOfBits_data()
    {
        QTest::addColumn<int>("bits");
        for (const int bits : {8, 16, 24, 32})
            QTest::addRow("%d", bits) << bits;
    }
    void fullScaleOfBits()
    {
        QFETCH(int, bits);
        const std::vector<int> samples(64, static_cast<int>((qint64{1} << (bits - 1)) - 1));
        const auto input = inputFor(samples, SpectrogramGeometry::of(64, 64, 100, 0), "Rectangular", bits);
        const Spectrogram result = compute(input);
        QCOMPARE(result.image.row(0)[0], 2.0F); // bin 0 counts twice like the others
        QCOMPARE(result.decibels[0], 20 * std::log10(2.0));
        QCOMPARE(result.image.row(0)[1], 0.0F);
        QCOMPARE(result.decibels[1], -infinity);
        QCOMPARE(result.minimum, -100.0);
        QCOMPARE(result.maximum, 20 * std::log10(2.0));
    }

    void framedSamplesAreTheMiddleOfTheWindow()
    {
        const auto geometry = SpectrogramGeometry::of(1024, 1024, 25, 0);
        for (const int position : {383, 384, 639, 640}) {
            std::vector<int> samples(1024);
            samples[position] = 32767;
            const Spectrogram result = compute(inputFor(samples, geometry));
            const bool inside = position >= 384 && position <= 639;
            for (int bin = 0; bin < 511; ++bin) {
                const double expected = inside ? 2.0 / 1024 : 0.0;
                QVERIFY(std::abs(result.image.row(0)[bin] - expected) < 1e-8);
            }
        }
    }

    void equalsTheDefinition_data()
    {
        QTest::addColumn<int>("windowSize");
        QTest::addColumn<float>("frameSize");
        QTest::addColumn<QString>("window");
        QTest::addColumn<double>("overlap");
        for (const char* window :
             {"Rectangular", "Hamming", "Hann", "Blackman", "Bartlett", "Flattop", "Blackman-Harris"})
            QTest::addRow("%s", window) << 64 << 100.0F << window << 50.0;
        QTest::newRow("128, 75 %") << 128 << 75.0F << "Hamming" << 87.5;
        QTest::newRow("256, 50 %") << 256 << 50.0F << "Bartlett" << 75.0;
        QTest::newRow("512, 25 %") << 512 << 25.0F << "Hann" << 0.0;
        QTest::newRow("1024, 12.5 %") << 1024 << 12.5F << "Flattop" << 93.75;
        QTest::newRow("2048") << 2048 << 100.0F << "Blackman" << 98.4375;
    }
    void equalsTheDefinition()
    {
        QFETCH(int, windowSize);
        QFETCH(float, frameSize);
        QFETCH(QString, window);
        QFETCH(double, overlap);
        const std::vector<int> samples = recording(windowSize + windowSize / 2);
        const auto input = inputFor(
            samples,
            SpectrogramGeometry::of(static_cast<qint64>(samples.size()), windowSize, frameSize, overlap),
            window);
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
        QTest::addColumn<int>("length");
        QTest::addColumn<int>("windowSize");
        QTest::addColumn<double>("minimum");
        QTest::newRow("shorter than the window") << 511 << 512 << 0.0;
        QTest::newRow("silence") << 5000 << 512 << -100.0;
        QTest::newRow("no power of two") << 5000 << 1000 << -100.0;
        QTest::newRow("no bins") << 5000 << 2 << 0.0;
    }
    void nothingToCompute()
    {
        QFETCH(int, length);
        QFETCH(int, windowSize);
        const std::vector<int> samples = windowSize == 1000 ? recording(length) : std::vector<int>(length);
        const auto geometry = SpectrogramGeometry::of(length, windowSize, 100, 50);
        const Spectrogram result = compute(inputFor(samples, geometry, "Hann"));
        QCOMPARE(result.decibels, QVector<double>(static_cast<int>(geometry.cells()), -infinity));
        QTEST(result.minimum, "minimum");
        QCOMPARE(result.maximum, -5000.0);
    }

    void progress_data()
    {
        QTest::addColumn<int>("frames");
        QTest::addColumn<int>("threads");
        QTest::addColumn<int>("reports");
        QTest::newRow("60") << 60 << 1 << 0;
        QTest::newRow("99") << 99 << 1 << 0;
        QTest::newRow("100") << 100 << 1 << 100;
        QTest::newRow("199") << 199 << 2 << 199;
        QTest::newRow("975") << 975 << 1 << 109;
        QTest::newRow("20000") << 20000 << 3 << 100;
    }
    void progress()
    {
        QFETCH(int, frames);
        QFETCH(int, threads);
        const std::size_t length = std::size_t{64} * frames;
        const std::vector<int> samples(length);
        QVector<int> reports;
        SpectrogramEngine engine;
        engine.setThreadCount(threads);
        engine.setProgress([&reports](int percent) { reports << percent; });
        Spectrogram result;
        engine.compute(inputFor(samples, SpectrogramGeometry::of(length, 64, 100, 0)),
                       SpectrogramEngine::Image, result);
        QTEST(static_cast<int>(reports.size()), "reports");
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
        QTest::addColumn<qint64>("samples");
        QTest::addColumn<int>("windowSize");
        QTest::newRow("for the vector") << qint64{300'000'000} << 1024;
        QTest::newRow("for the count of frames") << (qint64{1} << 50) << 64;
        QTest::newRow("window") << (qint64{1} << 30) << (1 << 29);
    }
    void tooLarge()
    {
        QFETCH(qint64, samples);
        QFETCH(int, windowSize);
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
