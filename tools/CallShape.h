#ifndef SONAVIA_TOOLS_CALLSHAPE_H
#define SONAVIA_TOOLS_CALLSHAPE_H

#include <vector>

/// How one bat call sounds 1 m ahead of the bat: the course of its frequency and of its loudness.
struct CallShape
{
    /// A piece of the frequency course. With curvature 0 the frequency moves evenly, with a positive one fast
    /// at first and levelling out, as the steep beginning and the flat end of a pipistrelle's call.
    struct Sweep
    {
        double duration; ///< s
        double fromHz;
        double toHz;
        double curvature = 0.0;
    };

    std::vector<Sweep> sweeps;             ///< one after the other
    std::vector<double> harmonics = {1.0}; ///< amplitudes of 1, 2, 3... times the frequency
    double attack = 0.2;                   ///< share of the duration in which the call swells
    double release = 0.15;                 ///< share of the duration in which it fades
    double tilt = 0.0;                     ///< dB by which the end is louder than the beginning

    /// Length in seconds.
    double duration() const;

    /// Frequency in Hz at `time` s after the beginning.
    double frequencyAt(double time) const;

    /// Loudness (1 at most) at `time` s after the beginning; 0 outside the call.
    double envelopeAt(double time) const;

    /// The same course at another pace and pitch.
    CallShape scaled(double durationFactor, double frequencyFactor) const;
};

#endif
