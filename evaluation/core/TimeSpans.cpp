#include "evaluation/core/TimeSpans.h"

#include <algorithm>
#include <numeric>

TimeSpans united(std::vector<TimeSpan> spans)
{
    const auto isEarlier = [](const TimeSpan& a, const TimeSpan& b) { return a.start < b.start; };
    if (!std::is_sorted(spans.begin(), spans.end(), isEarlier))
        std::sort(spans.begin(), spans.end(), isEarlier);
    TimeSpans result;
    for (const TimeSpan& span : spans) {
        if (span.length() <= 0)
            continue;
        if (!result.empty() && span.start <= result.back().stop)
            result.back().stop = std::max(result.back().stop, span.stop);
        else
            result.push_back(span);
    }
    return result;
}

TimeSpans intersection(const TimeSpans& a, const TimeSpans& b)
{
    TimeSpans result;
    auto left = a.begin();
    auto right = b.begin();
    while (left != a.end() && right != b.end()) {
        const TimeSpan common{std::max(left->start, right->start), std::min(left->stop, right->stop)};
        if (common.length() > 0)
            result.push_back(common);
        if (left->stop < right->stop)
            ++left;
        else
            ++right;
    }
    return result;
}

TimeSpans difference(const TimeSpans& a, const TimeSpans& b)
{
    TimeSpans result;
    auto cut = b.begin();
    for (TimeSpan rest : a) {
        while (cut != b.end() && cut->stop <= rest.start)
            ++cut;
        for (auto next = cut; next != b.end() && next->start < rest.stop; ++next) {
            if (next->start > rest.start)
                result.push_back({rest.start, next->start});
            rest.start = std::max(rest.start, next->stop);
        }
        if (rest.length() > 0)
            result.push_back(rest);
    }
    return result;
}

qint64 totalLength(const TimeSpans& spans)
{
    return std::accumulate(spans.begin(), spans.end(), qint64(0),
                           [](qint64 sum, const TimeSpan& span) { return sum + span.length(); });
}
