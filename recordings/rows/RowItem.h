#ifndef SONAVIA_RECORDINGS_ROWS_ROWITEM_H
#define SONAVIA_RECORDINGS_ROWS_ROWITEM_H

#include "recordings/RecordingRow.h"

#include <QColor>

#include <optional>

class QModelIndex;
class QTreeWidget;
class QTreeWidgetItem;

/// The one place that knows the columns of a file list: item to row value and back. Holds no item and no
/// state.
///
/// The accepted flag is the text of its column; whoever shows a check box there keeps that text from being
/// painted. GUI thread only, with the exception that read() names.
class RowItem
{
public:
    enum Column {
        Name,
        Date,
        Time,
        Length, ///< seconds
        Proposal,
        Accepted, ///< check box and flag
        Class1,
        Class2,
        Class3,
        Class4,
        Comment,
        ColumnCount
    };

    /// The header texts in the order of the columns.
    static QStringList headerTexts();

    /// The row that `item` shows. This is the one thing that WriteFileBextThread reads on its own thread: the
    /// GUI thread must not change the item, its list or the list's columns while a request is on its way.
    static RecordingRow read(const QTreeWidgetItem& item);

    /// Makes `item` show `row`; texts that it shows already are not set again. The name and whether proposals
    /// are shown stay as they are.
    static void write(QTreeWidgetItem& item, const RecordingRow& row);
    static void writeRecord(QTreeWidgetItem& item, const ClassRecord& record);

    /// The colour that a record gives its row: green when the proposal was accepted, orange-red when a class
    /// was assigned without, black when there is neither; none when the row keeps the colour it has.
    static std::optional<QColor> colour(const ClassRecord& record);

    /// Has the row of `index` drawn, if it is in sight: for those who change many with the signals of the
    /// model blocked, since a view looks at each of them.
    static void repaint(QTreeWidget& list, const QModelIndex& index);

    /// Draws name to class 4 in the colour of the record that `item` shows.
    static void applyColour(QTreeWidgetItem& item);
};

#endif
