#ifndef SONAVIA_DSP_FOURIERKERNELSETS_H
#define SONAVIA_DSP_FOURIERKERNELSETS_H

#include "dsp/FourierKernel.h"

// The kernels of each instruction set, for the choice in FourierKernel.cpp. Those of a set that the processor
// lacks must not be called.

/// For exponents 3 to 5, which are too small for vectors: one code for all sets.
FourierKernel fourierKernelSmall(int exponent);

// For exponents 6 to 14. Those for x86-64 exist there only.
FourierKernel fourierKernelPortable(int exponent);
FourierKernel fourierKernelSse2(int exponent);
FourierKernel fourierKernelAvx2(int exponent);

#endif
