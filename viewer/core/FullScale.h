#ifndef SONAVIA_VIEWER_CORE_FULLSCALE_H
#define SONAVIA_VIEWER_CORE_FULLSCALE_H

#include <algorithm>
#include <cmath>

/// The largest positive sample value of signed integer samples with this many bits: 32767 for 16. Amplitudes
/// are shown and played relative to it. Never below 1, so that it can be divided by.
inline double fullScale(int bitsPerSample)
{
    return std::max(std::ldexp(1.0, std::clamp(bitsPerSample, 1, 64) - 1) - 1.0, 1.0);
}

#endif
