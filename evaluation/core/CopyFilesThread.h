#ifndef SONAVIA_EVALUATION_CORE_COPYFILESTHREAD_H
#define SONAVIA_EVALUATION_CORE_COPYFILESTHREAD_H

#include <QObject>
#include <QStringList>

#include <atomic>

/// The worker that copies recordings into another folder, off the GUI thread, one file per request.
///
/// Made on the GUI thread, without parent, and moved to a thread of its own, which is to end (quit and wait)
/// before the worker is deleted. Requests are queued signals connected to the slot; each is answered by
/// exactly one signalCopyFinished() with the same arguments. Keeps nothing from one request to the next.
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

signals:
    /// After an error, fileNames has errorMark() at its end.
    void signalCopyFinished(int index, const QString& newDirectory, const QString& oldDirectory,
                            const QStringList& fileNames, bool overwrite);

private:
    bool copy(const QString& source, const QString& target, bool overwrite) const;

    std::atomic<bool> m_stop{false};
};

#endif
