// Compiled for AVX2 where the compiler can; runs only where the processor has it.
#include "dsp/ConditioningKernel.h"

#if defined(__AVX2__)
#include <immintrin.h>

namespace {

struct Avx2Lanes
{
    static constexpr int width = 8;
    __m256 v;

    static Avx2Lanes load(const float* from) { return {_mm256_loadu_ps(from)}; }
    static Avx2Lanes all(float value) { return {_mm256_set1_ps(value)}; }
    void store(float* to) const { _mm256_storeu_ps(to, v); }
    Avx2Lanes operator+(Avx2Lanes b) const { return {_mm256_add_ps(v, b.v)}; }
    Avx2Lanes operator-(Avx2Lanes b) const { return {_mm256_sub_ps(v, b.v)}; }
    Avx2Lanes operator*(Avx2Lanes b) const { return {_mm256_mul_ps(v, b.v)}; }
    Avx2Lanes operator/(Avx2Lanes b) const { return {_mm256_div_ps(v, b.v)}; }
    Avx2Lanes absolute() const { return {_mm256_andnot_ps(_mm256_set1_ps(-0.0F), v)}; }
    static Avx2Lanes larger(Avx2Lanes a, Avx2Lanes b) { return {_mm256_max_ps(a.v, b.v)}; }
    Avx2Lanes clearedWhereLess(Avx2Lanes a, Avx2Lanes b) const
    {
        return {_mm256_andnot_ps(_mm256_cmp_ps(a.v, b.v, _CMP_LT_OQ), v)};
    }
    unsigned positiveBits() const
    {
        return static_cast<unsigned>(_mm256_movemask_ps(_mm256_cmp_ps(v, _mm256_setzero_ps(), _CMP_GT_OQ)));
    }
    static void transpose(Avx2Lanes (&tile)[width])
    {
        __m256 pairs[width];
        for (int i = 0; i < width; i += 2) {
            pairs[i] = _mm256_unpacklo_ps(tile[i].v, tile[i + 1].v);
            pairs[i + 1] = _mm256_unpackhi_ps(tile[i].v, tile[i + 1].v);
        }
        __m256 fours[width];
        for (int i = 0; i < width; i += 4) {
            fours[i] = _mm256_shuffle_ps(pairs[i], pairs[i + 2], 0x44);
            fours[i + 1] = _mm256_shuffle_ps(pairs[i], pairs[i + 2], 0xee);
            fours[i + 2] = _mm256_shuffle_ps(pairs[i + 1], pairs[i + 3], 0x44);
            fours[i + 3] = _mm256_shuffle_ps(pairs[i + 1], pairs[i + 3], 0xee);
        }
        for (int i = 0; i < 4; ++i) {
            tile[i].v = _mm256_permute2f128_ps(fours[i], fours[i + 4], 0x20);
            tile[i + 4].v = _mm256_permute2f128_ps(fours[i], fours[i + 4], 0x31);
        }
    }
};

} // namespace

void conditionAvx2(const ConditioningRows& block)
{
    conditionWith<Avx2Lanes>(block);
}

#else

void conditionAvx2(const ConditioningRows& block)
{
    conditionSse2(block);
}

#endif
