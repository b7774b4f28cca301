#ifndef SONAVIA_DSP_CONDITIONINGROWS_H
#define SONAVIA_DSP_CONDITIONINGROWS_H

#include <cstddef>
#include <cstdint>

/// Consecutive rows of an image and all that a kernel needs to condition them; what it means is told in
/// ImageConditioning, which owns the scratch memory.
struct ConditioningRows
{
    /// The most rows that a kernel takes at once.
    static constexpr int most = 32;
    /// The most values that a kernel treats at once; "aligned" memory starts at a multiple of their size.
    static constexpr int widest = 8;

    float* rows; ///< rowCount x bins
    int rowCount;
    int bins;
    int firstBin;  ///< the bins [firstBin, endBin) are kept, with
    int endBin;    ///< 3 <= firstBin < endBin <= bins - 3
    float* lanes;  ///< scratch, bins x most, aligned
    float* padded; ///< scratch, most x bins
    float* peaks;  ///< echo level per bin, carried from row to row, in bins + widest values, aligned
    const std::uint64_t* keptBits; ///< bit set of the kept bins
    std::uint64_t* nonZero;        ///< out: a bit set of the bins that are not 0 for each row
    std::size_t words;             ///< words of a bit set
};

// The same computation for each instruction set, with the same bits.
void conditionPortable(const ConditioningRows& block);
void conditionSse2(const ConditioningRows& block);
void conditionAvx2(const ConditioningRows& block);

#endif
