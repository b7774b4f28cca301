#include "dsp/FourierKernel.inl"
#include "dsp/FourierKernelSets.h"

namespace {

/// A single value: transforms too small to fill vectors run over numbers.
struct Vector
{
    float v;

    static Vector all(float x) { return {x}; }
};

inline Vector operator+(Vector a, Vector b)
{
    return {a.v + b.v};
}

inline Vector operator-(Vector a, Vector b)
{
    return {a.v - b.v};
}

inline Vector operator*(Vector a, Vector b)
{
    return {a.v * b.v};
}

using Number = Complex<Vector>;

inline Number at(const float* pairs, int i)
{
    const int real = 2 * i;
    return {{pairs[real]}, {pairs[real + 1]}};
}

/// 16 values as 4 x 4.
inline void butterfly(Number (&x)[16], const float* factors)
{
    Number turned[16];
    for (int n = 0; n < 4; ++n) {
        Number column[4] = {x[n], x[n + 4], x[n + 8], x[n + 12]};
        butterfly(column);
        turned[n] = column[0];
        for (int i = 1; i < 4; ++i)
            turned[4 * i + n] = n > 0 ? column[i] * at(factors, 3 * n + i - 4) : column[i];
    }
    for (int i = 0; i < 4; ++i) {
        const int first = 4 * i;
        Number row[4] = {turned[first], turned[first + 1], turned[first + 2], turned[first + 3]};
        butterfly(row);
        for (int n = 0; n < 4; ++n)
            x[4 * n + i] = row[n];
    }
}

/// Even samples as real, odd ones as imaginary parts, and separated afterwards.
template <int Exponent>
void smallTransform(const float* samples, float* spectrum, const FourierFactors& factors)
{
    constexpr int half = 1 << (Exponent - 1);
    Number x[half];
    for (int i = 0; i < half; ++i)
        x[i] = at(samples, i);
    if constexpr (half == 16)
        butterfly(x, factors.passes);
    else
        butterfly(x);
    spectrum[0] = x[0].real.v + x[0].imaginary.v;
    spectrum[half] = x[0].real.v - x[0].imaginary.v;
    const Vector oneHalf = {0.5f};
    for (int k = 1; k < half / 2; ++k) {
        const Number a = x[k];
        const Number b = x[half - k];
        const Number even{(a.real + b.real) * oneHalf, (a.imaginary - b.imaginary) * oneHalf};
        const Number odd{(a.imaginary + b.imaginary) * oneHalf, (b.real - a.real) * oneHalf};
        const Number turned = odd * at(factors.split, k - 1);
        spectrum[k] = even.real.v + turned.real.v;
        spectrum[half + k] = even.imaginary.v + turned.imaginary.v;
        spectrum[half - k] = even.real.v - turned.real.v;
        spectrum[2 * half - k] = turned.imaginary.v - even.imaginary.v;
    }
    spectrum[half / 2] = x[half / 2].real.v;
    spectrum[half + half / 2] = -x[half / 2].imaginary.v;
}

} // namespace

FourierKernel fourierKernelSmall(int exponent)
{
    switch (exponent) {
    case 3:
        return smallTransform<3>;
    case 4:
        return smallTransform<4>;
    case 5:
        return smallTransform<5>;
    default:
        return nullptr;
    }
}
