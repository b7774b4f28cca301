// Compiled with AVX2 code generation: see the note at the end of the method in FourierKernel.inl.
#include "dsp/FourierKernel.inl"
#include "dsp/FourierKernelSets.h"
#include "dsp/FourierVector4.h"

#include <immintrin.h>

namespace {

struct Vector
{
    static constexpr int lanes = 8;
    __m256 v;

    static Vector load(const float* p) { return {_mm256_loadu_ps(p)}; }
    static Vector all(float x) { return {_mm256_set1_ps(x)}; }
    void store(float* p) const { _mm256_storeu_ps(p, v); }
    Vector negated() const { return {_mm256_xor_ps(v, _mm256_set1_ps(-0.0f))}; }
    Vector reversed() const
    {
        return {_mm256_permutevar8x32_ps(v, _mm256_setr_epi32(7, 6, 5, 4, 3, 2, 1, 0))};
    }
    Vector mirrored() const
    {
        return {_mm256_permutevar8x32_ps(v, _mm256_setr_epi32(0, 7, 6, 5, 4, 3, 2, 1))};
    }
    static void loadColumns(const float* rows, const int* at, Vector (&columns)[8]);
};

inline Vector operator+(Vector a, Vector b)
{
    return {_mm256_add_ps(a.v, b.v)};
}

inline Vector operator-(Vector a, Vector b)
{
    return {_mm256_sub_ps(a.v, b.v)};
}

inline Vector operator*(Vector a, Vector b)
{
    return {_mm256_mul_ps(a.v, b.v)};
}

/// Four columns of rows i and i + 4.
inline __m256 twoRows(const float* rows, const int* at, int i)
{
    return _mm256_insertf128_ps(_mm256_castps128_ps256(_mm_loadu_ps(rows + at[i])),
                                _mm_loadu_ps(rows + at[i + 4]), 1);
}

inline void Vector::loadColumns(const float* rows, const int* at, Vector (&columns)[8])
{
    for (int half = 0; half < 8; half += 4) {
        const __m256 r0 = twoRows(rows + half, at, 0);
        const __m256 r1 = twoRows(rows + half, at, 1);
        const __m256 r2 = twoRows(rows + half, at, 2);
        const __m256 r3 = twoRows(rows + half, at, 3);
        const __m256 low01 = _mm256_unpacklo_ps(r0, r1);
        const __m256 high01 = _mm256_unpackhi_ps(r0, r1);
        const __m256 low23 = _mm256_unpacklo_ps(r2, r3);
        const __m256 high23 = _mm256_unpackhi_ps(r2, r3);
        columns[half + 0].v = _mm256_shuffle_ps(low01, low23, 0x44);
        columns[half + 1].v = _mm256_shuffle_ps(low01, low23, 0xee);
        columns[half + 2].v = _mm256_shuffle_ps(high01, high23, 0x44);
        columns[half + 3].v = _mm256_shuffle_ps(high01, high23, 0xee);
    }
}

} // namespace

FourierKernel fourierKernelAvx2(int exponent)
{
    return kernelOf<Vector, Vector4>(exponent);
}
