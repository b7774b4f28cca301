#ifndef SONAVIA_DSP_CONDITIONINGKERNEL_H
#define SONAVIA_DSP_CONDITIONINGKERNEL_H

#include "dsp/ConditioningRows.h"

#include <cstring>

#ifdef _MSC_VER // older versions fuse under /arch:AVX2
#pragma fp_contract(off)
#endif

// The conditioning of rows as templates over a vector type. Everything has internal linkage: each file that
// includes this is compiled for another processor, and the linker must not mix their code. For the same
// reason no function of the standard library is used that might be emitted out of line.
namespace {

/// The plainest vector type, and what a vector type has to offer. All operations are the IEEE ones.
struct OneLane
{
    static constexpr int width = 1;
    float v;

    static OneLane load(const float* from) { return {*from}; }
    static OneLane all(float value) { return {value}; }
    void store(float* to) const { *to = v; }
    OneLane operator+(OneLane b) const { return {v + b.v}; }
    OneLane operator-(OneLane b) const { return {v - b.v}; }
    OneLane operator*(OneLane b) const { return {v * b.v}; }
    OneLane operator/(OneLane b) const { return {v / b.v}; }
    OneLane absolute() const { return {v < 0 ? -v : v}; }
    /// `a` where a > b, else `b`: what is not a number does not stay.
    static OneLane larger(OneLane a, OneLane b) { return {a.v > b.v ? a.v : b.v}; }
    /// This, but 0 in the lanes where a < b.
    OneLane clearedWhereLess(OneLane a, OneLane b) const { return {a.v < b.v ? 0.0F : v}; }
    /// One bit per lane, the first lane lowest.
    unsigned positiveBits() const { return v > 0 ? 1 : 0; }
    static void transpose(OneLane (&)[width]) {}
};

/// Smooths over neighbouring bins and subtracts 1.5 times the mean of the bins below. The mean runs over the
/// bins of a row, one division waiting for the other, so each lane holds a row, and four vectors of rows are
/// on their way at once.
template <class V>
struct BackgroundRemoval
{
    static constexpr int chains = 4;
    static constexpr int rowCount = chains * V::width;

    static void run(float* rows, const ConditioningRows& block)
    {
        const int lastTile = block.bins - V::width;
        for (int bin = 0; bin < block.bins; bin += V::width)
            toLanes(rows, block, bin < lastTile ? bin : lastTile);
        alongBins(block);
        for (int bin = block.firstBin; bin < block.endBin; bin += V::width)
            fromLanes(rows, block, bin < lastTile ? bin : lastTile);
    }

private:
    static void toLanes(const float* rows, const ConditioningRows& block, int bin)
    {
        for (int chain = 0; chain < chains; ++chain) {
            V tile[V::width];
            for (int i = 0; i < V::width; ++i)
                tile[i] = V::load(rows + std::size_t(chain * V::width + i) * block.bins + bin);
            V::transpose(tile);
            for (int i = 0; i < V::width; ++i)
                tile[i].store(block.lanes + std::size_t(bin + i) * rowCount + chain * V::width);
        }
    }

    static void fromLanes(float* rows, const ConditioningRows& block, int bin)
    {
        for (int chain = 0; chain < chains; ++chain) {
            V tile[V::width];
            for (int i = 0; i < V::width; ++i)
                tile[i] = V::load(block.lanes + std::size_t(bin + i) * rowCount + chain * V::width);
            V::transpose(tile);
            for (int i = 0; i < V::width; ++i)
                tile[i].store(rows + std::size_t(chain * V::width + i) * block.bins + bin);
        }
    }

    static void alongBins(const ConditioningRows& block)
    {
        V below[chains];
        V here[chains];
        V mean[chains];
        for (int chain = 0; chain < chains; ++chain) {
            // The first bin is not smoothed: it is the first mean, and never kept.
            here[chain] = V::load(block.lanes + chain * V::width);
            mean[chain] = here[chain];
            below[chain] = here[chain];
            here[chain] = V::load(block.lanes + rowCount + chain * V::width);
        }
        for (int bin = 1; bin < block.endBin; ++bin) {
            const V count = V::all(static_cast<float>(bin + 1));
            float* lanes = block.lanes + std::size_t(bin) * rowCount;
            for (int chain = 0; chain < chains; ++chain) {
                const V above = V::load(lanes + rowCount + chain * V::width);
                const V smooth = below[chain] + V::all(2.0F) * here[chain] + above;
                const V rest = smooth - V::all(1.5F) * mean[chain];
                ((rest.absolute() + rest) * V::all(0.5F)).store(lanes + chain * V::width);
                mean[chain] = mean[chain] + (smooth - mean[chain]) / count;
                below[chain] = here[chain];
                here[chain] = above;
            }
        }
    }
};

/// Follows the peak of each bin over time and clears what lies under half of it; then clears the bins that
/// are not kept and notes which are not 0.
template <class V>
struct EchoSuppression
{
    /// Far below what any recording holds: an amplitude either is 0 or makes a new peak over such a one.
    static constexpr float faintestPeak = 1e-30F;

    static void run(float* row, const ConditioningRows& block, std::uint64_t* nonZero)
    {
        for (std::size_t word = 0; word < block.words; ++word)
            nonZero[word] = 0;
        // Whole vectors, the last of which ends with the row; what remains at the low end goes one by one.
        const int wanted = (block.bins - block.firstBin + V::width - 1) / V::width;
        const int fitting = block.bins / V::width;
        const int start = block.bins - (wanted < fitting ? wanted : fitting) * V::width;
        // Peaks lie so that these vectors are aligned: split ones could not be read back at once.
        float* const peaks = block.peaks + V::width - start % V::width;
        for (int bin = block.firstBin; bin < start; ++bin)
            setBits(nonZero, bin, suppress<OneLane>(row + bin, peaks + bin));
        for (int bin = start; bin < block.bins;) {
            std::uint64_t bits = 0;
            const int from = bin;
            for (; bin < block.bins && bin - from < 64; bin += V::width)
                bits |= std::uint64_t{suppress<V>(row + bin, peaks + bin)} << (bin - from);
            setBits(nonZero, from, bits);
        }
        std::memset(row, 0, block.firstBin * sizeof(float));
        std::memset(row + block.endBin, 0, (block.bins - block.endBin) * sizeof(float));
        for (std::size_t word = 0; word < block.words; ++word)
            nonZero[word] &= block.keptBits[word];
    }

private:
    template <class U>
    static unsigned suppress(float* row, float* peaks)
    {
        constexpr float decay = 0.9F;
        const U x = U::load(row);
        const U peak = U::larger(U::all(decay) * U::load(peaks) + U::all(1.0F - decay) * x, x);
        // A bin that stays silent would end in subnormal numbers, which are many times slower.
        peak.clearedWhereLess(peak, U::all(faintestPeak)).store(peaks);
        const U rest = x.clearedWhereLess(x + x, peak);
        rest.store(row);
        return rest.positiveBits();
    }

    static void setBits(std::uint64_t* words, int first, std::uint64_t bits)
    {
        words[first / 64] |= bits << (first % 64);
        // Never past the last word: there are no bits beyond the last bin.
        if (first % 64 != 0 && (bits >> (64 - first % 64)) != 0)
            words[first / 64 + 1] |= bits >> (64 - first % 64);
    }
};

template <class V>
void removeBackground(const ConditioningRows& block)
{
    constexpr int step = BackgroundRemoval<V>::rowCount;
    static_assert(step <= ConditioningRows::most, "the scratch memory holds one step");
    int row = 0;
    for (; row + step <= block.rowCount; row += step)
        BackgroundRemoval<V>::run(block.rows + std::size_t(row) * block.bins, block);
    if (row == block.rowCount)
        return;
    float* rest = block.rows + std::size_t(row) * block.bins;
    const std::size_t bytes = std::size_t(block.rowCount - row) * block.bins * sizeof(float);
    std::memset(block.padded, 0, std::size_t(step) * block.bins * sizeof(float));
    std::memcpy(block.padded, rest, bytes);
    BackgroundRemoval<V>::run(block.padded, block);
    std::memcpy(rest, block.padded, bytes);
}

template <class V>
void conditionWith(const ConditioningRows& block)
{
    if (block.bins < V::width)
        removeBackground<OneLane>(block);
    else
        removeBackground<V>(block);
    for (int row = 0; row < block.rowCount; ++row) {
        EchoSuppression<V>::run(block.rows + std::size_t(row) * block.bins, block,
                                block.nonZero + std::size_t(row) * block.words);
    }
}

} // namespace

#endif
