#ifndef SONAVIA_VIEWER_CORE_FOLDERTASK_H
#define SONAVIA_VIEWER_CORE_FOLDERTASK_H

#include "viewer/core/FolderListing.h"

/// What a file list is to hold, and what is asked of the header worker about each of its recordings. A plain
/// value; every way to open a folder is one of the functions that make it.
struct FolderTask
{
    int viewMode = 1; ///< see RecordingSession::viewMode
    QString folder;   ///< without a trailing slash
    QStringList names;

    // The arguments of every request to the header worker, see GetFileInfoThread::getFileHeaderInfo().
    bool calcClasses = false;
    QString recorderResultFileName;
    int reviewMode = 0;

    static FolderTask openedFolder(const QString& folder);
    /// Files of one folder that were dropped; `names` as they are, but in order.
    static FolderTask droppedFiles(const QString& folder, QStringList names);
    static FolderTask folderEvaluation(const QString& folder);
    static FolderTask vantorEvaluation(const QString& folder);
    /// WAV files only; `reviewMode` 0 takes the recorder's groups, 1 its species.
    static FolderTask review(const QString& folder, int reviewMode);
    /// All records were reset: every WAV file gets a new proposal. The view mode stays as it is.
    static FolderTask afterReset(const QString& folder, int viewMode);

    /// The same with the folder listed anew. Dropped files stay the ones that were dropped.
    FolderTask listedAgain() const;

    QString pathOf(const QString& name) const { return folder + QLatin1Char('/') + name; }
    bool isEmpty() const { return names.isEmpty(); }
    /// Whether there are files whose classes cannot be kept.
    bool hasRawFiles() const;
    /// What the user has to know about them before classifying.
    static QString rawFilesNote();

private:
    static FolderTask listed(const QString& folder, int viewMode, FolderFiles files);

    FolderFiles m_files = FolderFiles::WavAndRaw;
    bool m_wholeFolder = true;
};

#endif
