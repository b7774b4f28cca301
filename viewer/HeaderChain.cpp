#include "viewer/HeaderChain.h"

#include "base/UserPrompts.h"
#include "recordings/RecordingRow.h"
#include "recordings/RecordingSession.h"
#include "recordings/rows/RowItem.h"
#include "viewer/FileListPane.h"

#include <QTreeWidget>

#include <utility>

HeaderChain::HeaderChain(RecordingSession& session, FileListPane& folderList, FileListPane& evaluationList,
                         UserPrompts& prompts, Thread thread, QObject* parent)
    : QObject(parent),
      m_session(session),
      m_folderList(folderList),
      m_evaluationList(evaluationList),
      m_prompts(prompts),
      m_thread(std::move(thread))
{
    for (FileListPane* pane : {&folderList, &evaluationList})
        connect(pane->list().model(), &QAbstractItemModel::rowsRemoved, this,
                [this, pane](const QModelIndex&, int first, int last) { rowsRemoved(pane, first, last); });
}

FileListPane& HeaderChain::list() const
{
    return m_task.viewMode == 1 ? m_folderList : m_evaluationList;
}

void HeaderChain::open(const FolderTask& task)
{
    emit listCompleteChanged(false);
    if (m_state == State::Idle && !m_rowsHeld) {
        begin(task);
        return;
    }
    m_waiting = task;
    if (m_state == State::Loading)
        m_state = State::Stopping;
}

void HeaderChain::openSingleFile()
{
    emit listCompleteChanged(false);
    m_waiting.reset();
    if (m_state == State::Loading)
        m_state = State::Stopping;
    setViewMode(0);
}

void HeaderChain::setRowsHeld(bool held)
{
    m_rowsHeld = held;
    if (!held && m_state == State::Idle)
        continueWithWaiting();
}

void HeaderChain::restartFileHeaderLoading()
{
    if (m_session.viewMode != 0)
        open(m_task.listedAgain());
}

void HeaderChain::begin(const FolderTask& task)
{
    m_task = task;
    m_session.folder = m_task.folder;
    setViewMode(m_task.viewMode);
    buildList();
    if (m_task.isEmpty()) { // its files went while it waited
        m_prompts.warn(QStringLiteral("Warning"), QStringLiteral("No Bat Call Files in Folder"));
        return;
    }
    m_state = State::Loading;
    emit loadingChanged(true);
    if (m_task.viewMode > 1)
        emit openingAllowedChanged(false);
    m_thread.start();
    emit recordingWanted(m_task.pathOf(m_task.names.first()));
    request(0);
}

void HeaderChain::buildList()
{
    if (m_task.viewMode > 1)
        m_evaluationList.setProposalsShown(m_task.viewMode > 2);
    list().beginLoading(m_task.names);
    if (m_task.isEmpty())
        list().endLoading(false);
}

void HeaderChain::request(int index)
{
    m_requested = m_row = index;
    m_next = index + 1;
    emit signalGetFileHeaderInfo(index, m_task.pathOf(list().row(index)->text(RowItem::Name)),
                                 m_task.calcClasses, m_task.recorderResultFileName, m_task.reviewMode);
}

void HeaderChain::fileInfoHeaderFinished(int index, const QString& batClass, const QString& batClass2,
                                         const QString& batClass3, const QString& batClass4,
                                         const QString& autoClass, const QString& accepted,
                                         const QString& length, const QString& date, const QString& time,
                                         const QString& comment)
{
    if (m_state == State::Idle || index != m_requested)
        return; // nobody asked
    m_requested = -1;
    if (m_state == State::Stopping) {
        stop();
        return;
    }
    if (m_row >= 0) {
        RecordingRow row;
        row.date = date;
        row.time = time;
        row.length = length;
        row.record = {{batClass, batClass2, batClass3, batClass4}, autoClass, accepted, comment};
        list().fillRow(m_row, row);
    }
    const int rows = list().rowCount();
    if (m_next >= rows) {
        finish();
        return;
    }
    list().setProgress(100 * m_next / rows);
    request(m_next);
}

void HeaderChain::finish()
{
    m_state = State::Idle;
    m_thread.stop();
    list().endLoading(true);
    emit loadingChanged(false);
    emit listCompleteChanged(true);
    emit openingAllowedChanged(true);
}

void HeaderChain::stop()
{
    m_state = State::Idle;
    m_thread.stop();
    list().endLoading(false);
    emit loadingChanged(false);
    emit openingAllowedChanged(true);
    if (!m_rowsHeld)
        continueWithWaiting();
}

void HeaderChain::continueWithWaiting()
{
    if (m_waiting)
        begin(std::exchange(m_waiting, std::nullopt)->listedAgain());
}

void HeaderChain::setViewMode(int viewMode)
{
    m_session.viewMode = viewMode;
    emit viewModeChanged(viewMode);
}

void HeaderChain::rowsRemoved(const FileListPane* pane, int first, int last)
{
    // Files can be deleted while the headers of others are read; what follows moves up.
    if (m_state == State::Idle || pane != &list())
        return;
    const auto moved = [=](int row) { return row > last ? row - (last - first + 1) : qMin(row, first); };
    m_row = m_row >= first && m_row <= last ? -1 : moved(m_row);
    m_next = moved(m_next);
}
