#ifndef SONAVIA_RECORDINGS_ROWS_WRITEFILEBEXTTHREAD_H
#define SONAVIA_RECORDINGS_ROWS_WRITEFILEBEXTTHREAD_H

#include <QList>
#include <QObject>
#include <QString>

class QTreeWidgetItem;

/// The worker that changes class records in WAV files, off the GUI thread.
///
/// Made on the GUI thread, without parent, and moved to a thread of its own, which is to end (quit and wait)
/// before the worker is deleted. Requests are queued signals connected to the slots, "QTreeWidgetItem*" and
/// "QList<QTreeWidgetItem*>" being registered first. A request handles the file of selectedFileItems[index]
/// and no other, and is answered by one signal that carries its arguments back. `success` tells that the file
/// is as it should be: it was written, or nothing needed writing.
///
/// The items stay the lists' own and are only read (RowItem::read()). From the request to its answer the GUI
/// thread must neither change nor delete them; afterwards it applies the same function of classRecordEdit to
/// the row. The next request may come once the answer has arrived. The worker keeps nothing in between.
class WriteFileBextThread : public QObject
{
    Q_OBJECT

public slots:
    /// Assigns the class named in column 0 of `classItem`. No answer when column 1 of that item reads
    /// "Aborting" at the end.
    void writeFileBextExtended(int index, const QString& wavDirectory, QTreeWidgetItem* classItem,
                               const QList<QTreeWidgetItem*>& selectedFileItems);
    void renameClassFile(int index, const QString& wavDirectory, const QString& oldClassName,
                         const QString& newClassName, const QList<QTreeWidgetItem*>& selectedFileItems);
    void deleteClassFile(int index, const QString& wavDirectory, const QString& deleteClassName,
                         const QList<QTreeWidgetItem*>& selectedFileItems);
    /// Removes all classes.
    void unassignFile(int index, const QString& wavDirectory,
                      const QList<QTreeWidgetItem*>& selectedFileItems);
    /// Leaves nothing but the comment.
    void resetFile(int index, const QString& wavDirectory, const QList<QTreeWidgetItem*>& selectedFileItems);

signals:
    void signalFileBextFinishedExtended(int index, const QString& wavDirectory, QTreeWidgetItem* classItem,
                                        const QList<QTreeWidgetItem*>& selectedFileItems, bool success);
    void signalRenameClassFile(int index, const QString& wavDirectory, const QString& oldClassName,
                               const QString& newClassName, const QList<QTreeWidgetItem*>& selectedFileItems,
                               bool success);
    void signalDeleteClassFile(int index, const QString& wavDirectory, const QString& deleteClassName,
                               const QList<QTreeWidgetItem*>& selectedFileItems, bool success);
    void signalUnassignFile(int index, const QString& wavDirectory,
                            const QList<QTreeWidgetItem*>& selectedFileItems, bool success);
    void signalResetFile(int index, const QString& wavDirectory,
                         const QList<QTreeWidgetItem*>& selectedFileItems, bool success);
};

#endif
