#ifndef SONAVIA_VIEWER_FILEOPENER_H
#define SONAVIA_VIEWER_FILEOPENER_H

#include "recordings/RecordingSession.h"

#include <QObject>
#include <QUrl>

class QWidget;
class SettingsStore;
class UserPrompts;

/// Asks for recordings and folders, takes those that are dropped or named on the command line, and says which
/// recording is to be loaded. Everything is ignored while a spectrogram is computed. GUI thread.
class FileOpener : public QObject
{
    Q_OBJECT

public:
    /// Owns nothing; `window` is the parent of the dialogs.
    FileOpener(QWidget& window, RecordingSession& session, SettingsStore& settings, UserPrompts& prompts);

    void openFile();
    void openFolder();
    /// A file or a folder, without asking.
    void open(const QString& path);
    void drop(const QList<QUrl>& urls);

signals:
    /// What the lists held is no longer valid; comes before recordingWanted().
    void listInvalidated();
    void recordingWanted(const QString& path);

private:
    void takeFile(const QString& path);
    void takeFolder(const QString& folder);

    QWidget& m_window;
    RecordingSession& m_session;
    SettingsStore& m_settings;
    UserPrompts& m_prompts;
};

#endif
