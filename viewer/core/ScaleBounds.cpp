#include "viewer/core/ScaleBounds.h"

#include <QtGlobal>

#include <algorithm>

namespace {

/// Compares before it converts: the store may hold any number, also one that no int can take.
int roundedWithin(double value, int minimum, int maximum)
{
    if (!(value > minimum))
        return minimum;
    return value < maximum ? qRound(value) : maximum;
}

} // namespace

namespace ScaleBounds {

int highestFrequency(int sampleRate)
{
    return sampleRate > 0 ? std::max(1, sampleRate / 2000) : 150;
}

ScaleLimits shown(double lower, double upper, int minimum, int maximum)
{
    const int top = roundedWithin(upper, minimum + 1, maximum);
    return {roundedWithin(lower, minimum, top - 1), top};
}

} // namespace ScaleBounds
