#ifndef SONAVIA_CLASSES_SELECTEDROWS_H
#define SONAVIA_CLASSES_SELECTEDROWS_H

#include "recordings/RecordingRow.h"

#include <QList>
#include <QVector>

class QTreeWidget;
class QTreeWidgetItem;

/// The selected rows of a file list from top to bottom, in a time that does not depend on the selection's
/// pattern.
QList<QTreeWidgetItem*> selectedRows(const QTreeWidget& list);

/// Those of them whose header has been read: nothing is known yet of the record of any other.
QList<QTreeWidgetItem*> selectedRecordings(const QTreeWidget& list);

QVector<ClassRecord> recordsOf(const QList<QTreeWidgetItem*>& rows);

#endif
