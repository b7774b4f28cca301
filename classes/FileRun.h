#ifndef SONAVIA_CLASSES_FILERUN_H
#define SONAVIA_CLASSES_FILERUN_H

#include "base/FileChain.h"
#include "base/UserPrompts.h"

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <functional>
#include <memory>

class QProgressDialog;
class QWidget;

/// A change of many files, one after the other, with its progress dialog and the questions about files that
/// failed. One run at a time; while it is active, keys and mouse do nothing in the window, also before the
/// progress dialog comes up (after 500 ms, or when the run is seen to take longer). GUI thread.
class FileRun : public QObject
{
    Q_OBJECT

public:
    struct Setup
    {
        QString label;           ///< of the progress dialog
        bool cancellable = true; ///< it has a button "Cancel"
        int count = 0;           ///< files
        /// What is said when the file at an index failed.
        std::function<QString(int index)> errorText;
        /// Where set, asks in place of the question that start() and startHere() describe.
        std::function<FileChain::ErrorChoice(int index)> askAboutError = nullptr;
        /// The run is over; `completed` unless it was cancelled. The run is no longer active then.
        std::function<void(bool completed)> ended = [](bool) {};
    };

    /// Owns nothing; becomes a child of `window`, which gets the progress dialogs.
    FileRun(QWidget& window, UserPrompts& prompts);
    ~FileRun() override;

    /// Each call of `request` is to be followed by one answered() for the same index. A failure asks with
    /// "Skip", "Skip for all" and "Cancel". Without files the run ends at once and shows nothing.
    void start(Setup setup, std::function<void(int index)> request);
    void answered(int index, bool success);
    bool expects(int index) const { return m_chain.expects(index); }

    /// The same with work done here, on the GUI thread, in slices that leave it time to draw: `work` handles
    /// the file at an index and returns whether that succeeded. The first file is done at once. A failure is
    /// only told, with "Skip for all" besides "OK" where more files follow: however the box is closed, those
    /// are handled.
    void startHere(Setup setup, std::function<bool(int index)> work);

    bool isActive() const { return m_chain.isActive(); }

    /// While one lives, rows are in use as during a run: between choosing them and starting, a question may
    /// run the event loop.
    class RowsInUse
    {
    public:
        explicit RowsInUse(FileRun& run) : m_run(run) { m_run.useRows(); }
        ~RowsInUse() { m_run.releaseRows(); }
        RowsInUse(const RowsInUse&) = delete;
        RowsInUse& operator=(const RowsInUse&) = delete;

    private:
        FileRun& m_run;
    };

signals:
    /// Rows that a run works with are not to be removed, nor changed by others.
    void rowsInUseChanged(bool inUse);

protected:
    /// Keeps the user's input from the window.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void useRows();
    void releaseRows();
    void begin(Setup setup);
    void follow(FileChain::Step step);
    void workOn();
    FileChain::ErrorChoice askAboutError();
    void makeProgress();
    void showProgress(int index);
    void end(bool completed);

    QWidget& m_window;
    UserPrompts& m_prompts;
    FileChain m_chain;
    int m_rowUsers = 0;
    Setup m_setup;
    std::function<void(int)> m_request; // empty when the work is done here
    std::function<bool(int)> m_work;
    QTimer m_workTimer; // fires when the event loop has nothing else to do
    std::unique_ptr<QProgressDialog> m_progress;
    QElapsedTimer m_sinceProgress;
};

#endif
