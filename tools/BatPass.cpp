#include "tools/BatPass.h"

#include "tools/AirPath.h"
#include "tools/RandomSource.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace {

/// What hunting makes of the voice at one moment; factors on the calls of the search flight.
struct Pace
{
    double interval; ///< s
    double duration = 1.0;
    double frequency = 1.0;
    double amplitude = 1.0;
};

constexpr double approach = 0.6;    // s before the buzz in which calls become shorter and faster
constexpr double firstBuzz = 0.14;  // s with 100 calls a second and more, then
constexpr double secondBuzz = 0.08; // s with 180 and falling pitch
constexpr double mouthFull = 0.17;  // s of silence

Pace paceAt(double time, const Voice& voice, double buzzAt)
{
    const double since = time - buzzAt;
    if (!(since >= -approach) || since >= firstBuzz + secondBuzz) {
        return {voice.interval};
    }
    if (since < 0.0) {
        const double left = -since / approach;
        return {0.012 + (voice.interval - 0.012) * left, 0.35 + 0.65 * left, 1.0 + 0.08 * (1.0 - left)};
    }
    if (since < firstBuzz) {
        return {0.0095 - 0.003 * since / firstBuzz, 0.25, 1.06 - 0.1 * since / firstBuzz, 0.6};
    }
    const bool last = since + 0.0055 >= firstBuzz + secondBuzz;
    const double progress = (since - firstBuzz) / secondBuzz;
    return {last ? mouthFull : 0.0055, 0.16, 0.85 - 0.28 * progress, 0.45};
}

/// Where the bat is at `time`, seen from the microphone.
struct Position
{
    double distance;
    double cosOffAxis;
};

Position positionAt(double time, const BatPass& pass)
{
    const double ahead = pass.speed * (pass.passTime - time); // m to fly until it is nearest
    const double distance = std::hypot(pass.closest, ahead);
    return {distance, distance > 0.0 ? ahead / distance : 0.0};
}

} // namespace

std::vector<ArrivingCall> callsOfPass(const Voice& voice, const BatPass& pass, double length,
                                      RandomSource& random)
{
    std::vector<ArrivingCall> calls;
    std::size_t turn = 0;
    const double end = std::min(pass.until, length);
    double time = std::max(pass.from, 0.0) + pass.firstCall * voice.interval;
    while (time < end) {
        const Pace pace = paceAt(time, voice, pass.buzzAt);
        const Position position = positionAt(time, pass);
        const double doppler = 1.0 + pass.speed * position.cosOffAxis / AirPath::soundSpeed;
        // One draw a statement: compilers differ in the order in which they evaluate arguments.
        const double stretch = pace.duration * random.around(0.06);
        const double pitch = pace.frequency * doppler * random.around(voice.frequencySpread);
        const double amplitude = voice.amplitude * pace.amplitude * random.around(0.2);
        calls.push_back({time + position.distance / AirPath::soundSpeed,
                         voice.calls[turn % voice.calls.size()].scaled(stretch, pitch), amplitude,
                         position.distance, position.cosOffAxis});
        time += pace.interval * random.around(voice.intervalSpread);
        ++turn;
        if (turn % voice.calls.size() == 0) {
            time += voice.roundPause;
        }
    }
    return calls;
}
