#include "viewer/core/AxisLimits.h"

AxisLimits AxisLimits::frequency(bool fixed, double storedLower, double storedUpper, int nyquist)
{
    const double top = nyquist;
    if (!fixed)
        return {0.0, top};
    return {storedLower <= top ? storedLower : top - 1.0, storedUpper <= top ? storedUpper : top};
}

AxisLimits AxisLimits::amplitude(bool fixed, const AxisLimits& stored, const AxisLimits& result)
{
    return fixed ? stored : result;
}
