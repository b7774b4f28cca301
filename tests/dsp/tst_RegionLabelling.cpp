#include "dsp/AmplitudeImage.h"
#include "dsp/RegionLabelling.h"
#include "dsp/RegionSelection.h"
#include "tests/support/DetectionResult.h"
#include "tests/support/PlainDetector.h"
#include "tests/support/Table.h"

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

    using JoinsRow = Table<QStringList, QVector<float>>; // image, scores
    using SizeRow = Table<int, int>;                     // frames, bins

private slots:
    void joinsAcrossCornersAndDetours_data()
    {
        JoinsRow row;
        row("empty", {"    ", "    "}, {});
        row("one cell", {"5"}, {5});
        row("corners", {"1 1", " 1 ", "1 1"}, {5});
        row("a gap apart", {"1  2", "1  2"}, {2, 4});
        row("labels in scan order", {"   2", "1   ", "   3"}, {2, 1, 3});
        row("joined at the end", {"1 1 1 9", "1 1 1  ", "11111 9"}, {11, 9, 9});
        row("the later label wins its first cell", {"   1  5", " 1 1   ", "  1   5"}, {4, 5, 5});
        row("ring", {"11111", "1   1", "1 7 1", "1   1", "11111"}, {16, 7});
        row("not around the edge", {"1  ", "  2"}, {1, 2});
    }
    void joinsAcrossCornersAndDetours()
    {
        const auto& [image, scores] = JoinsRow::row();
        RegionLabelling labelling;
        const std::vector<float> found = label(labelling, drawn(image));
        QCOMPARE(QVector<float>(found.begin(), found.end()), scores);
    }

    void equalsFloodFill_data()
    {
        SizeRow row;
        for (const int frames : {0, 1, 2, 40}) {
            for (const int bins : {1, 2, 63, 64, 65, 128, 200})
                row(QString::asprintf("%d x %d", frames, bins), frames, bins);
        }
    }
    void equalsFloodFill()
    {
        const auto& [frames, bins] = SizeRow::row();
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
                QVERIFY(sameBlob(region.blob, blob) && scores[region.label - 1] == blob.score);
            }
            QVERIFY(painted == expected);
        }
    }

    void givesOnlyTheWantedRegions()
    {
        RegionLabelling labelling;
        label(labelling, drawn({"1 2 3 4", "1 2 3 4"}));
        const auto regions = labelling.regions({2, 4});
        QCOMPARE(regions.size(), std::size_t{2});
        QVERIFY(regions[0].label == 2 && regions[0].blob.lowestBin == 2);
        QVERIFY(regions[1].label == 4 && regions[1].blob.score == 8);
    }

    void selectionKeepsTheBestInAnyOrder()
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
};

QTEST_GUILESS_MAIN(tst_RegionLabelling)
#include "tst_RegionLabelling.moc"
