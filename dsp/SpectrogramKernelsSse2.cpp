#if defined(__x86_64__) || defined(_M_X64)

#include "dsp/SpectrogramKernelLoops.h"
#include "dsp/SpectrogramKernelSets.h"

#include <emmintrin.h>

namespace {

/// Eight floats in two registers, eight doubles in four.
struct Sse2Lanes
{
    struct Floats
    {
        __m128 lanes[2];

        friend Floats operator+(Floats a, Floats b)
        {
            return {{_mm_add_ps(a.lanes[0], b.lanes[0]), _mm_add_ps(a.lanes[1], b.lanes[1])}};
        }
        friend Floats operator*(Floats a, Floats b)
        {
            return {{_mm_mul_ps(a.lanes[0], b.lanes[0]), _mm_mul_ps(a.lanes[1], b.lanes[1])}};
        }
        friend Floats operator/(Floats a, Floats b)
        {
            return {{_mm_div_ps(a.lanes[0], b.lanes[0]), _mm_div_ps(a.lanes[1], b.lanes[1])}};
        }
    };

    struct Doubles
    {
        __m128d lanes[4];

        friend Doubles operator+(Doubles a, Doubles b)
        {
            return combine(a, b, [](__m128d x, __m128d y) { return _mm_add_pd(x, y); });
        }
        friend Doubles operator-(Doubles a, Doubles b)
        {
            return combine(a, b, [](__m128d x, __m128d y) { return _mm_sub_pd(x, y); });
        }
        friend Doubles operator*(Doubles a, Doubles b)
        {
            return combine(a, b, [](__m128d x, __m128d y) { return _mm_mul_pd(x, y); });
        }
        friend Doubles operator/(Doubles a, Doubles b)
        {
            return combine(a, b, [](__m128d x, __m128d y) { return _mm_div_pd(x, y); });
        }
    };

    struct Parts
    {
        Doubles mantissa;
        Doubles exponent;
    };

    template <typename Operation>
    static Doubles combine(const Doubles& a, const Doubles& b, Operation operation)
    {
        return {{operation(a.lanes[0], b.lanes[0]), operation(a.lanes[1], b.lanes[1]),
                 operation(a.lanes[2], b.lanes[2]), operation(a.lanes[3], b.lanes[3])}};
    }

    static Floats all(float value) { return {{_mm_set1_ps(value), _mm_set1_ps(value)}}; }
    static Doubles all(double value)
    {
        const __m128d lanes = _mm_set1_pd(value);
        return {{lanes, lanes, lanes, lanes}};
    }
    static Floats load(const float* source) { return {{_mm_loadu_ps(source), _mm_loadu_ps(source + 4)}}; }
    static Doubles load(const double* source)
    {
        return {{_mm_loadu_pd(source), _mm_loadu_pd(source + 2), _mm_loadu_pd(source + 4),
                 _mm_loadu_pd(source + 6)}};
    }
    static __m128 loadFourInts(const int* source)
    {
        return _mm_cvtepi32_ps(_mm_loadu_si128(reinterpret_cast<const __m128i*>(source)));
    }
    static Floats loadInts(const int* source) { return {{loadFourInts(source), loadFourInts(source + 4)}}; }
    static void store(float* target, const Floats& values)
    {
        _mm_storeu_ps(target, values.lanes[0]);
        _mm_storeu_ps(target + 4, values.lanes[1]);
    }
    static void store(double* target, const Doubles& values)
    {
        for (const __m128d pair : values.lanes) {
            _mm_storeu_pd(target, pair);
            target += 2;
        }
    }

    static __m128 upperHalf(__m128 values) { return _mm_movehl_ps(values, values); }
    static void prefetch(const double* address)
    {
        _mm_prefetch(reinterpret_cast<const char*>(address), _MM_HINT_T0);
    }
    static Doubles widen(const Floats& values)
    {
        return {{_mm_cvtps_pd(values.lanes[0]), _mm_cvtps_pd(upperHalf(values.lanes[0])),
                 _mm_cvtps_pd(values.lanes[1]), _mm_cvtps_pd(upperHalf(values.lanes[1]))}};
    }
    static Floats narrow(const Doubles& values)
    {
        return {{_mm_movelh_ps(_mm_cvtpd_ps(values.lanes[0]), _mm_cvtpd_ps(values.lanes[1])),
                 _mm_movelh_ps(_mm_cvtpd_ps(values.lanes[2]), _mm_cvtpd_ps(values.lanes[3]))}};
    }
    static Floats squareRoot(const Floats& values)
    {
        return {{_mm_sqrt_ps(values.lanes[0]), _mm_sqrt_ps(values.lanes[1])}};
    }
    static Doubles minimum(const Doubles& a, const Doubles& b)
    {
        return combine(a, b, [](__m128d x, __m128d y) { return _mm_min_pd(x, y); });
    }
    static Doubles maximum(const Doubles& a, const Doubles& b)
    {
        return combine(a, b, [](__m128d x, __m128d y) { return _mm_max_pd(x, y); });
    }

    static Parts split(const Doubles& values)
    {
        // An integer in the low bits of 2^52 is a double: 2^52 plus the integer.
        const __m128d magic = _mm_set1_pd(0x1p52);
        const __m128d bias = _mm_set1_pd(0x1p52 + DoubleBits::exponentBias);
        const __m128i border = _mm_set1_epi64x(DoubleBits::one - DoubleBits::rootOfHalf);
        const __m128i mantissaBits = _mm_set1_epi64x(DoubleBits::mantissa);
        const __m128i rootOfHalf = _mm_set1_epi64x(DoubleBits::rootOfHalf);
        Parts parts;
        for (int i = 0; i < 4; ++i) {
            const __m128i shifted = _mm_add_epi64(_mm_castpd_si128(values.lanes[i]), border);
            const __m128i biased = _mm_srli_epi64(shifted, DoubleBits::exponentShift);
            parts.exponent.lanes[i] = _mm_sub_pd(_mm_or_pd(_mm_castsi128_pd(biased), magic), bias);
            parts.mantissa.lanes[i] =
                _mm_castsi128_pd(_mm_add_epi64(_mm_and_si128(shifted, mantissaBits), rootOfHalf));
        }
        return parts;
    }

    static Doubles minusInfinityWhereZero(const Doubles& test, const Doubles& values)
    {
        return combine(test, values, [](__m128d tested, __m128d value) {
            const __m128d zero = _mm_cmpeq_pd(tested, _mm_setzero_pd());
            const __m128d infinity = _mm_set1_pd(DoubleBits::minusInfinity);
            return _mm_or_pd(_mm_and_pd(zero, infinity), _mm_andnot_pd(zero, value));
        });
    }

    /// The four by four lanes of `half` in rows[first] .. rows[first + 3].
    static void transposeQuarter(Floats (&rows)[8], int first, int half)
    {
        _MM_TRANSPOSE4_PS(rows[first].lanes[half], rows[first + 1].lanes[half], rows[first + 2].lanes[half],
                          rows[first + 3].lanes[half]);
    }
    static void transpose(Floats (&rows)[8])
    {
        for (int first = 0; first < 8; first += 4) {
            transposeQuarter(rows, first, 0);
            transposeQuarter(rows, first, 1);
        }
        for (int i = 0; i < 4; ++i) {
            const __m128 moved = rows[i].lanes[1];
            rows[i].lanes[1] = rows[i + 4].lanes[0];
            rows[i + 4].lanes[0] = moved;
        }
    }
};

} // namespace

const SpectrogramKernels sse2SpectrogramKernels = SpectrogramKernelLoops<Sse2Lanes>::kernels();

#endif
