#ifndef SONAVIA_APP_WORKERTHREADS_H
#define SONAVIA_APP_WORKERTHREADS_H

#include <QObject>
#include <QVector>

class QThread;

/// Owns the workers and the thread of each. Connect a worker's signals before adding it. GUI thread only.
class WorkerThreads
{
public:
    WorkerThreads() = default;
    WorkerThreads(const WorkerThreads&) = delete;
    WorkerThreads& operator=(const WorkerThreads&) = delete;
    ~WorkerThreads();

    /// Takes `worker`, which has no parent, to a new thread.
    /// \returns the thread, not started yet; owned by this object.
    QThread* add(QObject* worker);

    /// Ends all threads and deletes the workers. A worker that computes has been told to stop before; who has
    /// not answered within `milliseconds` in all is left to the end of the process.
    /// \returns whether all have ended, so that what they used may be freed.
    bool stop(int milliseconds);

private:
    struct Worker
    {
        QThread* thread;
        QObject* object;
    };
    QVector<Worker> m_workers;
};

#endif
