#ifndef SONAVIA_DSP_FRESHMEMORY_H
#define SONAVIA_DSP_FRESHMEMORY_H

#include <cstddef>

/// Asks the system to back a large block, allocated but not touched yet, with large pages: touching fresh
/// memory page by page costs more than the computation that fills it. A hint only; does nothing where the
/// system knows no such thing or the block is small.
void preferLargePages(void* block, std::size_t bytes);

#endif
