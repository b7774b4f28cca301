#ifndef SONAVIA_DSP_SPECTROGRAMKERNELSETS_H
#define SONAVIA_DSP_SPECTROGRAMKERNELSETS_H

#include "dsp/SpectrogramKernels.h"

// One file each, built for its instruction set; the last two exist on x86-64 only.
extern const SpectrogramKernels portableSpectrogramKernels;
extern const SpectrogramKernels sse2SpectrogramKernels;
extern const SpectrogramKernels avx2SpectrogramKernels;

#endif
