#ifndef SONAVIA_VIEWER_FILEOPENER_H
#define SONAVIA_VIEWER_FILEOPENER_H

#include "recordings/RecordingSession.h"
#include "viewer/core/DropPlan.h"
#include "viewer/core/FolderTask.h"

#include <QObject>
#include <QUrl>

#include <functional>

class QWidget;
class SettingsStore;
class UserPrompts;

/// Asks for recordings and folders, takes those that are dropped or named on the command line, and says what
/// is to be opened. Everything is ignored while a spectrogram is computed. GUI thread.
class FileOpener : public QObject
{
    Q_OBJECT

public:
    /// Owns nothing; `window` is the parent of the dialogs.
    FileOpener(QWidget& window, RecordingSession& session, SettingsStore& settings, UserPrompts& prompts);

    /// What is dropped asks before it ends what is being loaded: this says whether something is.
    void setLoadingCheck(std::function<bool()> isLoading);

    void openFile();
    void openFolder();
    /// Starts a folder evaluation. `chooseClasses` lets the user set up the class tree and says whether to go
    /// on; it is only called for a folder that can be evaluated.
    void openFolderForEvaluation(const std::function<bool()>& chooseClasses);
    /// A file or a folder, without asking.
    void open(const QString& path);
    void drop(const QList<QUrl>& urls);

signals:
    /// A single file is opened: what the lists held is no longer valid. Comes before recordingWanted().
    void listInvalidated();
    void recordingWanted(const QString& path);
    /// A list is to be filled; its first recording is the one to be shown.
    void folderWanted(const FolderTask& task);

private:
    QString askForFolder(const QString& title, const QString& start);
    /// Whether there is something to list; says so where there is not.
    bool hasFiles(const FolderTask& task);
    bool mayAbort(bool several);
    void takeFile(const QString& path);
    void takeFolder(const QString& folder);
    void takeFiles(const DropPlan& plan);

    QWidget& m_window;
    RecordingSession& m_session;
    SettingsStore& m_settings;
    UserPrompts& m_prompts;
    std::function<bool()> m_isLoading = [] { return false; };
};

#endif
