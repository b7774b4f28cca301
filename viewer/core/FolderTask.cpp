#include "viewer/core/FolderTask.h"

#include "recordings/RecordingFile.h"

#include <algorithm>

FolderTask FolderTask::listed(const QString& folder, int viewMode, FolderFiles files)
{
    FolderTask task;
    task.viewMode = viewMode;
    task.folder = folderPath(folder);
    task.names = recordingsInFolder(task.folder + QLatin1Char('/'), files);
    task.reviewMode = viewMode;
    task.m_files = files;
    return task;
}

FolderTask FolderTask::openedFolder(const QString& folder)
{
    return listed(folder, 1, FolderFiles::WavAndRaw);
}

FolderTask FolderTask::droppedFiles(const QString& folder, QStringList names)
{
    FolderTask task;
    task.folder = folderPath(folder);
    task.names = std::move(names);
    task.names.removeDuplicates();
    std::sort(task.names.begin(), task.names.end());
    task.reviewMode = task.viewMode;
    task.m_wholeFolder = false;
    return task;
}

FolderTask FolderTask::folderEvaluation(const QString& folder)
{
    return listed(folder, 2, FolderFiles::WavAndRaw);
}

FolderTask FolderTask::vantorEvaluation(const QString& folder)
{
    FolderTask task = listed(folder, 3, FolderFiles::WavAndRaw);
    task.calcClasses = true;
    return task;
}

FolderTask FolderTask::review(const QString& folder, int reviewMode)
{
    FolderTask task = listed(folder, 4, FolderFiles::WavOnly);
    task.recorderResultFileName = task.pathOf(QStringLiteral("calls_ch1_files.txt"));
    task.reviewMode = reviewMode;
    return task;
}

FolderTask FolderTask::afterReset(const QString& folder, int viewMode)
{
    FolderTask task = listed(folder, viewMode, FolderFiles::WavOnly);
    task.calcClasses = true;
    return task;
}

FolderTask FolderTask::listedAgain() const
{
    FolderTask task = *this;
    if (m_wholeFolder)
        task.names = recordingsInFolder(folder + QLatin1Char('/'), m_files);
    return task;
}

bool FolderTask::hasRawFiles() const
{
    return std::any_of(names.cbegin(), names.cend(), [](const QString& name) {
        return RecordingFile::kindOf(name) == RecordingFile::Kind::Raw;
    });
}

QString FolderTask::rawFilesNote()
{
    return QStringLiteral("You are evaluating a folder which contains raw-files. Please be aware that your "
                          "classification progress is not saved for this type of file. By closing the "
                          "evaluation mode or quiting the programm your classifications will be lost.");
}
