#include "dsp/AmplitudeImage.h"
#include "dsp/CallDetector.h"
#include "dsp/CallFeatures.h"
#include "dsp/ImageConditioning.h"
#include "dsp/InstructionSet.h"
#include "tests/support/DetectionResult.h"
#include "tests/support/PlainDetector.h"
#include "tests/support/SyntheticImage.h"
#include "tests/support/Table.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

using Runs = std::vector<RegionLabelling::Run>;

AmplitudeImage silence(int frames, int bins)
{
    AmplitudeImage image(frames, bins);
    if (!image.isNull())
        std::fill_n(image.row(0), image.cells(), 0.0F);
    return image;
}

AmplitudeImage copyOf(const AmplitudeImage& image)
{
    AmplitudeImage copy(image.frames(), image.bins());
    if (image.cells() > 0)
        std::memcpy(copy.row(0), image.row(0), image.cells() * sizeof(float));
    return copy;
}

/// A pure tone at one bin from the given frame on.
void addTone(AmplitudeImage& image, int firstFrame, int frames, int bin, float amplitude = 0.5F)
{
    for (int frame = firstFrame; frame < firstFrame + frames; ++frame)
        image.row(frame)[bin] = amplitude;
}

DetectionResult detect(AmplitudeImage& image, float overlap, int sampleRate, int sampleSize)
{
    DetectionResult result;
    CallDetector::detect(image, overlap, sampleRate, sampleSize, result.blobs, result.classes, result.calls);
    return result;
}

/// Weight 1 in each cell that the runs name: log10(20 x 0.45 + 1).
AmplitudeImage weighted(int frames, int bins, const Runs& runs)
{
    AmplitudeImage image = silence(frames, bins);
    for (const auto& run : runs)
        std::fill_n(image.row(run.frame) + run.firstBin, run.lastBin - run.firstBin + 1, 0.45F);
    return image;
}

} // namespace

class tst_CallDetector : public QObject
{
    Q_OBJECT

    using BinsRow = Table<int, int, int, int>; // bins, sampleRate, firstBin, endBin
    // What is measured; centroid, max, min, start, end; switches, zeros, upward, downward jumps.
    using MeasureRow = Table<Runs, QVector<double>, QVector<int>>;
    using SmallRegionsRow = Table<float, int, bool>; // overlap, cells, whether they are kept
    using ToneRow = Table<int, int, QString, bool>;  // bin, frames, text, drawn
    using PlainRow = Table<InstructionSet, float>;   // set, overlap
    // Content, overlap, sample rate; frames, bins.
    using OddImageRow = Table<QString, float, int, int, int>;

private slots:
    void cleanup() { useInstructionSet(bestInstructionSet()); }

    void conditionsByHand()
    {
        // One line at bin 4 of 9, where 1.5 MHz cuts nothing: smoothed to 1 2 1 at bins 3 to 5, the means
        // below these being 0, 1/4 and 3/5.
        AmplitudeImage image = silence(3, 9);
        image.row(0)[4] = 1.0F;
        image.row(1)[4] = 0.4F; // smoothed 0.4, under half the peak of 0.94
        image.row(2)[4] = 0.5F; // smoothed 0.5, over half of 0.896
        ImageConditioning conditioning(9, 1500000);
        QCOMPARE(conditioning.words(), std::size_t{1});
        std::uint64_t bits[3];
        conditioning.condition(image.row(0), 3, bits);
        QCOMPARE(image.row(0)[3], 1.0F);
        QCOMPARE(image.row(0)[4], 1.625F);
        QCOMPARE(image.row(0)[5], 0.1F);
        QCOMPARE(bits[0], std::uint64_t{0x38});
        QCOMPARE(bits[1], std::uint64_t{0});
        QCOMPARE(image.row(2)[3], 0.5F);
        QCOMPARE(image.row(2)[4], 0.8125F);
        QCOMPARE(bits[2], std::uint64_t{0x38});
    }

    void clearsLowBins_data()
    {
        BinsRow row;
        row("500 kHz", 255, 500000, 8, 252);
        row("384 kHz", 511, 384000, 21, 508);
        row("15 kHz, integer 7 kHz", 255, 15000, 255, 255);
        row("one bin over the cut", 36, 18000, 32, 33);
        row("1 Hz", 255, 1, 255, 255);
        row("1.5 MHz, three bins at least", 255, 1500000, 3, 252);
        row("six bins", 6, 1500000, 3, 3);
        row("no bin", 0, 500000, 0, 0);
    }
    void clearsLowBins()
    {
        const auto& [bins, sampleRate, firstBin, endBin] = BinsRow::row();
        const ImageConditioning conditioning(bins, sampleRate);
        QCOMPARE(conditioning.firstBin(), firstBin);
        QCOMPARE(conditioning.endBin(), endBin);
    }

    void measuresByHand_data()
    {
        MeasureRow row;
        // Spectrum 1 1 1 around bin 10: up 10, 11; down 10, 9 and the gap 8.
        row("constant tone", {{1, 9, 11}, {2, 9, 11}, {3, 9, 11}}, {10, 12, 7, 10, 10}, {0, 0, 0, 0});
        row("one frame has no jump", {{1, 9, 11}}, {10, 12, 7, 10, 10}, {-1, 0, 0, 0});
        // Down by 1, 1 and 3: jump sizes -3 and -1, and -2 missing between them.
        row("falling", {{1, 15, 15}, {2, 14, 14}, {3, 13, 13}, {4, 10, 10}}, {13, 16, 11, 15, 10},
            {1, 1, 0, 2});
        // Up by 2 and down by 1: the sizes -1 and 2 with 0 and 1 missing.
        row("up and down", {{1, 10, 10}, {2, 12, 12}, {3, 11, 11}}, {11, 13, 8, 10, 11}, {1, 2, 1, 1});
        // A centroid between two runs falls on a bin that is not the region's: its jump weighs nothing.
        row("centroid beside the region", {{1, 10, 10}, {2, 8, 8}, {2, 12, 12}, {3, 10, 10}},
            {10, 11, 8, 10, 10}, {0, 0, 0, 0});
        row("at the low edge", {{1, 0, 1}, {2, 1, 1}}, {1, 2, 0, 0.5, 1}, {0, 0, 0, 0});
        // One bin up, 10 itself and the gap 9 down.
        row("with gaps", {{1, 8, 8}, {1, 10, 10}, {1, 12, 12}}, {10, 11, 8, 10, 10}, {-1, 0, 0, 0});
        // Up to the bin before the last, down to bin 1, where no gap ends the walk.
        row("the whole width", {{1, 0, 19}}, {9.5, 19.5, 0.5, 9.5, 9.5}, {-1, 0, 0, 0});
    }
    void measuresByHand()
    {
        const auto& [runs, frequencies, counts] = MeasureRow::row();
        const CallFeatures found = measureFeatures(weighted(6, 20, runs), runs);
        QVERIFY(found.measured);
        QCOMPARE(
            QVector<double>({found.centroid, found.maxFreq, found.minFreq, found.startFreq, found.endFreq}),
            frequencies);
        QCOMPARE(QVector<int>({found.switchCount, found.zeroCount, found.posHist, found.negHist}), counts);
    }

    void framesWithoutWeightDoNotCount()
    {
        const Runs runs{{1, 10, 10}, {2, 11, 11}, {3, 14, 14}, {4, 14, 14}};
        AmplitudeImage image = weighted(6, 20, runs);
        image.row(2)[11] = 1e-9F;
        const CallFeatures features = measureFeatures(image, runs);
        // No jump from frame 1 to 3 across the gap: what is left is the stay from 3 to 4.
        QCOMPARE(features.posHist, 0);
        QCOMPARE(features.switchCount, 0);
        QCOMPARE(features.centroid, 38.0 / 3.0);

        for (int frame = 1; frame <= 4; ++frame)
            std::fill_n(image.row(frame), image.bins(), 1e-9F);
        const CallFeatures nothing = measureFeatures(image, runs);
        QVERIFY(!nothing.measured);
        QCOMPARE(nothing.startFreq, 0.0);
        QCOMPARE(nothing.switchCount, 0);
    }

    void faintJumpsAreGapsToo()
    {
        // Jumps of 2, 1 and 0, the second of them to a bin that weighs next to nothing.
        const Runs runs{{1, 10, 10}, {2, 12, 12}, {3, 11, 11}, {3, 13, 13}, {3, 15, 15}, {4, 13, 13}};
        AmplitudeImage image = weighted(6, 20, runs);
        image.row(3)[13] = 1e-9F;
        const CallFeatures features = measureFeatures(image, runs);
        QCOMPARE(features.posHist, 2);
        QCOMPARE(features.switchCount, 0);
        QCOMPARE(features.zeroCount, 1);
    }

    void smallRegionsAreRemoved_data()
    {
        SmallRegionsRow row;
        row("9 at 0 %", 0.0F, 9, false);
        row("10 at 0 %", 0.0F, 10, true);
        row("18 at 50 %", 50.0F, 18, false);
        row("19 at 50 %", 50.0F, 19, true);
        row("576 at 98.4375 %", 98.4375F, 576, false);
        row("577 at 98.4375 %", 98.4375F, 577, true);
    }
    void smallRegionsAreRemoved()
    {
        const auto& [overlap, cells, kept] = SmallRegionsRow::row();
        // At 100 kHz bin 40 is the first that is kept. A tone two bins above fills three bins of each frame;
        // a tone just under it leaves one.
        const int frames = cells / 3;
        AmplitudeImage image = silence(frames + 5, 255);
        addTone(image, 2, frames, 41);
        addTone(image, 2 + frames, cells - 3 * frames, 39);
        const DetectionResult result = detect(image, overlap, 100000, 100000);
        QCOMPARE(result.blobs.size(), std::size_t{kept ? 1U : 0U});
        if (kept)
            QCOMPARE(result.blobs.at(1).pixelCount, static_cast<std::uint64_t>(cells));
    }

    void classifiesTones_data()
    {
        ToneRow row;
        // At 500 kHz and 87.5 % a frame lasts 0.128 ms and a bin is 250 / 255 kHz wide.
        row("5 ms at 45 kHz", 46, 39, "PipPip", true);
        row("10 ms at 20 kHz", 20, 78, "NycNoc", true);
        row("50 ms at 38 kHz", 39, 391, "Test", true);
        row("10 ms reaching down to 6 kHz", 9, 78, "Noise", false);
        row("50 ms reaching down to 6 kHz", 9, 391, "Test", true);
        row("30 ms at 98 kHz, no class but no noise either", 100, 235, "Noise", true);
    }
    void classifiesTones()
    {
        const auto& [bin, frames, text, drawn] = ToneRow::row();
        AmplitudeImage image = silence(500, 255);
        addTone(image, 10, frames, bin);
        const DetectionResult result = detect(image, 87.5F, 500000, 50000);
        QCOMPARE(result.classes, QStringList(text));
        QCOMPARE(result.calls.size(), 1);
        const MyBatCall& call = result.calls.first();
        QCOMPARE(call.classText, text);
        const double perBin = 250.0 / 255;
        const double lowest = qMax(bin - 1, 8);
        const QRectF expected(10 * 0.000128, lowest * perBin, frames * 0.000128, (bin + 2 - lowest) * perBin);
        QCOMPARE(call.rectangle, drawn ? expected : QRectF());
        QCOMPARE(call.duration, drawn ? frames * 0.000128 : 0.0);
        QVERIFY(drawn ? std::abs(call.startFreq - bin * perBin) < perBin : call.startFreq == 0.0);
    }

    void keepsTheStrongestPerSecond()
    {
        // 30 tones, each louder than the one before; 20 a started second.
        AmplitudeImage image = silence(1300, 255);
        for (int i = 0; i < 30; ++i)
            addTone(image, 10 + i * 42, 26, 60, 0.1F + 0.01F * static_cast<float>(i));
        AmplitudeImage longer = copyOf(image);
        const DetectionResult first = detect(image, 87.5F, 500000, 499999);
        QCOMPARE(first.blobs.size(), std::size_t{20});
        for (int label = 11; label <= 30; ++label)
            QVERIFY(first.blobs.count(label) == 1);
        QCOMPARE(detect(longer, 87.5F, 500000, 500000).blobs.size(), std::size_t{30});
    }

    void equalsPlainVersion_data()
    {
        PlainRow row;
        for (const float overlap : {0.0F, 50.0F, 87.5F, 98.4375F}) {
            for (const auto set : {InstructionSet::Portable, InstructionSet::Sse2, InstructionSet::Avx2})
                row(QString::asprintf("set %d, %g %%", int(set), double(overlap)), set, overlap);
        }
    }
    void equalsPlainVersion()
    {
        const auto& [set, overlap] = PlainRow::row();
        useInstructionSet(set);
        const int sizes[][3] = {
            // frames, bins, sample rate
            {1, 255, 500000},     {2, 255, 500000},    {3, 255, 500000},    {16, 31, 500000},
            {31, 63, 500000},     {32, 64, 500000},    {33, 65, 384000},    {257, 7, 1500000},
            {257, 8, 1500000},    {257, 9, 1500000},   {300, 31, 500000},   {900, 127, 250000},
            {3000, 255, 1500000}, {5000, 255, 384000}, {2000, 511, 500000}, {700, 1023, 192000}};
        std::size_t regions = 0;
        int drawn = 0;
        for (const auto& [frames, bins, sampleRate] : sizes) {
            AmplitudeImage image = syntheticImage(frames, bins, 3);
            AmplitudeImage reference = copyOf(image);
            DetectionResult expected;
            PlainDetector::detect(reference, overlap, sampleRate, frames * 64, expected.blobs,
                                  expected.classes, expected.calls);
            const DetectionResult result = detect(image, overlap, sampleRate, frames * 64);
            QVERIFY2(digest(image) == digest(reference), qPrintable(QString::number(bins)));
            QCOMPARE(difference(result, expected), QString());
            regions += result.blobs.size();
            for (const MyBatCall& call : result.calls)
                drawn += call.rectangle.isEmpty() ? 0 : 1;
        }
        QVERIFY2(regions > 10 && drawn > 3, qPrintable(QString::asprintf("%zu, %d", regions, drawn)));
    }

    void survivesOddImages_data()
    {
        OddImageRow row;
        for (const char* content : {"silence", "constant", "lines", "infinite"}) {
            for (const int rate : {0, 1, 15000, 18000, 250000, 1500000}) {
                for (const float overlap : {0.0F, 98.4375F, 100.0F})
                    row(QString::asprintf("%s, %d Hz, %g %%", content, rate, double(overlap)), content,
                        overlap, rate, 100, 255);
            }
            for (const int bins : {0, 1, 2, 3, 6, 7, 8, 20}) {
                for (const int frames : {0, 1, 2, 3, 40})
                    row(QString::asprintf("%s, %d x %d", content, frames, bins), content, 50.0F, 1500000,
                        frames, bins);
            }
        }
    }
    void survivesOddImages()
    {
        const auto& [content, overlap, sampleRate, frames, bins] = OddImageRow::row();
        AmplitudeImage image = silence(frames, bins);
        for (std::size_t cell = 0; cell < image.cells(); ++cell) {
            const auto bin = static_cast<int>(cell % static_cast<std::size_t>(bins));
            float value = content == QLatin1String("constant") ? 1.0F : 0.0F;
            if (content == QLatin1String("lines") && bin % 6 == 1) // a square wave: odd harmonics
                value = 1.0F / static_cast<float>(bin);
            if (content == QLatin1String("infinite") && cell % 97 == 0)
                value = cell % 2 == 0 ? std::numeric_limits<float>::infinity()
                                      : std::numeric_limits<float>::max();
            image.row(0)[cell] = value;
        }
        DetectionResult result;
        result.classes << QStringLiteral("left over");
        result.blobs[7] = Blob();
        result.calls << MyBatCall();
        CallDetector::detect(image, overlap, sampleRate, frames * 100, result.blobs, result.classes,
                             result.calls);
        QCOMPARE(result.calls.size(), result.classes.size());
        QCOMPARE(result.blobs.size(), static_cast<std::size_t>(result.classes.size()));
        if (content == QLatin1String("silence") || frames < 3 || bins < 7 || sampleRate < 16000)
            QVERIFY(result.classes.isEmpty());
        for (const MyBatCall& call : result.calls) {
            for (const double number :
                 {call.startFreq, call.endFreq, call.minFreq, call.maxFreq, call.centroid, call.duration,
                  call.rectangle.width(), call.rectangle.height()})
                QVERIFY(std::isfinite(number));
        }
    }
};

QTEST_GUILESS_MAIN(tst_CallDetector)
#include "tst_CallDetector.moc"
