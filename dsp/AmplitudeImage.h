#ifndef SONAVIA_DSP_AMPLITUDEIMAGE_H
#define SONAVIA_DSP_AMPLITUDEIMAGE_H

#include <cstddef>
#include <cstdlib>
#include <memory>

/// Linear amplitudes (1.0 is full scale) of a spectrogram, time-major: one row per frame, `bins` values per
/// row, index frame x bins + bin. A plain block of memory that starts uninitialised: who makes an image fills
/// every cell before reading any. Movable, not copyable.
class AmplitudeImage
{
public:
    AmplitudeImage() = default;

    /// An image of the given size (not negative). Where memory does not suffice, isNull() is true while
    /// frames() x bins() is not 0: check before use.
    AmplitudeImage(int frames, int bins);

    int frames() const { return m_frames; }
    int bins() const { return m_bins; }
    std::size_t cells() const
    {
        return static_cast<std::size_t>(m_frames) * static_cast<std::size_t>(m_bins);
    }
    bool isNull() const { return !m_cells; }

    float* row(int frame) { return m_cells.get() + offset(frame); }
    const float* row(int frame) const { return m_cells.get() + offset(frame); }

private:
    struct Release
    {
        void operator()(float* cells) const { std::free(cells); }
    };
    std::size_t offset(int frame) const
    {
        return static_cast<std::size_t>(frame) * static_cast<std::size_t>(m_bins);
    }

    int m_frames = 0;
    int m_bins = 0;
    std::unique_ptr<float, Release> m_cells;
};

#endif
