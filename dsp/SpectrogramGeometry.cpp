#include "dsp/SpectrogramGeometry.h"

namespace {

/// `percent` of `length`, rounded down; 0 unless that lies between 0 and `length`. The order of the
/// operations decides whether 87.5 percent of 512 are 448 or, in single precision, 447.
template <typename Real>
int share(int length, Real percent)
{
    const Real samples = static_cast<Real>(length) / (Real{100} / percent);
    return samples > 0 && samples <= static_cast<Real>(length) ? static_cast<int>(samples) : 0;
}

SpectrogramGeometry geometry(qint64 sampleCount, int windowSize, float frameSize, int overlapSamples)
{
    SpectrogramGeometry result;
    if (windowSize < 1)
        return result;
    result.windowSize = windowSize;
    result.framed = share(windowSize, frameSize);
    result.overlapSamples = overlapSamples;
    result.hop = windowSize - overlapSamples;
    result.offset = (windowSize - result.framed) / 2;
    result.bins = windowSize > 2 ? windowSize / 2 - 1 : 0;
    // Integer division would make one frame of a recording that is a little too short.
    if (result.hop > 0 && sampleCount >= windowSize)
        result.frames = (sampleCount - windowSize) / result.hop + 1;
    return result;
}

} // namespace

int overlapSamples(int windowSize, double overlap)
{
    return share(windowSize, overlap);
}

int overlapSamplesSingle(int windowSize, float overlap)
{
    return share(windowSize, overlap);
}

SpectrogramGeometry SpectrogramGeometry::of(qint64 sampleCount, int windowSize, float frameSize,
                                            double overlap)
{
    return geometry(sampleCount, windowSize, frameSize, share(windowSize, overlap));
}

SpectrogramGeometry SpectrogramGeometry::ofSingle(qint64 sampleCount, int windowSize, float frameSize,
                                                  float overlap)
{
    return geometry(sampleCount, windowSize, frameSize, share(windowSize, overlap));
}
