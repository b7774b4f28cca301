#ifndef SONAVIA_RECORDINGS_GETFILEINFOTHREAD_H
#define SONAVIA_RECORDINGS_GETFILEINFOTHREAD_H

#include "recordings/RecorderResult.h"
#include "recordings/RecordingFile.h"
#include "recordings/RecordingRow.h"

#include <QObject>

#include <atomic>

class UserPrompts;

/// The worker that reads what a file list shows of a recording, off the GUI thread, and that brings records
/// into line with the class tree of the evaluation modes that have a fixed one.
///
/// Made on the GUI thread, without parent, and moved to a thread of its own, which is to end (quit and wait)
/// before the worker is deleted. Requests are queued signals connected to the slot; each is answered by
/// exactly one signalFileInfoHeaderFinished(), whatever the file is. Nothing about a recording is kept from
/// one request to the next; the recorder's results are.
class GetFileInfoThread : public QObject
{
    Q_OBJECT

public:
    /// `prompts` outlives the worker.
    explicit GetFileInfoThread(UserPrompts& prompts) : m_prompts(prompts) {}

    /// For closing the program: a running detection ends within milliseconds, and its request as well as
    /// those still queued get no answer any more. For good. Callable from any thread.
    void requestStop() { m_stop = true; }

public slots:
    /// Reads the header of one recording, never its samples, unless a proposal has to be computed.
    ///
    /// index                   of the row that asks; comes back with the answer
    /// wavFileName             full path
    /// calcClasses             detect calls and propose a class where the record has no proposal
    /// recorderResultFileName  else, where not empty: take the proposal from the recorder's result file
    /// reviewMode              0 its groups, 1 its species; see RecorderResult::Mode
    ///
    /// With a proposal of either kind, classes that the mode does not know are cleared, and the changed
    /// record is written into the file.
    void getFileHeaderInfo(int index, const QString& wavFileName, bool calcClasses,
                           const QString& recorderResultFileName, int reviewMode);

signals:
    /// What is unknown reads "N/A" in length, date and time, and is empty elsewhere.
    void signalFileInfoHeaderFinished(int index, const QString& batClass, const QString& batClass2,
                                      const QString& batClass3, const QString& batClass4,
                                      const QString& autoClass, const QString& accepted,
                                      const QString& length, const QString& date, const QString& time,
                                      const QString& comment);
    /// Never emitted: the list that asks counts the answers itself.
    void signalProgressBar(int k);

private:
    RecordingRow readHeader(const QString& path);
    // The two evaluation modes with fixed classes; each brings the record into line and writes it if changed.
    void categorize(const QString& path, ClassRecord& record);
    void review(const QString& path, const QString& resultFileName, int reviewMode, ClassRecord& record);
    /// False where there is none to go on with, because the samples could not be loaded or on a stop.
    bool computeProposal(const QString& path, ClassRecord& record);

    UserPrompts& m_prompts;
    RecordingFile m_file;
    RecorderResult m_recorderResult;
    std::atomic<bool> m_stop{false};
};

#endif
