#include "dsp/AmplitudeImage.h"
#include "dsp/CallDetector.h"
#include "dsp/CallFeatures.h"
#include "dsp/ImageConditioning.h"
#include "dsp/InstructionSet.h"
#include "tests/support/DetectionResult.h"
#include "tests/support/PlainDetector.h"
#include "tests/support/SyntheticImage.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace {

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
void addTone(AmplitudeImage& image, int firstFrame, int frames, int bin)
{
    for (int frame = firstFrame; frame < firstFrame + frames; ++frame)
        image.row(frame)[bin] = 0.5F;
}

DetectionResult detect(AmplitudeImage& image, float overlap, int sampleRate, int sampleSize)
{
    DetectionResult result;
    CallDetector::detect(image, overlap, sampleRate, sampleSize, result.blobs, result.classes, result.calls);
    return result;
}

/// Weight 1 in each cell that the runs name: log10(20 x 0.45 + 1).
AmplitudeImage weighted(int frames, int bins, const std::vector<RegionLabelling::Run>& runs)
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

private slots:
    void cleanup() { useInstructionSet(bestInstructionSet()); }
    void conditionsByHand();
    void clearsLowBins_data();
    void clearsLowBins();
    void measuresByHand_data();
    void measuresByHand();
    void framesWithoutWeightDoNotCount();
    void faintJumpsAreGapsToo();
    void walksOverSpectrumAreAsymmetric();
    void smallRegionsAreRemoved_data();
    void smallRegionsAreRemoved();
    void classifiesTones_data();
    void classifiesTones();
    void keepsTheStrongestPerSecond();
    void equalsPlainVersion_data();
    void equalsPlainVersion();
    void survivesOddImages_data();
    void survivesOddImages();
};

void tst_CallDetector::conditionsByHand()
{
    // One line at bin 4 of 9, where 1.5 MHz cuts nothing: smoothed to 1 2 1 at bins 3 to 5, the means below
    // these being 0, 1/4 and 3/5.
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

void tst_CallDetector::clearsLowBins_data()
{
    QTest::addColumn<int>("bins");
    QTest::addColumn<int>("sampleRate");
    QTest::addColumn<int>("firstBin");
    QTest::addColumn<int>("endBin");
    QTest::newRow("500 kHz") << 255 << 500000 << 8 << 252;
    QTest::newRow("384 kHz") << 511 << 384000 << 21 << 508;
    QTest::newRow("15 kHz, integer 7 kHz") << 255 << 15000 << 255 << 255;
    QTest::newRow("one bin over the cut") << 36 << 18000 << 32 << 33;
    QTest::newRow("8 kHz") << 255 << 8000 << 255 << 255;
    QTest::newRow("1 Hz") << 255 << 1 << 255 << 255;
    QTest::newRow("1.5 MHz, three bins at least") << 255 << 1500000 << 3 << 252;
    QTest::newRow("six bins") << 6 << 1500000 << 3 << 3;
    QTest::newRow("no bin") << 0 << 500000 << 0 << 0;
}

void tst_CallDetector::clearsLowBins()
{
    QFETCH(int, bins);
    QFETCH(int, sampleRate);
    const ImageConditioning conditioning(bins, sampleRate);
    QTEST(conditioning.firstBin(), "firstBin");
    QTEST(conditioning.endBin(), "endBin");
}

using Runs = std::vector<RegionLabelling::Run>;
Q_DECLARE_METATYPE(Runs)

void tst_CallDetector::measuresByHand_data()
{
    QTest::addColumn<Runs>("runs");
    QTest::addColumn<QVector<double>>("frequencies"); // centroid, max, min, start, end
    QTest::addColumn<QVector<int>>("counts");         // switches, zeros, upward, downward jumps
    // Spectrum 1 1 1 around bin 10: up 10, 11; down 10, 9 and the gap 8.
    QTest::newRow("constant tone") << Runs{{1, 9, 11}, {2, 9, 11}, {3, 9, 11}}
                                   << QVector<double>{10, 12, 7, 10, 10} << QVector<int>{0, 0, 0, 0};
    QTest::newRow("one frame has no jump")
        << Runs{{1, 9, 11}} << QVector<double>{10, 12, 7, 10, 10} << QVector<int>{-1, 0, 0, 0};
    // Down by 1, 1 and 3: jump sizes -3 and -1, and -2 missing between them.
    QTest::newRow("falling") << Runs{{1, 15, 15}, {2, 14, 14}, {3, 13, 13}, {4, 10, 10}}
                             << QVector<double>{13, 16, 11, 15, 10} << QVector<int>{1, 1, 0, 2};
    // Up by 2 and down by 1: the sizes -1 and 2 with 0 and 1 missing.
    QTest::newRow("up and down") << Runs{{1, 10, 10}, {2, 12, 12}, {3, 11, 11}}
                                 << QVector<double>{11, 13, 8, 10, 11} << QVector<int>{1, 2, 1, 1};
    // A centroid between two runs falls on a bin that is not the region's: its jump weighs nothing.
    QTest::newRow("centroid beside the region")
        << Runs{{1, 10, 10}, {2, 8, 8}, {2, 12, 12}, {3, 10, 10}} << QVector<double>{10, 11, 8, 10, 10}
        << QVector<int>{0, 0, 0, 0};
    QTest::newRow("at the low edge") << Runs{{1, 0, 1}, {2, 1, 1}} << QVector<double>{1, 2, 0, 0.5, 1}
                                     << QVector<int>{0, 0, 0, 0};
}

void tst_CallDetector::measuresByHand()
{
    QFETCH(Runs, runs);
    const CallFeatures features = measureFeatures(weighted(6, 20, runs), runs);
    const QVector<double> frequencies{features.centroid, features.maxFreq, features.minFreq,
                                      features.startFreq, features.endFreq};
    const QVector<int> counts{features.switchCount, features.zeroCount, features.posHist, features.negHist};
    QVERIFY(features.measured);
    QTEST(frequencies, "frequencies");
    QTEST(counts, "counts");
}

void tst_CallDetector::framesWithoutWeightDoNotCount()
{
    const Runs runs{{1, 10, 10}, {2, 11, 11}, {3, 14, 14}, {4, 14, 14}};
    AmplitudeImage image = weighted(6, 20, runs);
    image.row(2)[11] = 1e-9F;
    const CallFeatures features = measureFeatures(image, runs);
    QCOMPARE(features.startFreq, 10.0);
    QCOMPARE(features.endFreq, 14.0);
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

void tst_CallDetector::faintJumpsAreGapsToo()
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

void tst_CallDetector::walksOverSpectrumAreAsymmetric()
{
    // Spectrum with bins 8 to 12 except 9 and 11; centroid 10: one bin up, 10 and the gap 9 down.
    const Runs runs{{1, 8, 8}, {1, 10, 10}, {1, 12, 12}};
    const CallFeatures gaps = measureFeatures(weighted(3, 20, runs), runs);
    QCOMPARE(gaps.maxFreq, 11.0);
    QCOMPARE(gaps.minFreq, 8.0);
    // The whole width: up to the bin before the last, down to bin 1, where no gap ends the walk.
    const Runs full{{1, 0, 19}};
    const CallFeatures wide = measureFeatures(weighted(3, 20, full), full);
    QCOMPARE(wide.centroid, 9.5);
    QCOMPARE(wide.maxFreq, 9.5 + 10);
    QCOMPARE(wide.minFreq, 9.5 - 9);
}

void tst_CallDetector::smallRegionsAreRemoved_data()
{
    QTest::addColumn<float>("overlap");
    QTest::addColumn<int>("frames"); // of three cells each
    QTest::addColumn<int>("cells");  // one more frame of one cell where odd
    QTest::addColumn<bool>("kept");
    QTest::newRow("9 at 0 %") << 0.0F << 3 << 9 << false;
    QTest::newRow("10 at 0 %") << 0.0F << 3 << 10 << true;
    QTest::newRow("18 at 50 %") << 50.0F << 6 << 18 << false;
    QTest::newRow("19 at 50 %") << 50.0F << 6 << 19 << true;
    QTest::newRow("72 at 87.5 %") << 87.5F << 24 << 72 << false;
    QTest::newRow("73 at 87.5 %") << 87.5F << 24 << 73 << true;
    QTest::newRow("576 at 98.4375 %") << 98.4375F << 192 << 576 << false;
    QTest::newRow("577 at 98.4375 %") << 98.4375F << 192 << 577 << true;
}

void tst_CallDetector::smallRegionsAreRemoved()
{
    QFETCH(float, overlap);
    QFETCH(int, frames);
    QFETCH(int, cells);
    QFETCH(bool, kept);
    // At 100 kHz bin 40 is the first that is kept. A tone two bins above fills three bins of each frame; a
    // tone just under it leaves one.
    AmplitudeImage image = silence(frames + 5, 255);
    addTone(image, 2, frames, 41);
    if (cells > 3 * frames)
        addTone(image, 2 + frames, 1, 39);
    const DetectionResult result = detect(image, overlap, 100000, 100000);
    QCOMPARE(result.blobs.size(), std::size_t{kept ? 1U : 0U});
    QCOMPARE(result.classes.size(), kept ? 1 : 0);
    QCOMPARE(result.calls.size(), kept ? 1 : 0);
    if (kept)
        QCOMPARE(result.blobs.at(1).pixelCount, static_cast<std::uint64_t>(cells));
}

void tst_CallDetector::classifiesTones_data()
{
    QTest::addColumn<int>("bin");
    QTest::addColumn<int>("frames");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("drawn");
    // At 500 kHz and 87.5 % a frame lasts 0.128 ms and a bin is 250 / 255 kHz wide.
    QTest::newRow("5 ms at 45 kHz") << 46 << 39 << "PipPip" << true;
    QTest::newRow("10 ms at 20 kHz") << 20 << 78 << "NycNoc" << true;
    QTest::newRow("50 ms at 38 kHz") << 39 << 391 << "Test" << true;
    QTest::newRow("10 ms reaching down to 6 kHz") << 9 << 78 << "Noise" << false;
    QTest::newRow("50 ms reaching down to 6 kHz") << 9 << 391 << "Test" << true;
    QTest::newRow("30 ms at 98 kHz, no class but no noise either") << 100 << 235 << "Noise" << true;
}

void tst_CallDetector::classifiesTones()
{
    QFETCH(int, bin);
    QFETCH(int, frames);
    QFETCH(QString, text);
    QFETCH(bool, drawn);
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
    const Blob& blob = result.blobs.at(1);
    QCOMPARE(blob.firstFrame, 10);
    QCOMPARE(blob.lastFrame, 9 + frames);
    QCOMPARE(blob.highestBin, bin + 1);
}

void tst_CallDetector::keepsTheStrongestPerSecond()
{
    // 30 tones, each louder than the one before; 20 a started second.
    AmplitudeImage image = silence(1300, 255);
    for (int i = 0; i < 30; ++i) {
        for (int frame = 0; frame < 26; ++frame)
            image.row(10 + i * 42 + frame)[60] = 0.1F + 0.01F * static_cast<float>(i);
    }
    AmplitudeImage longer = copyOf(image);
    const DetectionResult first = detect(image, 87.5F, 500000, 499999);
    QCOMPARE(first.blobs.size(), std::size_t{20});
    for (int label = 11; label <= 30; ++label)
        QVERIFY(first.blobs.count(label) == 1);
    QCOMPARE(detect(longer, 87.5F, 500000, 500000).blobs.size(), std::size_t{30});
}

void tst_CallDetector::equalsPlainVersion_data()
{
    QTest::addColumn<float>("overlap");
    QTest::addColumn<int>("set");
    for (const float overlap : {0.0F, 50.0F, 75.0F, 87.5F, 98.4375F}) {
        for (const auto set : {InstructionSet::Portable, InstructionSet::Sse2, InstructionSet::Avx2})
            QTest::addRow("%g %%, set %d", static_cast<double>(overlap), static_cast<int>(set))
                << overlap << static_cast<int>(set);
    }
}

void tst_CallDetector::equalsPlainVersion()
{
    QFETCH(float, overlap);
    QFETCH(int, set);
    useInstructionSet(static_cast<InstructionSet>(set));
    const struct
    {
        int frames;
        int bins;
        int sampleRate;
    } sizes[] = {{1, 255, 500000},     {2, 255, 500000},    {3, 255, 500000},    {16, 31, 500000},
                 {31, 63, 500000},     {32, 64, 500000},    {33, 65, 384000},    {257, 7, 1500000},
                 {257, 8, 1500000},    {257, 9, 1500000},   {300, 31, 500000},   {900, 127, 250000},
                 {3000, 255, 1500000}, {5000, 255, 384000}, {2000, 511, 500000}, {700, 1023, 192000}};
    std::size_t regions = 0;
    int calls = 0;
    for (const auto& size : sizes) {
        AmplitudeImage image = syntheticImage(size.frames, size.bins, 3);
        AmplitudeImage reference = copyOf(image);
        const int sampleSize = size.frames * 64;
        DetectionResult expected;
        PlainDetector::detect(reference, overlap, size.sampleRate, sampleSize, expected.blobs,
                              expected.classes, expected.calls);
        const DetectionResult result = detect(image, overlap, size.sampleRate, sampleSize);
        QVERIFY2(digest(image) == digest(reference), qPrintable(QString::number(size.bins)));
        QCOMPARE(difference(result, expected), QString());
        regions += result.blobs.size();
        calls +=
            static_cast<int>(std::count_if(result.calls.begin(), result.calls.end(),
                                           [](const MyBatCall& call) { return !call.rectangle.isEmpty(); }));
    }
    QVERIFY2(regions > 10, qPrintable(QString::number(regions)));
    QVERIFY2(calls > 3, qPrintable(QString::number(calls)));
}

void tst_CallDetector::survivesOddImages_data()
{
    QTest::addColumn<int>("frames");
    QTest::addColumn<int>("bins");
    QTest::addColumn<QString>("content");
    QTest::addColumn<int>("sampleRate");
    QTest::addColumn<float>("overlap");
    for (const char* content : {"silence", "constant", "lines", "infinite"}) {
        for (const int rate : {0, 1, 8000, 15000, 18000, 250000, 1500000}) {
            for (const float overlap : {0.0F, 87.5F, 98.4375F, 100.0F})
                QTest::addRow("%s, %d Hz, %g %%", content, rate, static_cast<double>(overlap))
                    << 100 << 255 << QString(content) << rate << overlap;
        }
        for (const int bins : {0, 1, 2, 3, 6, 7, 8, 20}) {
            for (const int frames : {0, 1, 2, 3, 40})
                QTest::addRow("%s, %d x %d", content, frames, bins)
                    << frames << bins << QString(content) << 1500000 << 50.0F;
        }
    }
}

void tst_CallDetector::survivesOddImages()
{
    QFETCH(int, frames);
    QFETCH(int, bins);
    QFETCH(QString, content);
    QFETCH(int, sampleRate);
    QFETCH(float, overlap);
    AmplitudeImage image = silence(frames, bins);
    for (std::size_t cell = 0; cell < image.cells(); ++cell) {
        const auto bin = static_cast<int>(cell % static_cast<std::size_t>(bins));
        float value = content == QLatin1String("constant") ? 1.0F : 0.0F;
        if (content == QLatin1String("lines") && bin % 6 == 1) // a square wave: odd harmonics
            value = 1.0F / static_cast<float>(bin);
        if (content == QLatin1String("infinite") && cell % 97 == 0)
            value =
                cell % 2 == 0 ? std::numeric_limits<float>::infinity() : std::numeric_limits<float>::max();
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
        for (const double number : {call.startFreq, call.endFreq, call.minFreq, call.maxFreq, call.centroid,
                                    call.duration, call.rectangle.width(), call.rectangle.height()})
            QVERIFY(std::isfinite(number));
    }
}

QTEST_GUILESS_MAIN(tst_CallDetector)
#include "tst_CallDetector.moc"
