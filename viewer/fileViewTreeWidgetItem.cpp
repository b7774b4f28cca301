#include "viewer/fileViewTreeWidgetItem.h"

#include "recordings/rows/RowItem.h"
#include "viewer/core/SortKeys.h"

bool fileViewTreeWidgetItem::operator<(const QTreeWidgetItem& other) const
{
    const int column = m_tree ? m_tree->sortColumn() : RowItem::Name;
    if (column >= RowItem::Date && column <= RowItem::Length)
        if (const auto* row = dynamic_cast<const fileViewTreeWidgetItem*>(&other))
            return sortKey(column) < row->sortKey(column);
    return text(column) < other.text(column);
}

void fileViewTreeWidgetItem::setData(int column, int role, const QVariant& value)
{
    m_keyColumn = -1;
    QTreeWidgetItem::setData(column, role, value);
}

double fileViewTreeWidgetItem::sortKey(int column) const
{
    if (m_keyColumn == column)
        return m_key;
    m_keyColumn = column;
    switch (column) {
    case RowItem::Date:
        m_key = SortKeys::instant(text(RowItem::Date), text(RowItem::Time));
        break;
    case RowItem::Time:
        m_key = SortKeys::timeOfDay(text(RowItem::Time));
        break;
    default:
        m_key = SortKeys::number(text(RowItem::Length));
        break;
    }
    return m_key;
}
