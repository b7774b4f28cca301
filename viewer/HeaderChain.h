#ifndef SONAVIA_VIEWER_HEADERCHAIN_H
#define SONAVIA_VIEWER_HEADERCHAIN_H

#include "viewer/core/FolderTask.h"

#include <QObject>

#include <functional>
#include <optional>

class FileListPane;
class UserPrompts;
struct RecordingSession;

/// Fills a file list: builds its rows, asks for the first recording to be shown, and has the header worker
/// read one recording after the other, each request following the answer to the one before. It also holds the
/// window's view mode, which changes when a list is built.
///
/// A task that comes while headers are read waits for the answer on its way; then the list is built anew.
/// GUI thread.
class HeaderChain : public QObject
{
    Q_OBJECT

public:
    /// How the worker's thread is started and stopped. Both return at once: a thread is only stopped when the
    /// worker has answered. Requests sent before it runs are kept for it.
    struct Thread
    {
        std::function<void()> start;
        std::function<void()> stop;
    };

    /// Owns nothing. View mode 1 fills `folderList`, the modes above it `evaluationList`.
    HeaderChain(RecordingSession& session, FileListPane& folderList, FileListPane& evaluationList,
                UserPrompts& prompts, Thread thread, QObject* parent = nullptr);

    /// Fills the list that the task is for. The task is not empty.
    void open(const FolderTask& task);
    /// A single file is shown now: view mode 0, and what is still being read ends.
    void openSingleFile();

    /// Headers are being read for a list that is still wanted.
    bool isLoading() const { return m_state == State::Loading; }

    /// While a run over files works with the rows, no list is rebuilt: what is opened meanwhile waits until
    /// the rows are free again.
    void setRowsHeld(bool held);

    // The slots of the main window, which forwards to them.
    void fileInfoHeaderFinished(int index, const QString& batClass, const QString& batClass2,
                                const QString& batClass3, const QString& batClass4, const QString& autoClass,
                                const QString& accepted, const QString& length, const QString& date,
                                const QString& time, const QString& comment);
    /// Lists the folder again and builds the list anew.
    void restartFileHeaderLoading();

signals:
    /// The request to the worker, see GetFileInfoThread::getFileHeaderInfo().
    void signalGetFileHeaderInfo(int index, const QString& filePath, bool calcClasses,
                                 const QString& recorderResultFileName, int reviewMode);
    /// The first recording of a new list is to be shown.
    void recordingWanted(const QString& path);
    void viewModeChanged(int viewMode);
    /// Headers are being read, or no longer.
    void loadingChanged(bool loading);
    /// All headers of the list are read, or not (any more).
    void listCompleteChanged(bool complete);
    /// Whether files, folders and evaluations can be opened from the menu: not while an evaluation's headers
    /// are read.
    void openingAllowedChanged(bool allowed);

private:
    enum class State {
        Idle,
        Loading, ///< a request is on its way
        Stopping ///< likewise, but its answer is not wanted
    };

    void begin(const FolderTask& task);
    void buildList();
    void request(int index);
    void finish();
    void stop();
    void continueWithWaiting();
    void setViewMode(int viewMode);
    void rowsRemoved(const FileListPane* pane, int first, int last);
    FileListPane& list() const;

    RecordingSession& m_session;
    FileListPane& m_folderList;
    FileListPane& m_evaluationList;
    UserPrompts& m_prompts;
    Thread m_thread;

    State m_state = State::Idle;
    FolderTask m_task;
    std::optional<FolderTask> m_waiting;
    bool m_rowsHeld = false;
    int m_requested = -1; // the index in the request on its way
    int m_row = -1;       // where its row stands now, -1 when that was deleted ...
    int m_next = 0;       // ... and the row to go on with
};

#endif
