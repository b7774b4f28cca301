#ifndef SONAVIA_TOOLS_DEMONIGHT_H
#define SONAVIA_TOOLS_DEMONIGHT_H

#include "tools/DemoRecording.h"

#include <vector>

/// The recordings of one made-up June night in Central Europe, from sunset to sunrise, in order of time: bats
/// of several groups, social calls, rain, crickets, wind and silence. The recorder has analysed most of them,
/// as well as such a device can. Always the same.
std::vector<DemoRecording> demoNight();

#endif
