#include "dsp/RegionLabelling.h"

#include "dsp/FreshMemory.h"

#include <QtAlgorithms>

#include <algorithm>

namespace {

// Runs are stored in chunks that never move; what is not written to costs no memory.
constexpr std::size_t chunkRuns = std::size_t{1} << 20;

} // namespace

void RegionLabelling::addRow(const float* row, const std::uint64_t* nonZero, std::size_t words)
{
    m_above.swap(m_here);
    m_here.clear();
    std::size_t above = 0;
    int first = -1; // of a run that may go on in the next word
    for (std::size_t word = 0; word < words; ++word) {
        const int base = static_cast<int>(word * 64);
        std::uint64_t bits = nonZero[word];
        if (first >= 0 && (bits & 1) == 0) {
            addRun(row, first, base - 1, above);
            first = -1;
        }
        while (bits != 0) {
            const std::uint64_t lowest = bits & (~bits + 1);
            if (first < 0)
                first = base + static_cast<int>(qCountTrailingZeroBits(static_cast<quint64>(bits)));
            const std::uint64_t carried = bits + lowest; // the run is gone, the bit after it set
            if (carried == 0)
                break;
            bits &= carried;
            addRun(row, first,
                   base + static_cast<int>(qCountTrailingZeroBits(static_cast<quint64>(carried))) - 1, above);
            first = -1;
        }
    }
    if (first >= 0)
        addRun(row, first, static_cast<int>(words * 64) - 1, above);
    ++m_frame;
}

void RegionLabelling::addRun(const float* row, int firstBin, int lastBin, std::size_t& above)
{
    // Runs touch also across a corner, so a neighbour above may end or begin one bin beside this one.
    while (above < m_above.size() && m_above[above].lastBin < firstBin - 1)
        ++above;
    constexpr auto none = std::uint32_t(-1);
    std::uint32_t label = none;
    for (std::size_t i = above; i < m_above.size() && m_above[i].firstBin <= lastBin + 1; ++i) {
        const std::uint32_t other = root(m_above[i].label);
        if (label == none) {
            label = other;
        } else if (other != label) {
            m_labels[std::max(label, other)] = std::min(label, other);
            label = std::min(label, other);
        }
    }
    if (label == none) {
        label = static_cast<std::uint32_t>(m_labels.size());
        m_labels.push_back(label);
    }
    double sum = 0;
    for (int bin = firstBin; bin <= lastBin; ++bin)
        sum += static_cast<double>(row[bin]);
    m_here.push_back({firstBin, lastBin, label});
    store({sum, m_frame, firstBin, lastBin, label});
}

std::uint32_t RegionLabelling::root(std::uint32_t label)
{
    while (m_labels[label] != label) {
        m_labels[label] = m_labels[m_labels[label]];
        label = m_labels[label];
    }
    return label;
}

void RegionLabelling::store(const StoredRun& run)
{
    const std::size_t place = m_runCount % chunkRuns;
    if (place == 0) {
        m_chunks.emplace_back(new StoredRun[chunkRuns]);
        preferLargePages(m_chunks.back().get(), chunkRuns * sizeof(StoredRun));
    }
    m_chunks.back()[place] = run;
    ++m_runCount;
}

template <class Visit>
void RegionLabelling::forEachRun(Visit visit) const
{
    std::size_t left = m_runCount;
    for (const auto& chunk : m_chunks) {
        const StoredRun* const end = chunk.get() + std::min(left, chunkRuns);
        for (const StoredRun* run = chunk.get(); run != end; ++run)
            visit(*run);
        left -= std::min(left, chunkRuns);
    }
}

std::vector<float> RegionLabelling::finish()
{
    // A parent is never larger than its child, so it has its final label when the child asks for it. Roots
    // stand in the order of the first cells, so counting them gives the final labels.
    std::uint32_t count = 0;
    for (std::uint32_t label = 0; label < m_labels.size(); ++label)
        m_labels[label] = m_labels[label] == label ? ++count : m_labels[m_labels[label]];
    m_regionCount = static_cast<int>(count);

    std::vector<double> sums(count, 0.0);
    forEachRun([&](const StoredRun& run) { sums[m_labels[run.label] - 1] += run.sum; });
    std::vector<float> scores(count);
    std::transform(sums.begin(), sums.end(), scores.begin(),
                   [](double sum) { return static_cast<float>(sum); });
    return scores;
}

std::vector<RegionLabelling::Region> RegionLabelling::regions(const std::vector<int>& labels) const
{
    std::vector<Region> found(labels.size());
    std::vector<double> sums(labels.size(), 0.0);
    constexpr auto unwanted = std::uint32_t(-1);
    std::vector<std::uint32_t> places(static_cast<std::size_t>(m_regionCount) + 1, unwanted);
    for (std::size_t i = 0; i < labels.size(); ++i) {
        found[i].label = labels[i];
        places[static_cast<std::size_t>(labels[i])] = static_cast<std::uint32_t>(i);
    }
    forEachRun([&](const StoredRun& run) {
        const std::uint32_t place = places[m_labels[run.label]];
        if (place == unwanted)
            return;
        Region& region = found[place];
        Blob& blob = region.blob;
        if (region.runs.empty())
            blob = {0, run.frame, run.frame, run.firstBin, run.lastBin, 0};
        blob.pixelCount += static_cast<std::uint64_t>(run.lastBin - run.firstBin + 1);
        blob.lastFrame = run.frame;
        blob.lowestBin = std::min(blob.lowestBin, run.firstBin);
        blob.highestBin = std::max(blob.highestBin, run.lastBin);
        sums[place] += run.sum;
        region.runs.push_back({run.frame, run.firstBin, run.lastBin});
    });
    for (std::size_t i = 0; i < found.size(); ++i)
        found[i].blob.score = static_cast<float>(sums[i]);
    return found;
}
