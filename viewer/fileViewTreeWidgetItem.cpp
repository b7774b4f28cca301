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

QVariant fileViewTreeWidgetItem::data(int column, int role) const
{
    if (role == Qt::ForegroundRole && column <= RowItem::Class4)
        return m_foreground.style() == Qt::NoBrush ? QVariant() : QVariant(m_foreground);
    if (role == Qt::TextAlignmentRole && column == RowItem::Length)
        return int(Qt::AlignCenter);
    return QTreeWidgetItem::data(column, role);
}

void fileViewTreeWidgetItem::setData(int column, int role, const QVariant& value)
{
    if (role == Qt::ForegroundRole && column <= RowItem::Class4) {
        m_foreground = value.isNull() ? QBrush(Qt::NoBrush) : value.value<QBrush>();
        // Which looks for the row in the list, and does so even when nobody is to hear of it.
        if (m_tree && !m_tree->model()->signalsBlocked())
            emitDataChanged();
        return;
    }
    m_keyColumn = -1; // forget what was worked out for sorting
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
