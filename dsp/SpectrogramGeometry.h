#ifndef SONAVIA_DSP_SPECTROGRAMGEOMETRY_H
#define SONAVIA_DSP_SPECTROGRAMGEOMETRY_H

#include <QtGlobal>

/// Where the frames of a spectrogram lie in the samples, and the size of its matrix. Lengths are in samples.
///
/// Frame k transforms `framed` samples from index k x hop + offset on (the middle of the window's span),
/// followed by zeros up to the window size. Never reaches beyond the samples: a recording shorter than the
/// window has no frames.
struct SpectrogramGeometry
{
    int windowSize = 0;
    int framed = 0;
    int overlapSamples = 0;
    int hop = 0;
    int offset = 0;
    int bins = 0; ///< frequencies of the matrix; bin i stands for i x sample rate / window size
    qint64 frames = 0;

    qint64 cells() const { return frames * bins; }

    /// For `frameSize` and `overlap` in percent. Numbers that make no sense give a geometry without frames.
    static SpectrogramGeometry of(qint64 sampleCount, int windowSize, float frameSize, double overlap);

    /// The same with the overlap evaluated in single precision, which can be a sample less.
    static SpectrogramGeometry ofSingle(qint64 sampleCount, int windowSize, float frameSize, float overlap);
};

/// The samples that neighbouring windows share, rounded down, for an overlap in percent. 0 where that makes
/// no sense.
int overlapSamples(int windowSize, double overlap);
int overlapSamplesSingle(int windowSize, float overlap);

#endif
