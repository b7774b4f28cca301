#include "dsp/FourierKernel.h"

#include "dsp/FourierKernelSets.h"
#include "dsp/InstructionSet.h"

FourierKernel fourierKernel(int exponent)
{
    if (exponent < 6)
        return fourierKernelSmall(exponent);
#ifdef SONAVIA_X86_64_KERNELS
    switch (activeInstructionSet()) {
    case InstructionSet::Avx2:
        return fourierKernelAvx2(exponent);
    case InstructionSet::Sse2:
        return fourierKernelSse2(exponent);
    case InstructionSet::Portable:
        break;
    }
#endif
    return fourierKernelPortable(exponent);
}
