#include "viewer/core/SampleKernels.h"

#include "viewer/core/Prefetch.h"

#include <QtEndian>

#include <algorithm>

#if defined(__SSE2__) || defined(_M_X64)
#include <emmintrin.h>
#define SONAVIA_SSE2
#endif

namespace {

constexpr std::size_t lanes = 8;

/// Eight results side by side: what the vector code keeps in its registers.
struct Lanes
{
    double high[lanes];
    double low[lanes];
    double squares[lanes];

    explicit Lanes(double first)
    {
        std::fill_n(high, lanes, first);
        std::fill_n(low, lanes, first);
        std::fill_n(squares, lanes, 0.0);
    }
    void add(std::size_t lane, double value)
    {
        high[lane] = std::max(high[lane], value);
        low[lane] = std::min(low[lane], value);
        squares[lane] += value * value;
    }
};

qint16 sixteenBits(int sample, double gain)
{
    // The gain keeps a recording within 16 bits; a peak that does not belong to it must not wrap around.
    const double value = std::clamp(sample * gain, -32768.0, 32767.0);
    return qToLittleEndian(static_cast<qint16>(static_cast<int>(value)));
}

#if defined(SONAVIA_SSE2)

__m128i load(const int* samples)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(samples));
}

__m128d lowHalf(__m128i samples)
{
    return _mm_cvtepi32_pd(samples);
}

__m128d highHalf(__m128i samples)
{
    return _mm_cvtepi32_pd(_mm_unpackhi_epi64(samples, samples));
}

/// Adds whole groups of eight samples; returns how many samples that were.
std::size_t addGroups(const int* samples, std::size_t count, Lanes& result)
{
    __m128d high[4];
    __m128d low[4];
    __m128d squares[4];
    for (std::size_t k = 0; k < 4; ++k) {
        high[k] = _mm_loadu_pd(result.high + 2 * k);
        low[k] = _mm_loadu_pd(result.low + 2 * k);
        squares[k] = _mm_loadu_pd(result.squares + 2 * k);
    }
    const std::size_t whole = count / lanes * lanes;
    for (std::size_t i = 0; i < whole; i += lanes) {
        prefetchAhead(samples + i);
        const __m128i first = load(samples + i);
        const __m128i second = load(samples + i + 4);
        const __m128d values[4] = {lowHalf(first), highHalf(first), lowHalf(second), highHalf(second)};
        for (std::size_t k = 0; k < 4; ++k) {
            high[k] = _mm_max_pd(high[k], values[k]);
            low[k] = _mm_min_pd(low[k], values[k]);
            squares[k] = _mm_add_pd(squares[k], _mm_mul_pd(values[k], values[k]));
        }
    }
    for (std::size_t k = 0; k < 4; ++k) {
        _mm_storeu_pd(result.high + 2 * k, high[k]);
        _mm_storeu_pd(result.low + 2 * k, low[k]);
        _mm_storeu_pd(result.squares + 2 * k, squares[k]);
    }
    return whole;
}

/// Four values as four integers.
__m128i truncated(__m128i samples, __m128d gain)
{
    const __m128d least = _mm_set1_pd(-32768.0);
    const __m128d most = _mm_set1_pd(32767.0);
    const auto scaled = [&](__m128d values) {
        return _mm_cvttpd_epi32(_mm_min_pd(_mm_max_pd(_mm_mul_pd(values, gain), least), most));
    };
    return _mm_unpacklo_epi64(scaled(lowHalf(samples)), scaled(highHalf(samples)));
}

__m128i gather(const int* samples, std::size_t step)
{
    return _mm_setr_epi32(samples[0], samples[step], samples[2 * step], samples[3 * step]);
}

/// Writes whole groups of eight samples; returns how many samples that were.
std::size_t writeGroups(const int* samples, std::size_t step, std::size_t count, double gain, qint16* to)
{
    const __m128d factor = _mm_set1_pd(gain);
    const std::size_t whole = count / lanes * lanes;
    for (std::size_t i = 0; i < whole; i += lanes) {
        const int* from = samples + i * step;
        for (std::size_t k = 0; k < (step == 1 ? 1 : lanes); ++k)
            prefetchAhead(from + k * step);
        const __m128i first = step == 1 ? load(from) : gather(from, step);
        const __m128i second = step == 1 ? load(from + 4) : gather(from + 4 * step, step);
        const __m128i packed = _mm_packs_epi32(truncated(first, factor), truncated(second, factor));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(to + i), packed);
    }
    return whole;
}

#else

std::size_t addGroups(const int* samples, std::size_t count, Lanes& result)
{
    const std::size_t whole = count / lanes * lanes;
    for (std::size_t i = 0; i < whole; i += lanes)
        for (std::size_t lane = 0; lane < lanes; ++lane)
            result.add(lane, samples[i + lane]);
    return whole;
}

std::size_t writeGroups(const int*, std::size_t, std::size_t, double, qint16*)
{
    return 0;
}

#endif

} // namespace

SampleKernels::Statistics SampleKernels::statistics(const int* samples, std::size_t count)
{
    Lanes all(samples[0]);
    for (std::size_t i = addGroups(samples, count, all); i < count; ++i)
        all.add(0, samples[i]);

    Statistics result{all.high[0], all.low[0], all.squares[0]};
    for (std::size_t lane = 1; lane < lanes; ++lane) {
        result.maximum = std::max(result.maximum, all.high[lane]);
        result.minimum = std::min(result.minimum, all.low[lane]);
        result.sumOfSquares += all.squares[lane];
    }
    return result;
}

void SampleKernels::toSixteenBits(const int* samples, std::size_t step, std::size_t count, double gain,
                                  qint16* to)
{
    for (std::size_t i = writeGroups(samples, step, count, gain, to); i < count; ++i)
        to[i] = sixteenBits(samples[i * step], gain);
}
