#include "dsp/ConditioningKernel.h"

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>

namespace {

struct Sse2Lanes
{
    static constexpr int width = 4;
    __m128 v;

    static Sse2Lanes load(const float* from) { return {_mm_loadu_ps(from)}; }
    static Sse2Lanes all(float value) { return {_mm_set1_ps(value)}; }
    void store(float* to) const { _mm_storeu_ps(to, v); }
    Sse2Lanes operator+(Sse2Lanes b) const { return {_mm_add_ps(v, b.v)}; }
    Sse2Lanes operator-(Sse2Lanes b) const { return {_mm_sub_ps(v, b.v)}; }
    Sse2Lanes operator*(Sse2Lanes b) const { return {_mm_mul_ps(v, b.v)}; }
    Sse2Lanes operator/(Sse2Lanes b) const { return {_mm_div_ps(v, b.v)}; }
    Sse2Lanes absolute() const { return {_mm_andnot_ps(_mm_set1_ps(-0.0F), v)}; }
    static Sse2Lanes larger(Sse2Lanes a, Sse2Lanes b) { return {_mm_max_ps(a.v, b.v)}; }
    Sse2Lanes clearedWhereLess(Sse2Lanes a, Sse2Lanes b) const
    {
        return {_mm_andnot_ps(_mm_cmplt_ps(a.v, b.v), v)};
    }
    unsigned positiveBits() const
    {
        return static_cast<unsigned>(_mm_movemask_ps(_mm_cmpgt_ps(v, _mm_setzero_ps())));
    }
    static void transpose(Sse2Lanes (&tile)[width])
    {
        _MM_TRANSPOSE4_PS(tile[0].v, tile[1].v, tile[2].v, tile[3].v);
    }
};

} // namespace

void conditionSse2(const ConditioningRows& block)
{
    conditionWith<Sse2Lanes>(block);
}

#else

void conditionSse2(const ConditioningRows& block)
{
    conditionPortable(block);
}

#endif
