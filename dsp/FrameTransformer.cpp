#include "dsp/FrameTransformer.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace {

/// Rows of the tile have room for whole groups of eight bins, and a line more: a stride that is a power of
/// two would map the rows of a tile to the same few lines of the cache.
std::size_t paddedStride(int windowSize)
{
    constexpr int cacheLine = 16;
    return static_cast<std::size_t>(windowSize / 2 + 7) / 8 * 8 + cacheLine;
}

float fullScaleOf(int bitsPerSample)
{
    const int bits = std::clamp(bitsPerSample, 2, 32);
    return static_cast<float>(std::ldexp(1.0, bits) * 0.5 - 1.0);
}

} // namespace

FrameTransformer::FrameTransformer(const SpectrogramInput& input, const std::vector<double>& window)
    : m_input(input),
      m_window(window),
      m_kernels(spectrogramKernels(activeInstructionSet())),
      m_fullScale(fullScaleOf(input.bitsPerSample)),
      m_sizeAnswer(m_fourier.setSize(input.geometry.windowSize)),
      m_frame(input.geometry.windowSize),
      m_spectrum(input.geometry.windowSize + 8),
      m_amplitudes(tileFrames * paddedStride(input.geometry.windowSize)),
      m_stride(paddedStride(input.geometry.windowSize))
{
    m_fourier.setWindowFunction(QStringLiteral("Rectangular"));
}

void FrameTransformer::transform(qint64 first, int count, double* decibels, AmplitudeImage* image)
{
    const auto bins = static_cast<std::size_t>(m_input.geometry.bins);
    for (int i = 0; i < count; ++i) {
        float* amplitudes = m_amplitudes.data() + i * m_stride;
        transformFrame(first + i, amplitudes);
        if (image)
            std::memcpy(image->row(static_cast<int>(first) + i), amplitudes, bins * sizeof(float));
    }
    if (decibels)
        writeDecibels(first, count, decibels);
}

void FrameTransformer::transformFrame(qint64 frame, float* amplitudes)
{
    const SpectrogramGeometry& geometry = m_input.geometry;
    const int* samples = m_input.samples + frame * geometry.hop + geometry.offset;
    m_kernels.applyWindow(samples, m_window.data(), geometry.framed, m_frame.data());
    // What follows the framed samples is 0 from the start: transforms leave their input as it is.
    m_fourier.forward(m_frame.data(), m_spectrum.data());
    m_kernels.amplitudes(m_spectrum.data(), geometry.windowSize, m_fullScale, amplitudes);
}

void FrameTransformer::writeDecibels(qint64 first, int count, double* decibels)
{
    DecibelTile tile;
    tile.amplitudes = m_amplitudes.data();
    tile.amplitudeStride = m_stride;
    tile.frames = count;
    tile.bins = m_input.geometry.bins;
    tile.decibels = decibels + first;
    tile.decibelStride = static_cast<std::size_t>(m_input.geometry.frames);
    m_kernels.decibels(tile, m_range);
}
