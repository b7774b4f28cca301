#include "evaluation/ListedRows.h"

#include "recordings/RecordingSession.h"
#include "recordings/rows/RowItem.h"

#include <QTreeWidget>

const QTreeWidget* ListedRows::list() const
{
    if (m_session.viewMode == 0)
        return nullptr;
    return m_session.viewMode == 1 ? &m_folderList : &m_evaluationList;
}

void ListedRows::visit(const Choice& choice, const std::function<void(const QTreeWidgetItem&)>& work) const
{
    const int count = list() ? list()->topLevelItemCount() : 0;
    for (int i = 0; i < count; ++i)
        if (const QTreeWidgetItem* item = list()->topLevelItem(i); choice.contains(item))
            work(*item);
}

QVector<RecordingRow> ListedRows::read(const Choice& choice) const
{
    QVector<RecordingRow> rows;
    visit(choice, [&rows](const QTreeWidgetItem& item) { rows.append(RowItem::read(item)); });
    return rows;
}

QString ListedRows::classText(const Choice& choice, ClassChoice::Unassigned unassigned) const
{
    ClassChoice::Tally tally(unassigned);
    const bool byDetection = unassigned == ClassChoice::Unassigned::ByDetection;
    visit(choice, [&tally, byDetection](const QTreeWidgetItem& item) {
        ClassRecord record;
        if (byDetection)
            record.autoClass = item.text(RowItem::Proposal);
        for (std::size_t slot = 0; slot < record.classes.size(); ++slot)
            record.classes[slot] = item.text(RowItem::Class1 + static_cast<int>(slot));
        tally.add(record);
    });
    return tally.text();
}
