#include "tools/CallSynthesis.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

constexpr double twoPi = 6.28318530717958647692;

/// 1 up to 44 % of the sample rate, 0 from 49 % on.
double antiAliasing(double hz, double sampleRate)
{
    return std::clamp((0.49 - hz / sampleRate) / 0.05, 0.0, 1.0);
}

} // namespace

std::vector<float> synthesiseCall(const CallShape& shape, int sampleRate, double amplitude,
                                  const AirPath& path)
{
    const double rate = sampleRate;
    std::vector<float> samples(static_cast<std::size_t>(std::ceil(shape.duration() * rate)));
    double phase = 0.0; // of the fundamental, in cycles
    for (std::size_t i = 0; i < samples.size(); ++i) {
        const double time = static_cast<double>(i) / rate;
        const double hz = shape.frequencyAt(time);
        double sum = 0.0;
        for (std::size_t h = 0; h < shape.harmonics.size(); ++h) {
            const double order = static_cast<double>(h + 1);
            const double level = shape.harmonics[h] * antiAliasing(order * hz, rate);
            if (level > 0.0) {
                sum += level * path.gain(order * hz) * std::sin(twoPi * order * phase);
            }
        }
        samples[i] = static_cast<float>(amplitude * shape.envelopeAt(time) * sum);
        phase += hz / rate;
        phase -= std::floor(phase);
    }
    return samples;
}
