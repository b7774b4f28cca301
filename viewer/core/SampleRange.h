#ifndef SONAVIA_VIEWER_CORE_SAMPLERANGE_H
#define SONAVIA_VIEWER_CORE_SAMPLERANGE_H

#include <cstddef>

/// A run of samples of a recording: from `first` up to, not including, `end`.
struct SampleRange
{
    std::size_t first = 0;
    std::size_t end = 0;

    std::size_t count() const { return end > first ? end - first : 0; }

    /// The samples that lie between two times (s) of a recording of `sampleCount` samples, cut to it. Times
    /// that are no numbers count as 0.
    static SampleRange between(double startSeconds, double endSeconds, int sampleRate,
                               std::size_t sampleCount);
};

#endif
