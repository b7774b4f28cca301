#include "viewer/RecordingNavigator.h"

#include "recordings/RecordingSession.h"
#include "recordings/rows/RowItem.h"
#include "viewer/FileListPane.h"

#include <QTreeWidget>

RecordingNavigator::RecordingNavigator(FileListPane& pane, const RecordingSession& session, QObject* parent)
    : QObject(parent), m_pane(pane), m_session(session)
{}

void RecordingNavigator::previous()
{
    step(-1);
}

void RecordingNavigator::next()
{
    step(1);
}

void RecordingNavigator::step(int direction)
{
    QTreeWidgetItem* current = m_pane.list().currentItem();
    if (m_session.busy || !current)
        return;
    int index = m_pane.list().indexOfTopLevelItem(current) + direction;
    while (m_pane.row(index) && !(m_pane.row(index)->flags() & Qt::ItemIsSelectable))
        index += direction;
    if (QTreeWidgetItem* item = m_pane.row(index))
        show(item);
}

void RecordingNavigator::itemDoubleClicked(QTreeWidgetItem* item, int column)
{
    if (m_session.busy)
        return;
    if (column >= RowItem::Comment) {
        m_pane.editComment(item);
        return;
    }
    // The check box is not the row: two quick clicks on it change it twice.
    const bool onBox = column == RowItem::Accepted && m_pane.hasAcceptBox(item);
    const bool unread =
        m_pane.purpose() == FileListPane::Purpose::Assignment && item->text(RowItem::Date).isEmpty();
    if (!onBox && !unread && (item->flags() & Qt::ItemIsEnabled))
        load(item);
}

void RecordingNavigator::loadCurrent()
{
    if (QTreeWidgetItem* item = m_pane.list().currentItem())
        itemDoubleClicked(item, RowItem::Name);
}

void RecordingNavigator::show(QTreeWidgetItem* item)
{
    if (m_session.busy)
        return;
    m_pane.list().setCurrentItem(item);
    load(item);
}

void RecordingNavigator::load(const QTreeWidgetItem* item)
{
    emit recordingWanted(m_session.folder + QLatin1Char('/') + item->text(RowItem::Name));
}
