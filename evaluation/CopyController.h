#ifndef SONAVIA_EVALUATION_COPYCONTROLLER_H
#define SONAVIA_EVALUATION_COPYCONTROLLER_H

#include "classes/FileRun.h"
#include "evaluation/ListedRows.h"

#include <QObject>
#include <QStringList>

#include <optional>

class SettingsStore;

/// Copies the recordings of chosen classes into another folder: asks where to and for the classes, then sends
/// one request at a time through copyFiles(), which goes to CopyFilesThread; its answers come in at
/// copyingFinished(). GUI thread.
class CopyController : public QObject
{
    Q_OBJECT

public:
    /// Owns nothing; becomes a child of `window`, which gets the dialogs.
    CopyController(QWidget& window, const ListedRows& rows, const RecordingSession& session,
                   SettingsStore& settings, UserPrompts& prompts);

    /// Copies files of the list, if one is shown and no run is active.
    void copyFilesToOtherFolder();

    /// Files are being copied: nothing may be opened.
    bool isRunning() const { return m_run->isActive(); }

public slots:
    /// The worker's answer.
    void copyingFinished(int index, const QString& newDirectory, const QString& oldDirectory,
                         const QStringList& fileNames, bool overwrite);

signals:
    /// The request to the worker, see CopyFilesThread::copyFiles().
    void copyFiles(int index, const QString& newDirectory, const QString& oldDirectory,
                   const QStringList& fileNames, bool overwrite);
    /// The worker will get no more requests for this run, see CopyFilesThread::endRun().
    void copyingEnded();
    /// Files are being copied: the rows are in use.
    void runningChanged(bool running);

private:
    /// Whether existing files are to be replaced; nothing when the user called it off.
    std::optional<bool> chooseOverwrite(const QString& folder, const QStringList& names);
    void start(const QString& newDirectory, const QStringList& names, bool overwrite);
    FileChain::ErrorChoice askAboutError(const QString& name);

    QWidget& m_window;
    ListedRows m_rows;
    const RecordingSession& m_session;
    SettingsStore& m_settings;
    UserPrompts& m_prompts;
    FileRun* m_run; // child of the window
};

#endif
