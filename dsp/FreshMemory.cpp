#include "dsp/FreshMemory.h"

#if defined(__linux__)
#include <cstdint>
#include <sys/mman.h>

namespace {

/// Gives the system advice on the part of the block that consists of whole pages of the given size.
void advise(void* block, std::size_t bytes, std::size_t pageSize, int advice)
{
    const std::size_t skipped = (pageSize - reinterpret_cast<std::uintptr_t>(block) % pageSize) % pageSize;
    if (!block || bytes < skipped + pageSize)
        return;
    madvise(static_cast<char*>(block) + skipped, (bytes - skipped) / pageSize * pageSize, advice);
}

} // namespace

void preferLargePages(void* block, std::size_t bytes)
{
    advise(block, bytes, std::size_t{1} << 21, MADV_HUGEPAGE);
}

void supplyPages(void* block, std::size_t bytes)
{
#if defined(MADV_POPULATE_WRITE)
    constexpr std::size_t largestOrdinaryPage = std::size_t{1} << 16;
    advise(block, bytes, largestOrdinaryPage, MADV_POPULATE_WRITE);
#else
    static_cast<void>(block);
    static_cast<void>(bytes);
#endif
}
#else
void preferLargePages(void*, std::size_t)
{}

void supplyPages(void*, std::size_t)
{}
#endif
