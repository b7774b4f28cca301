#ifndef SONAVIA_DSP_FOURIERKERNEL_H
#define SONAVIA_DSP_FOURIERKERNEL_H

/// The forward real Fourier transforms of 2^3 .. 2^14 samples, compiled for every instruction set. The method
/// is told in FourierKernel.inl.

/// Factors for one size; the kernels read them, FourierTables makes them. Complex arrays of rows are 8 real
/// parts followed by 8 imaginary parts per row, others pairs of real and imaginary part.
struct FourierFactors
{
    const float* passes = nullptr;  ///< pairs, in the order in which the column passes use them
    const float* split = nullptr;   ///< pairs, for row q - 1 at index q - 1
    const float* lanes = nullptr;   ///< rows, two for every pair of mirrored rows; 32-byte aligned
    const float* nyquist = nullptr; ///< 8 x 8 matrix of the Nyquist row; 32-byte aligned
};

/// Transforms 2^exponent samples into the layout of QFourierCalculator. The arrays may lie at any address and
/// must not overlap. Reentrant.
using FourierKernel = void (*)(const float* samples, float* spectrum, const FourierFactors& factors);

/// The kernel for the active instruction set, for exponents from 3 to 14.
FourierKernel fourierKernel(int exponent);

#endif
