#ifndef SONAVIA_DSP_FOURIERVECTOR4_H
#define SONAVIA_DSP_FOURIERVECTOR4_H

#ifdef __AVX__
#include <immintrin.h>
#else
#include <emmintrin.h>
#endif

// In every file that includes it a type of its own: the kernels are compiled for different processors.
namespace {

/// Four floats in an SSE2 register, as FourierKernel.inl wants them.
struct Vector4
{
    static constexpr int lanes = 4;
    __m128 v;

    static Vector4 load(const float* p) { return {_mm_loadu_ps(p)}; }
    static Vector4 all(float x) { return {_mm_set1_ps(x)}; }
    void store(float* p) const { _mm_storeu_ps(p, v); }
    Vector4 negated() const { return {_mm_xor_ps(v, _mm_set1_ps(-0.0f))}; }
    Vector4 reversed() const { return {_mm_shuffle_ps(v, v, _MM_SHUFFLE(0, 1, 2, 3))}; }
    Vector4 mirrored() const { return {_mm_shuffle_ps(v, v, _MM_SHUFFLE(1, 2, 3, 0))}; }
    static void loadColumns(const float* rows, const int* at, Vector4 (&columns)[8]);
};

inline Vector4 operator+(Vector4 a, Vector4 b)
{
    return {_mm_add_ps(a.v, b.v)};
}

inline Vector4 operator-(Vector4 a, Vector4 b)
{
    return {_mm_sub_ps(a.v, b.v)};
}

inline Vector4 operator*(Vector4 a, Vector4 b)
{
    return {_mm_mul_ps(a.v, b.v)};
}

#ifdef __AVX__
inline void Vector4::loadColumns(const float* rows, const int* at, Vector4 (&columns)[8])
{
    const __m256 r0 = _mm256_loadu_ps(rows + at[0]);
    const __m256 r1 = _mm256_loadu_ps(rows + at[1]);
    const __m256 r2 = _mm256_loadu_ps(rows + at[2]);
    const __m256 r3 = _mm256_loadu_ps(rows + at[3]);
    const __m256 low01 = _mm256_unpacklo_ps(r0, r1);
    const __m256 high01 = _mm256_unpackhi_ps(r0, r1);
    const __m256 low23 = _mm256_unpacklo_ps(r2, r3);
    const __m256 high23 = _mm256_unpackhi_ps(r2, r3);
    const __m256 pairs[4] = {_mm256_shuffle_ps(low01, low23, 0x44), _mm256_shuffle_ps(low01, low23, 0xee),
                             _mm256_shuffle_ps(high01, high23, 0x44),
                             _mm256_shuffle_ps(high01, high23, 0xee)};
    for (int i = 0; i < 4; ++i) {
        columns[i].v = _mm256_castps256_ps128(pairs[i]);
        columns[i + 4].v = _mm256_extractf128_ps(pairs[i], 1);
    }
}
#else
inline void Vector4::loadColumns(const float* rows, const int* at, Vector4 (&columns)[8])
{
    for (int half = 0; half < 8; half += 4) {
        const __m128 r0 = _mm_loadu_ps(rows + at[0] + half);
        const __m128 r1 = _mm_loadu_ps(rows + at[1] + half);
        const __m128 r2 = _mm_loadu_ps(rows + at[2] + half);
        const __m128 r3 = _mm_loadu_ps(rows + at[3] + half);
        const __m128 low01 = _mm_unpacklo_ps(r0, r1);
        const __m128 high01 = _mm_unpackhi_ps(r0, r1);
        const __m128 low23 = _mm_unpacklo_ps(r2, r3);
        const __m128 high23 = _mm_unpackhi_ps(r2, r3);
        columns[half + 0].v = _mm_movelh_ps(low01, low23);
        columns[half + 1].v = _mm_movehl_ps(low23, low01);
        columns[half + 2].v = _mm_movelh_ps(high01, high23);
        columns[half + 3].v = _mm_movehl_ps(high23, high01);
    }
}
#endif

} // namespace

#endif
