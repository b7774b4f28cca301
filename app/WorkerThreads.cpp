#include "app/WorkerThreads.h"

#include <QDeadlineTimer>
#include <QThread>

WorkerThreads::~WorkerThreads()
{
    stop(0);
}

QThread* WorkerThreads::add(QObject* worker)
{
    auto* thread = new QThread;
    worker->moveToThread(thread);
    m_workers.append({thread, worker});
    return thread;
}

bool WorkerThreads::stop(int milliseconds)
{
    const QDeadlineTimer deadline(milliseconds);
    for (const Worker& worker : qAsConst(m_workers))
        worker.thread->quit();
    bool all = true;
    for (const Worker& worker : qAsConst(m_workers)) {
        // A running thread must not be destroyed: a late one keeps its objects until the process ends.
        if (worker.thread->wait(deadline)) {
            delete worker.object;
            delete worker.thread;
        } else {
            all = false;
        }
    }
    m_workers.clear();
    return all;
}
