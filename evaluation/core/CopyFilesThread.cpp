#include "evaluation/core/CopyFilesThread.h"

#include "evaluation/core/fileCopy.h"

#include <QFile>

#include <utility>

QString CopyFilesThread::errorMark()
{
    return QStringLiteral("error");
}

bool CopyFilesThread::Task::isNeeded() const
{
    return overwrite || !QFile::exists(target);
}

void CopyFilesThread::copyFiles(int index, const QString& newDirectory, const QString& oldDirectory,
                                const QStringList& fileNames, bool overwrite)
{
    const auto task = [&](int i) {
        return Task{oldDirectory + QLatin1Char('/') + fileNames.at(i),
                    newDirectory + QLatin1Char('/') + fileNames.at(i), overwrite};
    };
    const bool success = !fileNames.value(index).isEmpty() && copy(task(index));
    endRun();
    if (m_stop)
        return;
    emit signalCopyFinished(index, newDirectory, oldDirectory,
                            success ? fileNames : fileNames + QStringList(errorMark()), overwrite);
    // After an error the user is asked, and nobody knows whether there will be a next file.
    if (!success || index + 1 >= fileNames.size())
        return;
    m_next = task(index + 1);
    // Through the event loop: a request that is there already comes first.
    QMetaObject::invokeMethod(this, &CopyFilesThread::copyAhead, Qt::QueuedConnection);
}

void CopyFilesThread::endRun()
{
    m_next = {};
    m_ahead.reset();
}

bool CopyFilesThread::copy(const Task& task)
{
    if (!task.isNeeded())
        return true;
    // What could not be copied ahead is tried once more, and fails now or not.
    if (m_ahead && task == m_next)
        return finishCopy(std::exchange(m_ahead, nullptr));
    m_ahead.reset(); // its bytes may be those that the disk has no room for
    return finishCopy(prepareCopy(task.source, task.target, m_stop));
}

void CopyFilesThread::copyAhead()
{
    if (!m_ahead && !m_next.source.isEmpty() && m_next.isNeeded())
        m_ahead = prepareCopy(m_next.source, m_next.target, m_stop);
}
