#include "dsp/FourierKernel.inl"
#include "dsp/FourierKernelSets.h"
#include "dsp/FourierVector4.h"

FourierKernel fourierKernelSse2(int exponent)
{
    return kernelOf<Vector4, Vector4>(exponent);
}
