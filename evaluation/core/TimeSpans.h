#ifndef SONAVIA_EVALUATION_CORE_TIMESPANS_H
#define SONAVIA_EVALUATION_CORE_TIMESPANS_H

#include <QtGlobal>

#include <vector>

/// A stretch of time in whole seconds; both ends belong to it.
struct TimeSpan
{
    qint64 start = 0;
    qint64 stop = 0;

    qint64 length() const { return stop - start; }
    friend bool operator==(const TimeSpan& a, const TimeSpan& b)
    {
        return a.start == b.start && a.stop == b.stop;
    }
};

/// Stretches of time as a set: in order, of positive length, and apart from each other, so that an instant
/// lies in one at most. What the functions below return is of that kind.
using TimeSpans = std::vector<TimeSpan>;

/// From stretches in any order; those that touch or overlap become one, empty ones vanish.
TimeSpans united(std::vector<TimeSpan> spans);

/// What lies in both. Linear in the number of spans.
TimeSpans intersection(const TimeSpans& a, const TimeSpans& b);

/// What lies in `a` and not inside of `b`. An end that `b` cuts belongs to what is left.
TimeSpans difference(const TimeSpans& a, const TimeSpans& b);

/// Seconds in all.
qint64 totalLength(const TimeSpans& spans);

#endif
