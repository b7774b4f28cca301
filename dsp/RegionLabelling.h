#ifndef SONAVIA_DSP_REGIONLABELLING_H
#define SONAVIA_DSP_REGIONLABELLING_H

#include "dsp/Blob.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

/// Finds the connected regions (8 neighbours) of the non-zero cells of an image that is handed over row by
/// row, each row once. Labels are 1, 2, … in scan order (row, then bin) of each region's first cell.
///
/// Works on runs of neighbouring cells, joined by union-find with the smallest label as the root (Rosenfeld
/// and Pfaltz, J. ACM 13, 1966). Memory grows with the number of runs, 24 bytes each, not with the image;
/// images of up to 2^32 cells.
class RegionLabelling
{
public:
    /// Neighbouring cells of one row that belong to one region; bins inclusive.
    struct Run
    {
        int frame;
        int firstBin;
        int lastBin;
    };

    struct Region
    {
        int label = 0;
        Blob blob;
        std::vector<Run> runs; ///< in scan order
    };

    /// The next row: its values by bin, and the bit set of those that count as non-zero (bit i % 64 of word
    /// i / 64 stands for bin i), `words` words long and 0 beyond the last bin.
    void addRow(const float* row, const std::uint64_t* nonZero, std::size_t words);

    /// Ends the image; no more rows. The scores of the regions, label 1 first. A score adds up the values of
    /// each run in double, then these sums in scan order, and is rounded to single precision at the end.
    std::vector<float> finish();

    /// The regions of these labels (ascending, each once), after finish().
    std::vector<Region> regions(const std::vector<int>& labels) const;

private:
    struct StoredRun
    {
        double sum;
        int frame;
        int firstBin;
        int lastBin;
        std::uint32_t label; ///< the label given at first sight; m_labels says what became of it
    };
    struct RecentRun
    {
        int firstBin;
        int lastBin;
        std::uint32_t label;
    };

    void addRun(const float* row, int firstBin, int lastBin, std::size_t& above);
    std::uint32_t root(std::uint32_t label);
    void store(const StoredRun& run);
    template <class Visit>
    void forEachRun(Visit visit) const;

    int m_frame = 0;
    int m_regionCount = 0;
    std::vector<RecentRun> m_above; ///< of the row before
    std::vector<RecentRun> m_here;
    std::vector<std::uint32_t> m_labels; ///< parent of each first label; after finish() the final label
    std::vector<std::unique_ptr<StoredRun[]>> m_chunks;
    std::size_t m_runCount = 0;
};

#endif
