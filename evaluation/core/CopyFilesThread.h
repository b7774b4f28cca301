#ifndef SONAVIA_EVALUATION_CORE_COPYFILESTHREAD_H
#define SONAVIA_EVALUATION_CORE_COPYFILESTHREAD_H

#include "evaluation/core/NewFile.h"

#include <QObject>
#include <QStringList>

#include <atomic>
#include <memory>

/// The worker that copies recordings into another folder, off the GUI thread, one file per request.
///
/// Made on the GUI thread, without parent, and moved to a thread of its own, which is to end (quit and wait)
/// before the worker is deleted. Requests are queued signals connected to the slot; each is answered by
/// exactly one signalCopyFinished() with the same arguments.
///
/// While an answer is on its way and the next request is not yet there, the worker already copies the bytes
/// of the next file. They wait under a hidden name and become that file only on request; endRun() removes
/// them when the request will not come.
class CopyFilesThread : public QObject
{
    Q_OBJECT

public:
    /// The last element of the list of names that comes back when the file could not be copied.
    static QString errorMark();

    /// For closing the program: a large copy ends within milliseconds and leaves nothing behind, and requests
    /// get no answer any more. For good. Callable from any thread.
    void requestStop() { m_stop = true; }

public slots:
    /// Copies fileNames[index] from oldDirectory to newDirectory (without slashes at their ends).
    ///
    /// A file of that name that is there is replaced when `overwrite` is set, once its successor is complete;
    /// otherwise nothing is copied, which is no error. Where both folders are one and the same, a file is
    /// never replaced by itself: that is an error, too.
    void copyFiles(int index, const QString& newDirectory, const QString& oldDirectory,
                   const QStringList& fileNames, bool overwrite);

    /// The file after the one that was copied last is not wanted.
    void endRun();

signals:
    /// After an error, fileNames has errorMark() at its end.
    void signalCopyFinished(int index, const QString& newDirectory, const QString& oldDirectory,
                            const QStringList& fileNames, bool overwrite);

private:
    /// A file to be copied.
    struct Task
    {
        QString source;
        QString target;
        bool overwrite = false;

        bool isNeeded() const;
        bool operator==(const Task& other) const
        {
            return source == other.source && target == other.target && overwrite == other.overwrite;
        }
    };

    bool copy(const Task& task);
    void copyAhead();

    std::atomic<bool> m_stop{false};
    Task m_next;                      // probably; no source when there is none
    std::unique_ptr<NewFile> m_ahead; // copy of m_next, or nothing yet
};

#endif
