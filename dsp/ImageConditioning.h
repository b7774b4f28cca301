#ifndef SONAVIA_DSP_IMAGECONDITIONING_H
#define SONAVIA_DSP_IMAGECONDITIONING_H

#include <cstddef>
#include <cstdint>
#include <vector>

struct ConditioningRows;

/// Leaves of an amplitude image what may be a call, row after row (a row is a frame, x its values by bin):
///   1. smoothing over bins: t[j-1] + 2 t[j] + t[j+1], not divided, the first and last bin as they are;
///   2. background: x - 1.5 m or 0, m the mean of the bins below (0 for the first bin), kept as
///      m += (x - m) / n (Welford, Technometrics 4, 1962);
///   3. echoes: with a peak per bin, p = max(x, 0.9 p + 0.1 x), whatever lies under p / 2 becomes 0;
///   4. three bins at either end of the row and all bins under 8 kHz become 0.
/// All in single precision with a true division and no fused operations, so that every instruction set gives
/// the same bits. The image is touched once; the work per block of rows stays in the cache.
class ImageConditioning
{
public:
    /// The most rows to hand over at once; best speed with full blocks.
    static constexpr int mostRows = 32;

    /// bins >= 0; sampleRate in Hz, where a rate under 2 kHz leaves no bin.
    ImageConditioning(int bins, int sampleRate);
    ImageConditioning(const ImageConditioning&) = delete;
    ImageConditioning& operator=(const ImageConditioning&) = delete;

    /// The bins [firstBin(), endBin()) are kept, all others become 0. Equal where none is kept.
    int firstBin() const { return m_firstBin; }
    int endBin() const { return m_endBin; }

    /// 64-bit words of a bit set over the bins of a row; bit i % 64 of word i / 64 stands for bin i.
    std::size_t words() const { return m_keptBits.size(); }

    /// Conditions the next `rowCount` rows (each `bins` values, one after the other) in place and writes for
    /// each of them the bit set of bins that are not 0. Rows have to come in the order of time.
    void condition(float* rows, int rowCount, std::uint64_t* nonZero);

private:
    int m_bins;
    int m_firstBin;
    int m_endBin;
    std::vector<std::uint64_t> m_keptBits;
    std::vector<float> m_scratch;
    float* m_peaks = nullptr; // in m_scratch
    float* m_lanes = nullptr;
    float* m_padded = nullptr;
    void (*m_kernel)(const ConditioningRows&);
};

#endif
