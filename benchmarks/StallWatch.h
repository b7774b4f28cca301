#ifndef SONAVIA_BENCHMARKS_STALLWATCH_H
#define SONAVIA_BENCHMARKS_STALLWATCH_H

#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>

/// The longest time, in ms, between two turns of the event loop of this thread, as a timer sees it.
class StallWatch
{
public:
    /// `period` in ms: how often the timer looks.
    explicit StallWatch(int period) : m_period(period)
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            m_longest = std::max(m_longest, static_cast<double>(m_since.nsecsElapsed()) * 1e-6 - m_period);
            m_since.start();
        });
        m_since.start();
        m_timer.start(period);
    }
    double milliseconds() const { return m_longest; }

private:
    int m_period;
    QTimer m_timer;
    QElapsedTimer m_since;
    double m_longest = 0.0;
};

#endif
