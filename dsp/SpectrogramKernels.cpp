#include "dsp/SpectrogramKernels.h"

#include "dsp/SpectrogramKernelSets.h"

const SpectrogramKernels& spectrogramKernels(InstructionSet set)
{
#if defined(__x86_64__) || defined(_M_X64)
    if (set == InstructionSet::Avx2)
        return avx2SpectrogramKernels;
    if (set == InstructionSet::Sse2)
        return sse2SpectrogramKernels;
#else
    static_cast<void>(set);
#endif
    return portableSpectrogramKernels;
}
