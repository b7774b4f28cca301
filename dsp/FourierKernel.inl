// The forward real Fourier transform for one instruction set. Included by one source file per set, which
// names its type of vector:
//
//     Vector::lanes                            4 or 8
//     Vector::load(p), v.store(p)              at any address
//     Vector::all(x)                           x in every lane
//     a + b, a - b, a * b, v.negated()         per lane
//     v.reversed()                             lanes in reverse order
//     v.mirrored()                             lane 0 stays, the others in reverse order
//     Vector::loadColumns(rows, at, columns)   columns[c] = { rows[at[i] + c] for lane i }, c = 0 .. 7
//
// Method, for N = 16 L samples:
//
// Step 1. The samples are a matrix of 2 L rows and 8 columns. Each column is a real sequence of length 2 L,
// and lanes transform columns side by side. Two rows make one complex row: even rows are real, odd rows
// imaginary parts.
//
// Step 2. L complex rows are transformed in place by decimation in frequency with radices 8 and 4; the first
// pass reads the samples as they lie. Rows end up with their digits reversed.
//
// Step 3. Rows q and L - q are separated into the transforms of the real columns, and each is multiplied by
// e^(-2 pi i q c / N) for its column c.
//
// Step 4. 8 rows are transposed, so that lanes become bins, and radix-8 butterflies over the columns give the
// bins q + 2 L p. Those above N/2 are the conjugates of bins still missing and are stored in reverse. What
// step 3 leaves for q = L, a real row, becomes four bins by a product with a matrix.
//
// Every value goes through the same operations in the same order whatever the number of lanes, so the results
// are the same bits for every set. Nothing of the standard library is used here: an inline function compiled
// for one set could end up in code that runs on every processor.

#include "dsp/FourierKernel.h"
#include "dsp/FourierPlan.h"

#ifdef _MSC_VER // older versions fuse under /arch:AVX2
#pragma fp_contract(off)
#endif

#if defined(__AVX__) && defined(__GNUC__)
#define SONAVIA_NOT_INLINED __attribute__((noinline))
#else
#define SONAVIA_NOT_INLINED inline
#endif

namespace {

template <class V>
struct Complex
{
    V real;
    V imaginary;

    static Complex load(const float* row) { return {V::load(row), V::load(row + fourierColumns)}; }
    void store(float* row) const
    {
        real.store(row);
        imaginary.store(row + fourierColumns);
    }
    Complex operator+(Complex other) const { return {real + other.real, imaginary + other.imaginary}; }
    Complex operator-(Complex other) const { return {real - other.real, imaginary - other.imaginary}; }
    Complex operator*(Complex other) const
    {
        return {real * other.real - imaginary * other.imaginary,
                real * other.imaginary + imaginary * other.real};
    }
};

/// a - i b and a + i b
template <class V>
inline Complex<V> minusTurned(Complex<V> a, Complex<V> b)
{
    return {a.real + b.imaginary, a.imaginary - b.real};
}

template <class V>
inline Complex<V> plusTurned(Complex<V> a, Complex<V> b)
{
    return {a.real - b.imaginary, a.imaginary + b.real};
}

template <class V>
inline void transform4(Complex<V>& a, Complex<V>& b, Complex<V>& c, Complex<V>& d)
{
    const Complex<V> evenSum = a + c;
    const Complex<V> evenDifference = a - c;
    const Complex<V> oddSum = b + d;
    const Complex<V> oddDifference = b - d;
    a = evenSum + oddSum;
    b = minusTurned(evenDifference, oddDifference);
    c = evenSum - oddSum;
    d = plusTurned(evenDifference, oddDifference);
}

/// Discrete Fourier transform of 4 values in place.
template <class V>
inline void butterfly(Complex<V> (&x)[4])
{
    transform4(x[0], x[1], x[2], x[3]);
}

/// The same for 8 values.
template <class V>
inline void butterfly(Complex<V> (&x)[8])
{
    const V rootHalf = V::all(0.707106781186547524f);
    Complex<V> even[4] = {x[0] + x[4], x[1] + x[5], x[2] + x[6], x[3] + x[7]};
    transform4(even[0], even[1], even[2], even[3]);
    const Complex<V> d1 = x[1] - x[5];
    const Complex<V> d2 = x[2] - x[6];
    const Complex<V> d3 = x[3] - x[7];
    // d2 is to be multiplied by -i, which takes part in the first additions below.
    const Complex<V> turned1{(d1.real + d1.imaginary) * rootHalf, (d1.imaginary - d1.real) * rootHalf};
    const Complex<V> turned3{(d3.imaginary - d3.real) * rootHalf, (d3.real + d3.imaginary) * rootHalf};
    const Complex<V> d0 = x[0] - x[4];
    const Complex<V> sum02 = minusTurned(d0, d2);
    const Complex<V> difference02 = plusTurned(d0, d2);
    // turned3 lacks its sign in the imaginary part.
    const Complex<V> sum13{turned1.real + turned3.real, turned1.imaginary - turned3.imaginary};
    const Complex<V> difference13{turned1.real - turned3.real, turned1.imaginary + turned3.imaginary};
    x[0] = even[0];
    x[2] = even[1];
    x[4] = even[2];
    x[6] = even[3];
    x[1] = sum02 + sum13;
    x[3] = minusTurned(difference02, difference13);
    x[5] = sum02 - sum13;
    x[7] = plusTurned(difference02, difference13);
}

/// Rows n, n + Length / radix, ... of `source`, in place or into `rows`. The factors of n = 0 are 1.
template <class V, int Length, bool Turned>
inline void transformRows(const float* source, float* rows, const float* factors)
{
    constexpr int radix = fourierRadix(Length);
    constexpr int stride = Length / radix * 2 * fourierColumns;
    for (int column = 0; column < fourierColumns; column += V::lanes) {
        Complex<V> x[radix];
        for (int i = 0; i < radix; ++i)
            x[i] = Complex<V>::load(source + column + i * stride);
        butterfly(x);
        x[0].store(rows + column);
        for (int i = 1; i < radix; ++i) {
            if constexpr (Turned)
                x[i] = x[i] * Complex<V>{V::all(factors[2 * i - 2]), V::all(factors[2 * i - 1])};
            x[i].store(rows + column + i * stride);
        }
    }
}

/// Transforms `Length` rows of `source`, in place or into `rows`.
template <class V, int Length>
inline void transformColumns(const float* source, float* rows, const float* factors)
{
    constexpr int radix = fourierRadix(Length);
    constexpr int step = Length / radix;
    constexpr int width = 2 * fourierColumns;
    transformRows<V, Length, false>(source, rows, factors);
    for (int n = 1; n < step; ++n) {
        transformRows<V, Length, true>(source + n * width, rows + n * width, factors);
        factors += 2 * (radix - 1);
    }
    if constexpr (step > 1) {
        for (int i = 0; i < radix; ++i)
            transformColumns<V, step>(rows + i * step * width, rows + i * step * width, factors);
    }
}

/// Where row q begins, for q = 0 .. Length; the row after the last takes what step 3 leaves for q = Length.
template <int Length>
struct RowStarts
{
    int of[Length + 1] = {};
    constexpr RowStarts()
    {
        for (int q = 0; q < Length; ++q)
            of[q] = 2 * fourierColumns * fourierPosition(q, Length);
        of[Length] = 2 * fourierColumns * Length;
    }
};

template <int Length>
constexpr RowStarts<Length> rowStarts;

/// Step 3.
template <class V, int Length>
inline void separateColumns(float* rows, const FourierFactors& factors)
{
    constexpr const int* start = rowStarts<Length>.of;
    for (int column = 0; column < fourierColumns; column += V::lanes) {
        const Complex<V> constant = Complex<V>::load(rows + column);
        Complex<V>{constant.real + constant.imaginary, V::all(0.0f)}.store(rows + column);
        (constant.real - constant.imaginary).store(rows + start[Length] + column);
    }
    const float* lanes = factors.lanes;
    for (int q = 1; q < Length / 2; ++q) {
        const Complex<V> split{V::all(factors.split[2 * q - 2]), V::all(factors.split[2 * q - 1])};
        float* const low = rows + start[q];
        float* const high = rows + start[Length - q];
        for (int column = 0; column < fourierColumns; column += V::lanes) {
            const Complex<V> a = Complex<V>::load(low + column);
            const Complex<V> b = Complex<V>::load(high + column);
            const Complex<V> even{a.real + b.real, a.imaginary - b.imaginary};
            const Complex<V> odd = Complex<V>{a.imaginary + b.imaginary, b.real - a.real} * split;
            ((even + odd) * Complex<V>::load(lanes + column)).store(low + column);
            const Complex<V> mirrored{even.real - odd.real, odd.imaginary - even.imaginary};
            (mirrored * Complex<V>::load(lanes + 2 * fourierColumns + column)).store(high + column);
        }
        lanes += 4 * fourierColumns;
    }
    float* const middle = rows + start[Length / 2];
    for (int column = 0; column < fourierColumns; column += V::lanes) {
        const Complex<V> a = Complex<V>::load(middle + column);
        const Complex<V> f = Complex<V>::load(lanes + column);
        Complex<V>{a.real * f.real + a.imaginary * f.imaginary, a.real * f.imaginary - a.imaginary * f.real}
            .store(middle + column);
    }
}

/// Step 4 for V::lanes rows from q on. The first block comes first: of what it stores in reverse it has but
/// one lane less than it stores, and the block after it, or the Nyquist row, corrects the value in that
/// place.
template <class V, int Length, bool First>
inline void joinColumns(const float* rows, float* spectrum, int q)
{
    constexpr int half = fourierColumns * Length;
    const int* start = rowStarts<Length>.of + q;
    V real[fourierColumns];
    V imaginary[fourierColumns];
    V::loadColumns(rows, start, real);
    V::loadColumns(rows + fourierColumns, start, imaginary);
    Complex<V> x[fourierColumns];
    for (int i = 0; i < fourierColumns; ++i)
        x[i] = {real[i], imaginary[i]};
    butterfly(x);
    for (int p = 0; p < 4; ++p) {
        float* const direct = spectrum + 2 * Length * p + q;
        x[p].real.store(direct);
        x[p].imaginary.store(direct + half);
    }
    for (int p = 4; p < 8; ++p) {
        float* const end = spectrum + 2 * Length * (8 - p) - q;
        if constexpr (First) {
            x[p].real.mirrored().store(end - V::lanes);
            x[p].imaginary.negated().mirrored().store(end + half - V::lanes);
        } else {
            x[p].real.reversed().store(end - V::lanes + 1);
            x[p].imaginary.negated().reversed().store(end + half - V::lanes + 1);
        }
    }
    if constexpr (First) {
        float lanes[V::lanes];
        x[4].real.store(lanes);
        spectrum[half] = lanes[0];
    }
}

/// The four bins of step 4 for the real row q = Length: real parts, then imaginary parts. Not inlined, so
/// that the values of the row and of the result pass through memory, where they cost no shuffles.
template <class V>
SONAVIA_NOT_INLINED void joinNyquistRow(const float* row, const float* matrix, float* parts)
{
    for (int lane = 0; lane < fourierColumns; lane += V::lanes) {
        V products[fourierColumns];
        for (int i = 0; i < fourierColumns; ++i)
            products[i] = V::all(row[i]) * V::load(matrix + fourierColumns * i + lane);
        (((products[0] + products[1]) + (products[2] + products[3])) +
         ((products[4] + products[5]) + (products[6] + products[7])))
            .store(parts + lane);
    }
}

/// Puts them into bins Length (2 p + 1), p = 0 .. 3.
template <int Length>
inline void storeNyquistBins(const float* parts, float* spectrum)
{
    for (int p = 0; p < 4; ++p) {
        spectrum[Length * (2 * p + 1)] = parts[p];
        spectrum[(fourierColumns + 2 * p + 1) * Length] = parts[4 + p];
    }
}

template <class V, class Narrow, int Exponent>
void forwardTransform(const float* samples, float* spectrum, const FourierFactors& factors)
{
    constexpr int length = (1 << Exponent) / (2 * fourierColumns);
    alignas(64) float rows[(length + 1) * 2 * fourierColumns];
    transformColumns<V, length>(samples, rows, factors.passes);
    separateColumns<V, length>(rows, factors);
    if constexpr (length < V::lanes) {
        joinColumns<Narrow, length, true>(rows, spectrum, 0);
    } else {
        joinColumns<V, length, true>(rows, spectrum, 0);
        for (int q = V::lanes; q < length; q += V::lanes)
            joinColumns<V, length, false>(rows, spectrum, q);
    }
    float parts[fourierColumns];
    joinNyquistRow<V>(rows + length * 2 * fourierColumns, factors.nyquist, parts);
    storeNyquistBins<length>(parts, spectrum);
}

/// Picks the kernel for 2^6 .. 2^14 samples; the first has as few rows as Narrow has lanes.
template <class V, class Narrow>
FourierKernel kernelOf(int exponent)
{
    switch (exponent) {
    case 6:
        return forwardTransform<V, Narrow, 6>;
    case 7:
        return forwardTransform<V, Narrow, 7>;
    case 8:
        return forwardTransform<V, Narrow, 8>;
    case 9:
        return forwardTransform<V, Narrow, 9>;
    case 10:
        return forwardTransform<V, Narrow, 10>;
    case 11:
        return forwardTransform<V, Narrow, 11>;
    case 12:
        return forwardTransform<V, Narrow, 12>;
    case 13:
        return forwardTransform<V, Narrow, 13>;
    case 14:
        return forwardTransform<V, Narrow, 14>;
    default:
        return nullptr;
    }
}

} // namespace
