#include "tests/support/Table.h"
#include "viewer/core/PlaybackClock.h"
#include "viewer/core/PlaybackWav.h"

#include <QtEndian>
#include <QtTest>

#include <cmath>
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

    using RateRow = Table<int, int, int, quint32>; // sample rate, factor index, rate index; declared
    using RangeRow = Table<int, double, double, std::vector<int>>; // factor index, start, end; expected
    using NothingRow = Table<int, int, double, double>;            // count, sample rate, start, end
    // Start, duration in ms, rate per mille, position; cursor, label.
    using ClockRow = Table<double, double, int, qint64, double, QString>;

private slots:
    void writesTheWholeFile()
    {
        // Peak 1000 is brought to 0.8 x 32767: a gain of 26.2136.
        const std::vector<int> samples{1000, -1000, 1, -1};
        const PlaybackWav wav =
            PlaybackWav::make(source(samples, 1000, 16, displayPeak(1000)), 0, 0.004, 0, 0);

        const QByteArray expected = QByteArray("RIFF\x2c\x00\x00\x00WAVEfmt \x10\x00\x00\x00", 20) +
                                    QByteArray("\x01\x00\x01\x00\xe8\x03\x00\x00\xd0\x07\x00\x00", 12) +
                                    QByteArray("\x02\x00\x10\x00"
                                               "data\x08\x00\x00\x00",
                                               12) +
                                    QByteArray("\x65\x66\x9b\x99\x1a\x00\xe6\xff", 8);
        QCOMPARE(wav.bytes.toHex(' '), expected.toHex(' '));
        QCOMPARE(wav.durationMs, 4.0);
    }

    void declaresTheRate_data()
    {
        RateRow row;
        row("as recorded", 500000, 0, 0, 500000U);
        row("half", 500000, 0, 1, 250000U);
        row("every second", 500000, 1, 0, 250000U);
        row("every tenth, ten times slower", 500000, 5, 4, 5000U);
        row("integer division first", 500000, 3, 2, 20833U); // 83333 / 4
        row("slowest", 384000, 15, 6, 128U);                 // 12800 / 100
        row("rate below the factor", 20, 15, 0, 0U);
    }
    void declaresTheRate()
    {
        const auto& [sampleRate, factorIndex, rateIndex, declared] = RateRow::row();
        const std::vector<int> samples(1000, 100);
        const PlaybackWav wav = PlaybackWav::make(source(samples, sampleRate, 16, displayPeak(100)), 0, 1,
                                                  factorIndex, rateIndex);
        QCOMPARE(at<quint32>(wav, 24), declared);
        QCOMPARE(at<quint32>(wav, 28), declared * 2);
    }

    void takesFirstEntryForUnknownIndexes()
    {
        QVector<int> rates;
        for (int index = 0; index < 8; ++index)
            rates << PlaybackWav::ratePerMilleAt(index);
        QCOMPARE(rates, QVector<int>({1000, 500, 250, 200, 100, 50, 10, 1000}));
        QCOMPARE(PlaybackWav::factorAt(15), 30);
        for (const int index : {-1, 16, 1000000, std::numeric_limits<int>::min()}) {
            QCOMPARE(PlaybackWav::ratePerMilleAt(index), 1000);
            QCOMPARE(PlaybackWav::factorAt(index), 1);
        }
    }

    void keepsEveryNthSampleOfTheRange_data()
    {
        RangeRow row;
        row("all", 0, 0.0, 0.01, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
        row("inside, end exclusive", 0, 0.002, 0.006, {2, 3, 4, 5});
        row("odd count loses its last", 0, 0.002, 0.007, {2, 3, 4, 5});
        row("one sample is none", 0, 0.002, 0.003, {});
        row("parts of samples are cut", 0, 0.0029, 0.0069, {2, 3, 4, 5});
        row("every second", 1, 0.0, 0.01, {0, 2, 4, 6});
        row("beyond both ends", 0, -5.0, 99.0, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
        // Every fourth of ten are 0, 4 and 8, but an even number is played.
        row("beyond both ends, every fourth", 2, -5.0, 99.0, {0, 4});
        row("to the last decimated one", 2, 0.004, 99.0, {4, 8});
    }
    void keepsEveryNthSampleOfTheRange()
    {
        const auto& [factorIndex, start, end, expected] = RangeRow::row();
        const std::vector<int> samples = ramp(10);
        const PlaybackWav wav =
            PlaybackWav::make(source(samples, 1000, 16, unityPeak), start, end, factorIndex, 4);
        QCOMPARE(playedSamples(wav), expected);

        QCOMPARE(at<quint32>(wav, 4), at<quint32>(wav, 40) + 36);
        QCOMPARE(at<quint32>(wav, 40), static_cast<quint32>(2 * expected.size()));
        // The duration is that of the recording, not that of the slowed sound.
        QCOMPARE(wav.durationMs, static_cast<double>(expected.size()) * PlaybackWav::factorAt(factorIndex));
    }

    void followsTheFormulaForEveryFactor()
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

    void lastFullSecondKeepsItsLastSample()
    {
        // Dividing a count by a rate and multiplying again does not always lead back: 49 / 49000.0 x 49000 is
        // one of the cases. No recording may lose samples by that.
        for (const int rate : {8000, 15000, 44100, 49000, 250000, 256000, 384000, 500000}) {
            for (int count = 2; count < 4000; count += 2) {
                const std::vector<int> samples(count, 0);
                const PlaybackWav wav = PlaybackWav::make(source(samples, rate, 16, 0.5), 0,
                                                          static_cast<double>(count) / rate, 0, 0);
                QCOMPARE(wav.bytes.size(), headerBytes + 2 * count);
            }
        }
    }

    void scalesOtherWidthsToSixteenBits()
    {
        for (const int bits : {8, 16, 24, 32}) {
            const auto full = static_cast<int>((qint64{1} << (bits - 1)) - 1);
            const std::vector<int> samples{full, -full, 0, static_cast<int>(std::lround(full * 0.5039))};
            const PlaybackWav wav = PlaybackWav::make(source(samples, 4, bits, 1.1), 0, 1, 0, 0);
            const std::vector<int> played = playedSamples(wav);
            QCOMPARE(played.size(), std::size_t(4));
            QVERIFY(played[0] == 26213 && played[1] == -26213 && played[2] == 0);
            QVERIFY(std::abs(played[3] - 13209) <= 1);
        }
    }

    void truncatesTowardsZero()
    {
        const std::vector<int> samples{3, -3, 1, -1};
        // A gain of one half.
        const PlaybackWav wav = PlaybackWav::make(source(samples, 4, 16, 2 * unityPeak), 0, 1, 0, 0);
        QCOMPARE(playedSamples(wav), (std::vector<int>{1, -1, 0, 0}));
    }

    void neverWrapsAround()
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

    void givesAnEmptyChunkForNothing_data()
    {
        NothingRow row;
        row("no samples", 0, 500000, 0.0, 0.0);
        row("one sample", 1, 500000, 0.0, 1.0);
        row("empty range", 100, 1000, 0.05, 0.05);
        row("reversed range", 100, 1000, 0.05, 0.01);
        row("range behind the end", 100, 1000, 7.0, 8.0);
        row("no numbers", 100, 1000, qQNaN(), qQNaN());
        row("no rate", 100, 0, 0.0, 1.0);
        row("negative rate", 100, -500000, 0.0, 1.0);
    }
    void givesAnEmptyChunkForNothing()
    {
        const auto& [count, sampleRate, start, end] = NothingRow::row();
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

    void withoutAPeakAllIsSilent()
    {
        const std::vector<int> samples(8, 1000);
        for (const double peak : {0.0, qQNaN(), 1e-320, -1.0}) { // the third is too small to divide by
            const PlaybackWav wav = PlaybackWav::make(source(samples, 8, 16, peak), 0, 1, 0, 0);
            QCOMPARE(playedSamples(wav), std::vector<int>(8, 0));
        }
    }

    void movesTheCursorInRecordingTime_data()
    {
        ClockRow row;
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
    void movesTheCursorInRecordingTime()
    {
        const auto& [start, durationMs, ratePerMille, position, cursor, label] = ClockRow::row();
        const PlaybackClock clock(start, durationMs, ratePerMille);
        QCOMPARE(clock.cursorSeconds(position), cursor);
        QCOMPARE(clock.label(position), label);
    }
};

QTEST_GUILESS_MAIN(tst_PlaybackWav)
#include "tst_PlaybackWav.moc"
