#include "viewer/core/SampleRange.h"

#include <cmath>

namespace {

std::size_t sampleAt(double seconds, int sampleRate, std::size_t sampleCount)
{
    // A time made from an index must lead back to it, although its double may lie a hair below.
    const double index = std::floor(seconds * sampleRate + 1e-6);
    if (!(index > 0))
        return 0;
    return index < static_cast<double>(sampleCount) ? static_cast<std::size_t>(index) : sampleCount;
}

} // namespace

SampleRange SampleRange::between(double startSeconds, double endSeconds, int sampleRate,
                                 std::size_t sampleCount)
{
    return {sampleAt(startSeconds, sampleRate, sampleCount), sampleAt(endSeconds, sampleRate, sampleCount)};
}
