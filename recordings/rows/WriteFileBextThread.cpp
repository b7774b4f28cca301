#include "recordings/rows/WriteFileBextThread.h"

#include "recordings/classRecordEdit.h"
#include "recordings/rows/RowItem.h"
#include "recordings/writeBextDescription.h"

#include <QTreeWidgetItem>

namespace {

/// Applies an edit to the file of one row. Whether the file is as it should be. A text that does not fit is
/// not written: it would run over what the recorder has said about itself.
template <typename Edit>
bool applyToFile(int index, const QString& wavDirectory, const QList<QTreeWidgetItem*>& items, Edit edit)
{
    const QTreeWidgetItem* item = items.value(index);
    if (!item)
        return false;
    const RecordingRow row = RowItem::read(*item);
    const RecordEdit change = edit(row);
    if (!change.writesFile())
        return change.possible;
    return change.fits() &&
           writeBextDescription(wavDirectory + QLatin1Char('/') + row.name, change.description);
}

// The columns of the class tree that concern the worker.
QString className(const QTreeWidgetItem* classItem)
{
    return classItem ? classItem->text(0) : QString();
}

bool isAborting(const QTreeWidgetItem* classItem)
{
    return classItem && classItem->text(1) == QLatin1String("Aborting");
}

} // namespace

void WriteFileBextThread::writeFileBextExtended(int index, const QString& wavDirectory,
                                                QTreeWidgetItem* classItem,
                                                const QList<QTreeWidgetItem*>& selectedFileItems)
{
    const QString name = className(classItem);
    const bool success =
        applyToFile(index, wavDirectory, selectedFileItems,
                    [&name](const RecordingRow& row) { return classRecordEdit::assign(row, name); });
    if (!isAborting(classItem))
        emit signalFileBextFinishedExtended(index, wavDirectory, classItem, selectedFileItems, success);
}

void WriteFileBextThread::renameClassFile(int index, const QString& wavDirectory, const QString& oldClassName,
                                          const QString& newClassName,
                                          const QList<QTreeWidgetItem*>& selectedFileItems)
{
    const bool success = applyToFile(index, wavDirectory, selectedFileItems, [&](const RecordingRow& row) {
        return classRecordEdit::rename(row, oldClassName, newClassName);
    });
    emit signalRenameClassFile(index, wavDirectory, oldClassName, newClassName, selectedFileItems, success);
}

void WriteFileBextThread::deleteClassFile(int index, const QString& wavDirectory,
                                          const QString& deleteClassName,
                                          const QList<QTreeWidgetItem*>& selectedFileItems)
{
    const bool success = applyToFile(index, wavDirectory, selectedFileItems, [&](const RecordingRow& row) {
        return classRecordEdit::remove(row, deleteClassName);
    });
    emit signalDeleteClassFile(index, wavDirectory, deleteClassName, selectedFileItems, success);
}

void WriteFileBextThread::unassignFile(int index, const QString& wavDirectory,
                                       const QList<QTreeWidgetItem*>& selectedFileItems)
{
    const bool success = applyToFile(index, wavDirectory, selectedFileItems, classRecordEdit::unassignAll);
    emit signalUnassignFile(index, wavDirectory, selectedFileItems, success);
}

void WriteFileBextThread::resetFile(int index, const QString& wavDirectory,
                                    const QList<QTreeWidgetItem*>& selectedFileItems)
{
    const bool success = applyToFile(index, wavDirectory, selectedFileItems, classRecordEdit::reset);
    emit signalResetFile(index, wavDirectory, selectedFileItems, success);
}
