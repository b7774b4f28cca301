#ifndef SONAVIA_VIEWER_CORE_PARALLELRANGES_H
#define SONAVIA_VIEWER_CORE_PARALLELRANGES_H

#include <algorithm>
#include <cstddef>
#include <future>
#include <thread>
#include <vector>

/// Calls work(first, end) for consecutive parts of [0, count) that together cover it, on as many cores as
/// there are but with no part smaller than `smallest`, and returns when all are done. The calls must not
/// touch the same data. Where no thread is to be had, the calling one does the work.
template <typename Work>
void inParallelRanges(std::size_t count, std::size_t smallest, const Work& work)
{
    const std::size_t cores = std::max(1U, std::thread::hardware_concurrency());
    const std::size_t parts = std::clamp<std::size_t>(count / std::max<std::size_t>(smallest, 1), 1, cores);
    std::vector<std::future<void>> others;
    others.reserve(parts);
    for (std::size_t part = 1; part < parts; ++part)
        others.push_back(std::async(
            [&work, first = count * part / parts, end = count * (part + 1) / parts] { work(first, end); }));
    work(std::size_t{0}, count / parts);
    for (std::future<void>& other : others)
        other.get();
}

#endif
