#ifndef SONAVIA_TESTS_SUPPORT_SYNTHETICIMAGE_H
#define SONAVIA_TESTS_SUPPORT_SYNTHETICIMAGE_H

#include "dsp/AmplitudeImage.h"

/// An image like that of a field recording, in quick made-up numbers: white noise
/// that wanders slowly from frame to frame as overlapping frames do, and over it, every few hundred frames, a
/// call that sweeps down, stays on a tone, or both, with a weaker echo behind it. The same seed gives the
/// same image.
AmplitudeImage syntheticImage(int frames, int bins, unsigned seed);

#endif
