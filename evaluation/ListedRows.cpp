#include "evaluation/ListedRows.h"

#include "recordings/RecordingSession.h"
#include "recordings/rows/RowItem.h"

#include <QSet>
#include <QTreeWidget>

const QTreeWidget* ListedRows::list() const
{
    if (m_session.viewMode == 0)
        return nullptr;
    return m_session.viewMode == 1 ? &m_folderList : &m_evaluationList;
}

QVector<RecordingRow> ListedRows::all() const
{
    QVector<RecordingRow> rows;
    const int count = list() ? list()->topLevelItemCount() : 0;
    rows.reserve(count);
    for (int i = 0; i < count; ++i)
        rows.append(RowItem::read(*list()->topLevelItem(i)));
    return rows;
}

QVector<RecordingRow> ListedRows::of(const QList<QTreeWidgetItem*>& items) const
{
    QVector<RecordingRow> rows;
    const QSet<const QTreeWidgetItem*> wanted(items.cbegin(), items.cend());
    const int count = list() ? list()->topLevelItemCount() : 0;
    for (int i = 0; i < count; ++i)
        if (wanted.contains(list()->topLevelItem(i)))
            rows.append(RowItem::read(*list()->topLevelItem(i)));
    return rows;
}
