#ifndef SONAVIA_DSP_FRAMETRANSFORMER_H
#define SONAVIA_DSP_FRAMETRANSFORMER_H

#include "dsp/QRealFourier.h"
#include "dsp/SpectrogramEngine.h"
#include "dsp/SpectrogramKernels.h"

#include <vector>

/// Computes frames of a spectrogram, a tile of neighbouring ones at a time, and writes them to their places
/// in the outputs. One object per thread; objects that write different frames do not disturb each other.
class FrameTransformer
{
public:
    /// Frames per tile: enough for long writes into the matrix, few enough for the cache.
    static constexpr int tileFrames = DecibelTile::mostFrames;

    /// `input` and `window` (the coefficients for its framed samples) outlive the transformer.
    FrameTransformer(const SpectrogramInput& input, const std::vector<double>& window);

    /// What QRealFourier::setSize() says to the window size.
    int sizeAnswer() const { return m_sizeAnswer; }

    /// Transforms the frames first .. first + count - 1, count at most tileFrames. `decibels` (all bins and
    /// frames, see Spectrogram) and `image` may be null.
    void transform(qint64 first, int count, double* decibels, AmplitudeImage* image);

    /// Of all decibels written.
    const DecibelRange& range() const { return m_range; }

private:
    void transformFrame(qint64 frame, float* amplitudes);
    void writeDecibels(qint64 first, int count, double* decibels);

    const SpectrogramInput& m_input;
    const std::vector<double>& m_window;
    const SpectrogramKernels& m_kernels;
    float m_fullScale;
    QRealFourier m_fourier;
    int m_sizeAnswer;
    std::vector<float> m_frame;
    std::vector<float> m_spectrum;
    std::vector<float> m_amplitudes; ///< the tile, one row per frame
    std::size_t m_stride;            ///< floats from frame to frame
    DecibelRange m_range;
};

#endif
