#include "viewer/core/PlaybackClock.h"
#include "viewer/core/PlaybackWav.h"

#include <QtEndian>
#include <QtTest>

#include <numeric>

namespace {

constexpr int headerBytes = 44;

PlaybackWav::Source source(const std::vector<int>& samples, int sampleRate, int bits, double displayPeak)
{
    return {&samples, sampleRate, bits, 1, displayPeak};
}

/// The display peak of a 16-bit recording whose largest value is `peak`.
double displayPeak(int peak)
{
    return 1.1 * peak / 32767.0;
}

template <typename T>
T at(const PlaybackWav& wav, int offset)
{
    return qFromLittleEndian<T>(wav.bytes.constData() + offset);
}

std::vector<int> playedSamples(const PlaybackWav& wav)
{
    std::vector<int> samples;
    for (int offset = headerBytes; offset < wav.bytes.size(); offset += 2)
        samples.push_back(at<qint16>(wav, offset));
    return samples;
}

/// 0, 1, 2, ... with a peak that makes the gain exactly 1.
std::vector<int> ramp(int count)
{
    std::vector<int> samples(count);
    std::iota(samples.begin(), samples.end(), 0);
    return samples;
}

const double unityPeak = 1.1 * 0.8;

} // namespace

class tst_PlaybackWav : public QObject
{
    Q_OBJECT

private slots:
    void writesTheWholeFile();
    void declaresTheRate_data();
    void declaresTheRate();
    void takesFirstEntryForUnknownIndexes();
    void keepsEveryNthSampleOfTheRange_data();
    void keepsEveryNthSampleOfTheRange();
    void followsTheFormulaForEveryFactor();
    void lastFullSecondKeepsItsLastSample();
    void scalesOtherWidthsToSixteenBits_data();
    void scalesOtherWidthsToSixteenBits();
    void truncatesTowardsZero();
    void neverWrapsAround();
    void givesAnEmptyChunkForNothing_data();
    void givesAnEmptyChunkForNothing();
    void keepsSilence_data();
    void keepsSilence();
    void movesTheCursorInRecordingTime_data();
    void movesTheCursorInRecordingTime();
};

void tst_PlaybackWav::writesTheWholeFile()
{
    // Peak 1000 is brought to 0.8 x 32767: a gain of 26.2136.
    const std::vector<int> samples{1000, -1000, 1, -1};
    const PlaybackWav wav = PlaybackWav::make(source(samples, 1000, 16, displayPeak(1000)), 0, 0.004, 0, 0);

    const QByteArray expected = QByteArray("RIFF\x2c\x00\x00\x00WAVEfmt \x10\x00\x00\x00", 20) +
                                QByteArray("\x01\x00\x01\x00\xe8\x03\x00\x00\xd0\x07\x00\x00", 12) +
                                QByteArray("\x02\x00\x10\x00"
                                           "data\x08\x00\x00\x00",
                                           12) +
                                QByteArray("\x65\x66\x9b\x99\x1a\x00\xe6\xff", 8);
    QCOMPARE(wav.bytes.toHex(' '), expected.toHex(' '));
    QCOMPARE(wav.durationMs, 4.0);
}

void tst_PlaybackWav::declaresTheRate_data()
{
    QTest::addColumn<int>("sampleRate");
    QTest::addColumn<int>("factorIndex");
    QTest::addColumn<int>("rateIndex");
    QTest::addColumn<quint32>("declared");
    QTest::newRow("as recorded") << 500000 << 0 << 0 << 500000U;
    QTest::newRow("half") << 500000 << 0 << 1 << 250000U;
    QTest::newRow("every second") << 500000 << 1 << 0 << 250000U;
    QTest::newRow("every tenth, ten times slower") << 500000 << 5 << 4 << 5000U;
    QTest::newRow("integer division first") << 500000 << 3 << 2 << 20833U; // 83333 / 4
    QTest::newRow("slowest") << 384000 << 15 << 6 << 128U;                 // 12800 / 100
    QTest::newRow("a fifth") << 256000 << 0 << 3 << 51200U;
    QTest::newRow("a twentieth") << 500000 << 0 << 5 << 25000U;
    QTest::newRow("rate below the factor") << 20 << 15 << 0 << 0U;
}

void tst_PlaybackWav::declaresTheRate()
{
    QFETCH(int, sampleRate);
    QFETCH(int, factorIndex);
    QFETCH(int, rateIndex);
    QFETCH(quint32, declared);
    const std::vector<int> samples(1000, 100);
    const PlaybackWav wav =
        PlaybackWav::make(source(samples, sampleRate, 16, displayPeak(100)), 0, 1, factorIndex, rateIndex);
    QCOMPARE(at<quint32>(wav, 24), declared);
    QCOMPARE(at<quint32>(wav, 28), declared * 2);
}

void tst_PlaybackWav::takesFirstEntryForUnknownIndexes()
{
    QCOMPARE(PlaybackWav::factorAt(15), 30);
    QCOMPARE(PlaybackWav::ratePerMilleAt(6), 10);
    for (const int index : {-1, 7, 16, 1000000, std::numeric_limits<int>::min()}) {
        QCOMPARE(PlaybackWav::ratePerMilleAt(index), 1000);
        QCOMPARE(PlaybackWav::factorAt(index), index == 7 ? 14 : 1);
    }
}

void tst_PlaybackWav::keepsEveryNthSampleOfTheRange_data()
{
    QTest::addColumn<int>("factorIndex");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("end");
    QTest::addColumn<std::vector<int>>("expected");
    QTest::newRow("all") << 0 << 0.0 << 0.01 << std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    QTest::newRow("inside, end exclusive") << 0 << 0.002 << 0.006 << std::vector<int>{2, 3, 4, 5};
    QTest::newRow("odd count loses its last") << 0 << 0.002 << 0.007 << std::vector<int>{2, 3, 4, 5};
    QTest::newRow("one sample is none") << 0 << 0.002 << 0.003 << std::vector<int>{};
    QTest::newRow("parts of samples are cut") << 0 << 0.0029 << 0.0069 << std::vector<int>{2, 3, 4, 5};
    QTest::newRow("every second") << 1 << 0.0 << 0.01 << std::vector<int>{0, 2, 4, 6};
    QTest::newRow("every second, inside") << 1 << 0.004 << 0.008 << std::vector<int>{4, 6};
    QTest::newRow("every fourth") << 2 << 0.0 << 0.01 << std::vector<int>{0, 4};
    QTest::newRow("beyond both ends") << 0 << -5.0 << 99.0 << std::vector<int>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    // Every fourth of ten are 0, 4 and 8, but an even number is played.
    QTest::newRow("beyond both ends, every fourth") << 2 << -5.0 << 99.0 << std::vector<int>{0, 4};
    QTest::newRow("to the last decimated one") << 2 << 0.004 << 99.0 << std::vector<int>{4, 8};
}

void tst_PlaybackWav::keepsEveryNthSampleOfTheRange()
{
    QFETCH(int, factorIndex);
    QFETCH(double, start);
    QFETCH(double, end);
    QFETCH(std::vector<int>, expected);
    const std::vector<int> samples = ramp(10);
    const PlaybackWav wav =
        PlaybackWav::make(source(samples, 1000, 16, unityPeak), start, end, factorIndex, 4);
    QCOMPARE(playedSamples(wav), expected);

    const auto dataBytes = static_cast<quint32>(2 * expected.size());
    QCOMPARE(at<quint32>(wav, 40), dataBytes);
    QCOMPARE(at<quint32>(wav, 4), dataBytes + 36);
    // The duration is that of the recording, not that of the slowed sound.
    QCOMPARE(wav.durationMs, static_cast<double>(expected.size()) * PlaybackWav::factorAt(factorIndex));
}

void tst_PlaybackWav::followsTheFormulaForEveryFactor()
{
    std::vector<int> samples(5003);
    quint32 random = 1;
    for (int& sample : samples)
        sample = static_cast<int>((random = random * 1664525U + 1013904223U) >> 16) - 32768;
    const double gain = 0.8 / (0.9 / 1.1);
    for (int index = 0; index < 16; ++index) {
        const int factor = PlaybackWav::factorAt(index);
        const std::vector<int> played =
            playedSamples(PlaybackWav::make(source(samples, 1000, 16, 0.9), 1, 99, index, 0));
        const auto first = static_cast<std::size_t>(1000 / factor);
        QVERIFY(played.size() >= (samples.size() / factor - first) / 2 * 2);
        for (std::size_t i = 0; i < played.size(); ++i)
            QCOMPARE(played[i], static_cast<int>(samples[(first + i) * factor] * gain));
    }
}

void tst_PlaybackWav::lastFullSecondKeepsItsLastSample()
{
    // Dividing a count by a rate and multiplying again does not always lead back: 49 / 49000.0 x 49000 is one
    // of the cases. No recording may lose samples by that.
    for (const int rate : {8000, 15000, 44100, 49000, 250000, 256000, 384000, 500000}) {
        for (int count = 2; count < 4000; count += 2) {
            const std::vector<int> samples(count, 0);
            const PlaybackWav wav =
                PlaybackWav::make(source(samples, rate, 16, 0.5), 0, static_cast<double>(count) / rate, 0, 0);
            QCOMPARE(wav.bytes.size(), headerBytes + 2 * count);
        }
    }
}

void tst_PlaybackWav::scalesOtherWidthsToSixteenBits_data()
{
    QTest::addColumn<int>("bits");
    QTest::addColumn<std::vector<int>>("samples");
    QTest::newRow("8") << 8 << std::vector<int>{127, -127, 0, 64};
    QTest::newRow("16") << 16 << std::vector<int>{32767, -32767, 0, 16512};
    QTest::newRow("24") << 24 << std::vector<int>{8388607, -8388607, 0, 4227330};
    QTest::newRow("32") << 32 << std::vector<int>{2147483647, -2147483647, 0, 1082196483};
}

void tst_PlaybackWav::scalesOtherWidthsToSixteenBits()
{
    QFETCH(int, bits);
    QFETCH(std::vector<int>, samples);
    const PlaybackWav wav = PlaybackWav::make(source(samples, 4, bits, 1.1), 0, 1, 0, 0);
    QCOMPARE(at<quint16>(wav, 32), quint16(2));
    QCOMPARE(at<quint16>(wav, 34), quint16(16));
    const std::vector<int> played = playedSamples(wav);
    QCOMPARE(played.size(), std::size_t(4));
    QCOMPARE(played[0], 26213);
    QCOMPARE(played[1], -26213);
    QCOMPARE(played[2], 0);
    QVERIFY(std::abs(played[3] - 13209) <= 1);
}

void tst_PlaybackWav::truncatesTowardsZero()
{
    const std::vector<int> samples{3, -3, 1, -1};
    // A gain of one half.
    const PlaybackWav wav = PlaybackWav::make(source(samples, 4, 16, 2 * unityPeak), 0, 1, 0, 0);
    QCOMPARE(playedSamples(wav), (std::vector<int>{1, -1, 0, 0}));
}

void tst_PlaybackWav::neverWrapsAround()
{
    // Enough of them for every way a sample can take.
    std::vector<int> samples;
    std::vector<int> expected;
    for (int i = 0; i < 5; ++i) {
        for (const int sample : {32767, -32768, 2147483647, std::numeric_limits<int>::min()}) {
            samples.push_back(sample);
            expected.push_back(sample > 0 ? 32767 : -32768);
        }
    }
    const PlaybackWav wav = PlaybackWav::make(source(samples, 20, 16, 1e-3), 0, 1, 0, 0);
    QCOMPARE(playedSamples(wav), expected);
}

void tst_PlaybackWav::givesAnEmptyChunkForNothing_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("sampleRate");
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("end");
    QTest::newRow("no samples") << 0 << 500000 << 0.0 << 0.0;
    QTest::newRow("one sample") << 1 << 500000 << 0.0 << 1.0;
    QTest::newRow("empty range") << 100 << 1000 << 0.05 << 0.05;
    QTest::newRow("reversed range") << 100 << 1000 << 0.05 << 0.01;
    QTest::newRow("range behind the end") << 100 << 1000 << 7.0 << 8.0;
    QTest::newRow("no numbers") << 100 << 1000 << qQNaN() << qQNaN();
    QTest::newRow("no rate") << 100 << 0 << 0.0 << 1.0;
    QTest::newRow("negative rate") << 100 << -500000 << 0.0 << 1.0;
}

void tst_PlaybackWav::givesAnEmptyChunkForNothing()
{
    QFETCH(int, count);
    QFETCH(int, sampleRate);
    QFETCH(double, start);
    QFETCH(double, end);
    const std::vector<int> samples(count, 5);
    for (const int factorIndex : {0, 15}) {
        const PlaybackWav wav =
            PlaybackWav::make(source(samples, sampleRate, 16, 0.5), start, end, factorIndex, 0);
        QCOMPARE(wav.bytes.size(), headerBytes);
        QCOMPARE(at<quint32>(wav, 4), 36U);
        QCOMPARE(at<quint32>(wav, 40), 0U);
        QCOMPARE(wav.durationMs, 0.0);
    }
}

void tst_PlaybackWav::keepsSilence_data()
{
    QTest::addColumn<double>("displayPeak");
    QTest::newRow("no peak") << 0.0;
    QTest::newRow("no number") << qQNaN();
    QTest::newRow("too small to divide by") << 1e-320;
    QTest::newRow("negative") << -1.0;
}

void tst_PlaybackWav::keepsSilence()
{
    QFETCH(double, displayPeak);
    const std::vector<int> samples(8, 0);
    const PlaybackWav wav = PlaybackWav::make(source(samples, 8, 16, displayPeak), 0, 1, 0, 0);
    QCOMPARE(playedSamples(wav), samples);
}

void tst_PlaybackWav::movesTheCursorInRecordingTime_data()
{
    QTest::addColumn<double>("start");
    QTest::addColumn<double>("durationMs");
    QTest::addColumn<int>("ratePerMille");
    QTest::addColumn<qint64>("position");
    QTest::addColumn<double>("cursor");
    QTest::addColumn<QString>("label");
    const auto row = [](const char* name, double start, double durationMs, int rate, qint64 position,
                        double cursor, const char* label) {
        QTest::newRow(name) << start << durationMs << rate << position << cursor
                            << QString::fromLatin1(label);
    };
    row("start", 0, 5000, 1000, 0, 0, "00:00.000 / 00:05.000");
    row("own speed", 0, 5000, 1000, 1234, 1.234, "00:01.234 / 00:05.000");
    row("slowed", 2.5, 5000, 100, 12340, 3.734, "00:01.234 / 00:05.000");
    row("whole milliseconds only", 0, 5000, 10, 1299, 0.012, "00:00.012 / 00:05.000");
    row("no rounding error", 0, 500000, 10, 2900, 0.029, "00:00.029 / 08:20.000");
    row("end", 1, 5000.9, 250, 20003, 6.0, "00:05.000 / 00:05.000");
    row("one hour", 0, 3600000, 1000, 61001, 61.001, "01:01.001 / 60:00.000");
    row("over one hour", 0, 3600001, 1000, 61001, 61.001, "00:01:01.001 / 01:00:00.001");
    row("behind the first hour", 10, 7322000, 1000, 3661000, 3671.0, "01:01:01.000 / 02:02:02.000");
    row("nothing", 0, 0, 1000, 40, 0, "00:00.000 / 00:00.000");
}

void tst_PlaybackWav::movesTheCursorInRecordingTime()
{
    QFETCH(double, start);
    QFETCH(double, durationMs);
    QFETCH(int, ratePerMille);
    QFETCH(qint64, position);
    const PlaybackClock clock(start, durationMs, ratePerMille);
    QTEST(clock.cursorSeconds(position), "cursor");
    QTEST(clock.label(position), "label");
}

QTEST_GUILESS_MAIN(tst_PlaybackWav)
#include "tst_PlaybackWav.moc"
