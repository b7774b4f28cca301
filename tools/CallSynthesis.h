#ifndef SONAVIA_TOOLS_CALLSYNTHESIS_H
#define SONAVIA_TOOLS_CALLSYNTHESIS_H

#include "tools/AirPath.h"
#include "tools/CallShape.h"

#include <vector>

/// The samples of a call at the end of `path`, full scale 1, at `sampleRate` Hz; `amplitude` is that of its
/// loudest moment 1 m ahead of the bat. Every harmonic is weakened by the air at its own frequency, and what
/// comes near half the sample rate is faded out, so nothing folds back.
std::vector<float> synthesiseCall(const CallShape& shape, int sampleRate, double amplitude,
                                  const AirPath& path);

#endif
