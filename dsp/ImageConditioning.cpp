#include "dsp/ImageConditioning.h"

#include "dsp/ConditioningRows.h"
#include "dsp/InstructionSet.h"

#include <algorithm>
#include <memory>

namespace {

constexpr int edgeBins = 3;
constexpr int lowestKiloHertz = 8;

int firstKeptBin(int bins, int sampleRate)
{
    const int nyquist = sampleRate / 2000; // kHz, integer
    if (nyquist <= 0)
        return bins;
    const std::int64_t cut = std::int64_t{bins} * lowestKiloHertz / nyquist;
    return static_cast<int>(std::min<std::int64_t>(std::max<std::int64_t>(cut, edgeBins), bins));
}

auto activeKernel()
{
    switch (activeInstructionSet()) {
    case InstructionSet::Avx2:
        return conditionAvx2;
    case InstructionSet::Sse2:
        return conditionSse2;
    case InstructionSet::Portable:
        break;
    }
    return conditionPortable;
}

} // namespace

ImageConditioning::ImageConditioning(int bins, int sampleRate)
    : m_bins(bins),
      m_firstBin(firstKeptBin(bins, sampleRate)),
      m_endBin(std::max(m_firstBin, bins - edgeBins)),
      m_keptBits((static_cast<std::size_t>(bins) + 63) / 64),
      m_kernel(activeKernel())
{
    static_assert(mostRows == ConditioningRows::most, "one block is handed on as it is");
    if (m_firstBin == m_endBin)
        return;
    for (int bin = m_firstBin; bin < m_endBin; ++bin)
        m_keptBits[bin / 64] |= std::uint64_t{1} << (bin % 64);
    const std::size_t rowSize = static_cast<std::size_t>(bins);
    constexpr std::size_t lane = ConditioningRows::widest;
    m_scratch.resize(2 * rowSize * mostRows + rowSize + 3 * lane);
    void* aligned = m_scratch.data();
    std::size_t space = m_scratch.size() * sizeof(float);
    m_lanes = static_cast<float*>(std::align(lane * sizeof(float), rowSize, aligned, space));
    m_padded = m_lanes + rowSize * mostRows;
    m_peaks = m_padded + rowSize * mostRows;
}

void ImageConditioning::condition(float* rows, int rowCount, std::uint64_t* nonZero)
{
    if (m_firstBin == m_endBin) {
        std::fill_n(rows, static_cast<std::size_t>(rowCount) * static_cast<std::size_t>(m_bins), 0.0F);
        std::fill_n(nonZero, static_cast<std::size_t>(rowCount) * words(), 0);
        return;
    }
    m_kernel({rows, rowCount, m_bins, m_firstBin, m_endBin, m_lanes, m_padded, m_peaks, m_keptBits.data(),
              nonZero, words()});
}
