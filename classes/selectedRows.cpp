#include "classes/selectedRows.h"

#include "recordings/rows/RowItem.h"

#include <QItemSelectionModel>
#include <QTreeWidget>

#include <algorithm>

QList<QTreeWidgetItem*> selectedRows(const QTreeWidget& list)
{
    std::vector<int> numbers;
    const QItemSelection selection = list.selectionModel()->selection();
    for (const QItemSelectionRange& range : selection)
        for (int row = range.top(); row <= range.bottom(); ++row)
            numbers.push_back(row);
    // A selection may hold the columns of one row in several ranges.
    std::sort(numbers.begin(), numbers.end());
    numbers.erase(std::unique(numbers.begin(), numbers.end()), numbers.end());
    QList<QTreeWidgetItem*> rows;
    rows.reserve(static_cast<int>(numbers.size()));
    for (const int number : numbers)
        rows.append(list.topLevelItem(number));
    return rows;
}

QList<QTreeWidgetItem*> selectedRecordings(const QTreeWidget& list)
{
    QList<QTreeWidgetItem*> rows = selectedRows(list);
    rows.erase(std::remove_if(rows.begin(), rows.end(),
                              [](const QTreeWidgetItem* row) { return row->text(RowItem::Date).isEmpty(); }),
               rows.end());
    return rows;
}

QVector<ClassRecord> recordsOf(const QList<QTreeWidgetItem*>& rows)
{
    QVector<ClassRecord> records;
    records.reserve(rows.size());
    for (const QTreeWidgetItem* row : rows)
        records.append(RowItem::read(*row).record);
    return records;
}
