#include "dsp/AmplitudeImage.h"
#include "dsp/RegionLabelling.h"
#include "dsp/RegionSelection.h"
#include "tests/support/PlainDetector.h"

#include <QtTest>

#include <algorithm>
#include <numeric>
#include <random>

namespace {

std::vector<float> label(RegionLabelling& labelling, const AmplitudeImage& image)
{
    const std::size_t words = (static_cast<std::size_t>(image.bins()) + 63) / 64;
    for (int frame = 0; frame < image.frames(); ++frame) {
        std::vector<std::uint64_t> bits(words, 0);
        for (int bin = 0; bin < image.bins(); ++bin) {
            if (image.row(frame)[bin] != 0)
                bits[bin / 64] |= std::uint64_t{1} << (bin % 64);
        }
        labelling.addRow(image.row(frame), bits.data(), words);
    }
    return labelling.finish();
}

/// An image with as many rows as lines, 0 for blanks and the digits' values for digits.
AmplitudeImage drawn(const QStringList& lines)
{
    AmplitudeImage image(lines.size(), lines.first().size());
    for (int frame = 0; frame < image.frames(); ++frame) {
        for (int bin = 0; bin < image.bins(); ++bin)
            image.row(frame)[bin] = static_cast<float>(qMax(lines[frame][bin].digitValue(), 0));
    }
    return image;
}

} // namespace

class tst_RegionLabelling : public QObject
{
    Q_OBJECT

private slots:
    void joinsAcrossCornersAndDetours_data();
    void joinsAcrossCornersAndDetours();
    void equalsFloodFill_data();
    void equalsFloodFill();
    void givesOnlyTheWantedRegions();
    void selectionKeepsTheBestInAnyOrder();
};

void tst_RegionLabelling::joinsAcrossCornersAndDetours_data()
{
    QTest::addColumn<QStringList>("image");
    QTest::addColumn<QVector<int>>("scores");
    QTest::newRow("empty") << QStringList{"    ", "    "} << QVector<int>{};
    QTest::newRow("one cell") << QStringList{"5"} << QVector<int>{5};
    QTest::newRow("corners") << QStringList{"1 1", " 1 ", "1 1"} << QVector<int>{5};
    QTest::newRow("a gap apart") << QStringList{"1  2", "1  2"} << QVector<int>{2, 4};
    QTest::newRow("labels in scan order") << QStringList{"   2", "1   ", "   3"} << QVector<int>{2, 1, 3};
    QTest::newRow("joined at the end")
        << QStringList{"1 1 1 9", "1 1 1  ", "11111 9"} << QVector<int>{11, 9, 9};
    QTest::newRow("the later label wins its first cell")
        << QStringList{"   1  5", " 1 1   ", "  1   5"} << QVector<int>{4, 5, 5};
    QTest::newRow("ring") << QStringList{"11111", "1   1", "1 7 1", "1   1", "11111"} << QVector<int>{16, 7};
    QTest::newRow("not around the edge") << QStringList{"1  ", "  2"} << QVector<int>{1, 2};
}

void tst_RegionLabelling::joinsAcrossCornersAndDetours()
{
    QFETCH(QStringList, image);
    RegionLabelling labelling;
    const std::vector<float> scores = label(labelling, drawn(image));
    QVector<int> rounded;
    for (const float score : scores)
        rounded << static_cast<int>(score);
    QTEST(rounded, "scores");
}

void tst_RegionLabelling::equalsFloodFill_data()
{
    QTest::addColumn<int>("frames");
    QTest::addColumn<int>("bins");
    for (const int frames : {0, 1, 2, 40}) {
        for (const int bins : {1, 2, 63, 64, 65, 128, 200})
            QTest::addRow("%d x %d", frames, bins) << frames << bins;
    }
}

void tst_RegionLabelling::equalsFloodFill()
{
    QFETCH(int, frames);
    QFETCH(int, bins);
    std::mt19937 random(static_cast<unsigned>(frames * 1000 + bins));
    std::uniform_real_distribution<float> uniform(0.0F, 1.0F);
    for (const float density : {0.05F, 0.3F, 0.45F, 0.7F, 0.97F, 1.0F}) {
        AmplitudeImage image(frames, bins);
        for (int frame = 0; frame < frames; ++frame)
            std::generate_n(image.row(frame), bins,
                            [&] { return uniform(random) < density ? uniform(random) + 1e-6F : 0.0F; });
        int regionCount = 0;
        const std::vector<int> expected = PlainDetector::label(image, &regionCount);
        const std::vector<Blob> blobs = PlainDetector::measureRegions(image, expected, regionCount);

        RegionLabelling labelling;
        const std::vector<float> scores = label(labelling, image);
        QCOMPARE(static_cast<int>(scores.size()), regionCount);
        std::vector<int> labels(scores.size());
        std::iota(labels.begin(), labels.end(), 1);
        std::vector<int> painted(expected.size(), 0);
        for (const auto& region : labelling.regions(labels)) {
            for (const auto& run : region.runs)
                std::fill_n(&painted[std::size_t(run.frame) * bins + run.firstBin],
                            run.lastBin - run.firstBin + 1, region.label);
            const Blob& blob = blobs[region.label - 1];
            QCOMPARE(region.blob.pixelCount, blob.pixelCount);
            QCOMPARE(region.blob.firstFrame, blob.firstFrame);
            QCOMPARE(region.blob.lastFrame, blob.lastFrame);
            QCOMPARE(region.blob.lowestBin, blob.lowestBin);
            QCOMPARE(region.blob.highestBin, blob.highestBin);
            QVERIFY(region.blob.score == blob.score && scores[region.label - 1] == blob.score);
        }
        QVERIFY(painted == expected);
    }
}

void tst_RegionLabelling::givesOnlyTheWantedRegions()
{
    RegionLabelling labelling;
    label(labelling, drawn({"1 2 3 4", "1 2 3 4"}));
    const auto regions = labelling.regions({2, 4});
    QCOMPARE(regions.size(), std::size_t{2});
    QCOMPARE(regions[0].label, 2);
    QCOMPARE(regions[0].blob.lowestBin, 2);
    QCOMPARE(regions[1].label, 4);
    QCOMPARE(static_cast<int>(regions[1].blob.score), 8);
}

void tst_RegionLabelling::selectionKeepsTheBestInAnyOrder()
{
    std::mt19937 random(7);
    for (const int count : {0, 1, 5, 300}) {
        std::vector<std::pair<float, int>> regions;
        for (int label = 1; label <= count; ++label)
            regions.emplace_back(static_cast<float>(random() % 40), label); // with many equal scores
        for (const int capacity : {0, 1, 4, 100, 300, 500}) {
            std::sort(regions.rbegin(), regions.rend());
            std::vector<int> best(std::min(count, capacity));
            std::transform(regions.begin(), regions.begin() + best.size(), best.begin(),
                           [](const auto& region) { return region.second; });
            std::sort(best.begin(), best.end());
            for (int round = 0; round < 10; ++round) {
                RegionSelection selection(static_cast<std::size_t>(capacity));
                for (const auto& [score, label] : regions)
                    selection.offer(score, label);
                QVERIFY(selection.labels() == best);
                std::shuffle(regions.begin(), regions.end(), random);
            }
        }
    }
}

QTEST_GUILESS_MAIN(tst_RegionLabelling)
#include "tst_RegionLabelling.moc"
