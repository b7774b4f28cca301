#include "dsp/FreshMemory.h"

#if defined(__linux__)
#include <cstdint>
#include <sys/mman.h>

void preferLargePages(void* block, std::size_t bytes)
{
    constexpr std::uintptr_t largePage = std::uintptr_t{1} << 21;
    const auto start = (reinterpret_cast<std::uintptr_t>(block) + largePage - 1) & ~(largePage - 1);
    const auto end = (reinterpret_cast<std::uintptr_t>(block) + bytes) & ~(largePage - 1);
    if (block && start < end)
        madvise(reinterpret_cast<void*>(start), end - start, MADV_HUGEPAGE);
}
#else
void preferLargePages(void*, std::size_t)
{}
#endif
