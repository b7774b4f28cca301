#ifndef SONAVIA_TESTS_SUPPORT_WAITUNTIL_H
#define SONAVIA_TESTS_SUPPORT_WAITUNTIL_H

#include <QTest>

/// Runs the event loop until `condition` holds; false when it does not within about `milliseconds`. Counts
/// slices instead of looking at a clock: a process that was stopped for a while goes on where it was, instead
/// of finding all of its time gone at once.
template <typename Condition>
bool waitUntil(const Condition& condition, int milliseconds)
{
    constexpr int slice = 10;
    for (int waited = 0; waited < milliseconds && !condition(); waited += slice)
        QTest::qWait(slice);
    return condition();
}

#endif
