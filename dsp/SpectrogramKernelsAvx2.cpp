#if defined(__x86_64__) || defined(_M_X64)

#include "dsp/SpectrogramKernelLoops.h"
#include "dsp/SpectrogramKernelSets.h"

#include <immintrin.h>

namespace {

/// Eight floats in one register, eight doubles in two.
struct Avx2Lanes
{
    struct Floats
    {
        __m256 lanes;

        friend Floats operator+(Floats a, Floats b) { return {_mm256_add_ps(a.lanes, b.lanes)}; }
        friend Floats operator*(Floats a, Floats b) { return {_mm256_mul_ps(a.lanes, b.lanes)}; }
        friend Floats operator/(Floats a, Floats b) { return {_mm256_div_ps(a.lanes, b.lanes)}; }
    };

    struct Doubles
    {
        __m256d low;
        __m256d high;

        friend Doubles operator+(Doubles a, Doubles b)
        {
            return {_mm256_add_pd(a.low, b.low), _mm256_add_pd(a.high, b.high)};
        }
        friend Doubles operator-(Doubles a, Doubles b)
        {
            return {_mm256_sub_pd(a.low, b.low), _mm256_sub_pd(a.high, b.high)};
        }
        friend Doubles operator*(Doubles a, Doubles b)
        {
            return {_mm256_mul_pd(a.low, b.low), _mm256_mul_pd(a.high, b.high)};
        }
        friend Doubles operator/(Doubles a, Doubles b)
        {
            return {_mm256_div_pd(a.low, b.low), _mm256_div_pd(a.high, b.high)};
        }
    };

    struct Parts
    {
        Doubles mantissa;
        Doubles exponent;
    };

    static Floats all(float value) { return {_mm256_set1_ps(value)}; }
    static Doubles all(double value) { return {_mm256_set1_pd(value), _mm256_set1_pd(value)}; }
    static Floats load(const float* source) { return {_mm256_loadu_ps(source)}; }
    static Doubles load(const double* source)
    {
        return {_mm256_loadu_pd(source), _mm256_loadu_pd(source + 4)};
    }
    static Floats loadInts(const int* source)
    {
        return {_mm256_cvtepi32_ps(_mm256_loadu_si256(reinterpret_cast<const __m256i*>(source)))};
    }
    static void store(float* target, Floats values) { _mm256_storeu_ps(target, values.lanes); }
    static void store(double* target, Doubles values)
    {
        _mm256_storeu_pd(target, values.low);
        _mm256_storeu_pd(target + 4, values.high);
    }

    static void prefetch(const double* address)
    {
        _mm_prefetch(reinterpret_cast<const char*>(address), _MM_HINT_T0);
    }
    static Doubles widen(Floats values)
    {
        return {_mm256_cvtps_pd(_mm256_castps256_ps128(values.lanes)),
                _mm256_cvtps_pd(_mm256_extractf128_ps(values.lanes, 1))};
    }
    static Floats narrow(Doubles values)
    {
        return {_mm256_set_m128(_mm256_cvtpd_ps(values.high), _mm256_cvtpd_ps(values.low))};
    }
    static Floats squareRoot(Floats values) { return {_mm256_sqrt_ps(values.lanes)}; }
    static Doubles minimum(Doubles a, Doubles b)
    {
        return {_mm256_min_pd(a.low, b.low), _mm256_min_pd(a.high, b.high)};
    }
    static Doubles maximum(Doubles a, Doubles b)
    {
        return {_mm256_max_pd(a.low, b.low), _mm256_max_pd(a.high, b.high)};
    }

    static void splitHalf(__m256d values, __m256d& mantissa, __m256d& exponent)
    {
        // An integer in the low bits of 2^52 is a double: 2^52 plus the integer.
        const __m256d magic = _mm256_set1_pd(0x1p52);
        const __m256i shifted = _mm256_add_epi64(
            _mm256_castpd_si256(values), _mm256_set1_epi64x(DoubleBits::one - DoubleBits::rootOfHalf));
        const __m256i biased = _mm256_srli_epi64(shifted, DoubleBits::exponentShift);
        exponent = _mm256_sub_pd(_mm256_or_pd(_mm256_castsi256_pd(biased), magic),
                                 _mm256_set1_pd(0x1p52 + DoubleBits::exponentBias));
        mantissa = _mm256_castsi256_pd(
            _mm256_add_epi64(_mm256_and_si256(shifted, _mm256_set1_epi64x(DoubleBits::mantissa)),
                             _mm256_set1_epi64x(DoubleBits::rootOfHalf)));
    }
    static Parts split(Doubles values)
    {
        Parts parts;
        splitHalf(values.low, parts.mantissa.low, parts.exponent.low);
        splitHalf(values.high, parts.mantissa.high, parts.exponent.high);
        return parts;
    }

    static __m256d minusInfinityWhereZeroHalf(__m256d test, __m256d values)
    {
        const __m256d zero = _mm256_cmp_pd(test, _mm256_setzero_pd(), _CMP_EQ_OQ);
        return _mm256_blendv_pd(values, _mm256_set1_pd(DoubleBits::minusInfinity), zero);
    }
    static Doubles minusInfinityWhereZero(Doubles test, Doubles values)
    {
        return {minusInfinityWhereZeroHalf(test.low, values.low),
                minusInfinityWhereZeroHalf(test.high, values.high)};
    }

    static void transpose(Floats (&rows)[8])
    {
        __m256 pairs[8];
        for (int i = 0; i < 8; i += 2) {
            pairs[i] = _mm256_unpacklo_ps(rows[i].lanes, rows[i + 1].lanes);
            pairs[i + 1] = _mm256_unpackhi_ps(rows[i].lanes, rows[i + 1].lanes);
        }
        __m256 fours[8];
        for (int i = 0; i < 8; i += 4) {
            fours[i] = _mm256_shuffle_ps(pairs[i], pairs[i + 2], 0x44);
            fours[i + 1] = _mm256_shuffle_ps(pairs[i], pairs[i + 2], 0xEE);
            fours[i + 2] = _mm256_shuffle_ps(pairs[i + 1], pairs[i + 3], 0x44);
            fours[i + 3] = _mm256_shuffle_ps(pairs[i + 1], pairs[i + 3], 0xEE);
        }
        for (int i = 0; i < 4; ++i) {
            rows[i].lanes = _mm256_permute2f128_ps(fours[i], fours[i + 4], 0x20);
            rows[i + 4].lanes = _mm256_permute2f128_ps(fours[i], fours[i + 4], 0x31);
        }
    }
};

} // namespace

const SpectrogramKernels avx2SpectrogramKernels = SpectrogramKernelLoops<Avx2Lanes>::kernels();

#endif
