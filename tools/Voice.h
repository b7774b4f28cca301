#ifndef SONAVIA_TOOLS_VOICE_H
#define SONAVIA_TOOLS_VOICE_H

#include "tools/CallShape.h"

#include <vector>

/// How the bats of one species group call while they search for prey. The values are those usual in
/// the field guides for calls in half-open surroundings.
struct Voice
{
    std::vector<CallShape> calls;  ///< used in turn: some bats alternate between two call types
    double interval = 0.1;         ///< s from the beginning of one call to that of the next
    double intervalSpread = 0.1;   ///< relative
    double roundPause = 0.0;       ///< s of silence more after each round through `calls`
    double frequencySpread = 0.01; ///< relative, from call to call
    double amplitude = 1.0;        ///< full scale 1, at 1 m

    /// Pipistrelles: a steep beginning that levels out at `endHz` (39, 45 or 55 kHz); the deeper, the longer.
    static Voice pipistrelle(double endHz);
    static Voice noctule();              ///< nearly constant, in turn 19 and 24 kHz
    static Voice leislersBat();          ///< as the noctule, higher and shorter, in turn 23 and 27 kHz
    static Voice serotine();             ///< a curved sweep from 55 to 26 kHz, with a strong second harmonic
    static Voice northernBat();          ///< a short hook and a long flat end at 29 kHz
    static Voice myotis();               ///< steep and nearly straight from 105 to 28 kHz
    static Voice barbastelle();          ///< in turn two kinds of short calls at 33 and 43 kHz
    static Voice longEaredBat();         ///< very quiet, two harmonics
    static Voice horseshoe(double cfHz); ///< a long constant tone (82 or 110 kHz) with short tails

    static Voice pipistrelleSocial(); ///< groups of four deep sweeps, a few times a second
    static Voice noctuleSong();       ///< long slow sweeps down to 12 kHz
};

#endif
