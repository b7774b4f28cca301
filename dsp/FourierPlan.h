#ifndef SONAVIA_DSP_FOURIERPLAN_H
#define SONAVIA_DSP_FOURIERPLAN_H

// What kernels and tables have to agree upon. All of it has internal linkage: the kernels are compiled for
// different processors, and none may lend its code to another.

namespace {

/// Columns that the kernels transform side by side.
constexpr int fourierColumns = 8;

/// Smallest exponent of two whose samples fill whole columns.
constexpr int smallestColumnExponent = 6;

/// The radix of the first pass of a transform of `length` rows, a power of two: 8 as often as it goes.
constexpr int fourierRadix(int length)
{
    if (length <= 8)
        return length;
    int exponent = 0;
    for (int rest = length; rest > 1; rest /= 2)
        ++exponent;
    return exponent % 3 == 0 ? 8 : 4;
}

/// Where the passes leave row q of `length` rows, for q below length: the digits of q are reversed.
constexpr int fourierPosition(int q, int length)
{
    int position = 0;
    while (length > 1) {
        const int radix = fourierRadix(length);
        length /= radix;
        position += q % radix * length;
        q /= radix;
    }
    return position;
}

} // namespace

#endif
