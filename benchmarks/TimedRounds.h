#ifndef SONAVIA_BENCHMARKS_TIMEDROUNDS_H
#define SONAVIA_BENCHMARKS_TIMEDROUNDS_H

#include <QElapsedTimer>

#include <algorithm>
#include <vector>

/// The times of one version of a computation, taken in turns with those of its peers.
class TimedRounds
{
public:
    template <typename Work>
    void run(const Work& work)
    {
        QElapsedTimer timer;
        timer.start();
        work();
        m_milliseconds.push_back(static_cast<double>(timer.nsecsElapsed()) * 1e-6);
    }

    double median() const
    {
        std::vector<double> values = m_milliseconds;
        const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
        std::nth_element(values.begin(), middle, values.end());
        return *middle;
    }
    double best() const { return *std::min_element(m_milliseconds.begin(), m_milliseconds.end()); }

private:
    std::vector<double> m_milliseconds;
};

#endif
