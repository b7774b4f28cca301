#ifndef SONAVIA_TOOLS_BATPASS_H
#define SONAVIA_TOOLS_BATPASS_H

#include "tools/CallShape.h"
#include "tools/Voice.h"

#include <limits>
#include <vector>

class RandomSource;

/// A bat that flies straight past the microphone, calling.
struct BatPass
{
    static constexpr double never = std::numeric_limits<double>::infinity();

    double passTime = 0.0;  ///< s in the recording at which it is nearest
    double closest = 5.0;   ///< m to the microphone then
    double speed = 6.0;     ///< m/s
    double from = -never;   ///< s, calls only after this
    double until = never;   ///< s, and before this
    double buzzAt = never;  ///< s at which it is on its prey: an approach before it and a feeding buzz
    double firstCall = 0.0; ///< share of an interval by which the first call comes later
};

/// One call of a pass as it arrives at the microphone.
struct ArrivingCall
{
    double time;       ///< s in the recording at which its beginning arrives
    CallShape shape;   ///< with the Doppler shift of the bat's flight
    double amplitude;  ///< full scale 1, 1 m ahead of the bat
    double distance;   ///< m
    double cosOffAxis; ///< see AirPath
};

/// The calls of `pass` that are sent between 0 and `length` s, in the order in which they are sent.
std::vector<ArrivingCall> callsOfPass(const Voice& voice, const BatPass& pass, double length,
                                      RandomSource& random);

#endif
