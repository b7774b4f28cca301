#include "tools/CallShape.h"

#include <cmath>

namespace {

constexpr double halfPi = 1.57079632679489661923;

/// The part of the way from the first to the last frequency that is still left at the share `part` of a
/// sweep.
double remainingWay(double part, double curvature)
{
    if (std::abs(curvature) < 1e-6) {
        return 1.0 - part;
    }
    const double end = std::exp(-curvature);
    return (std::exp(-curvature * part) - end) / (1.0 - end);
}

} // namespace

double CallShape::duration() const
{
    double sum = 0.0;
    for (const Sweep& sweep : sweeps) {
        sum += sweep.duration;
    }
    return sum;
}

double CallShape::frequencyAt(double time) const
{
    double begin = 0.0;
    for (const Sweep& sweep : sweeps) {
        if (time < begin + sweep.duration) {
            const double part = (time - begin) / sweep.duration;
            return sweep.toHz + (sweep.fromHz - sweep.toHz) * remainingWay(part, sweep.curvature);
        }
        begin += sweep.duration;
    }
    return sweeps.empty() ? 0.0 : sweeps.back().toHz;
}

double CallShape::envelopeAt(double time) const
{
    const double part = time / duration();
    if (!(part > 0.0 && part < 1.0)) {
        return 0.0;
    }
    double level = 1.0;
    if (part < attack) {
        level *= std::sin(halfPi * part / attack);
    }
    if (1.0 - part < release) {
        level *= std::sin(halfPi * (1.0 - part) / release);
    }
    return level * level * std::pow(10.0, (tilt > 0.0 ? tilt * (part - 1.0) : tilt * part) / 20.0);
}

CallShape CallShape::scaled(double durationFactor, double frequencyFactor) const
{
    CallShape shape = *this;
    for (Sweep& sweep : shape.sweeps) {
        sweep.duration *= durationFactor;
        sweep.fromHz *= frequencyFactor;
        sweep.toHz *= frequencyFactor;
    }
    return shape;
}
