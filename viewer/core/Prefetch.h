#ifndef SONAVIA_VIEWER_CORE_PREFETCH_H
#define SONAVIA_VIEWER_CORE_PREFETCH_H

#include <cstddef>

#if defined(_MSC_VER) && defined(_M_X64)
#include <xmmintrin.h>
#endif

/// How far ahead of a loop over memory that is not in the cache to fetch. Processors fetch ahead by
/// themselves, but for loops with some arithmetic not far enough: it makes them two to three times as fast.
constexpr std::size_t prefetchBytes = 4096;

/// Asks for the memory prefetchBytes behind an address. A hint: the address need not exist.
inline void prefetchAhead(const void* address)
{
    const char* ahead = static_cast<const char*>(address) + prefetchBytes;
#if defined(_MSC_VER) && defined(_M_X64)
    _mm_prefetch(ahead, _MM_HINT_T0);
#elif defined(__GNUC__)
    __builtin_prefetch(ahead);
#else
    static_cast<void>(ahead);
#endif
}

#endif
