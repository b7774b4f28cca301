#ifndef SONAVIA_CLASSES_DIRECTEDITS_H
#define SONAVIA_CLASSES_DIRECTEDITS_H

#include "recordings/classRecordEdit.h"

#include <QList>
#include <QObject>

#include <functional>

class ClassTreePane;
class FileRun;
class QTreeWidget;
class QTreeWidgetItem;
class RowUpdater;
class UserPrompts;
struct RecordingSession;

/// The changes that are written on the GUI thread: a comment, accepting a proposal, and putting another class
/// into a slot or taking it out, for the selected files of the evaluation list. A row changes once its file
/// has been written. While a run is active nothing happens. GUI thread.
class DirectEdits : public QObject
{
    Q_OBJECT

public:
    /// Owns nothing.
    DirectEdits(QTreeWidget& list, ClassTreePane& classes, const RecordingSession& session, FileRun& run,
                RowUpdater& rows, UserPrompts& prompts);

    /// The user has changed the check box "Accept proposal" of a row. Until the file is written, the row
    /// keeps its flag. Nothing happens to a row whose header is not yet read.
    void acceptProposal(QTreeWidgetItem* row, bool accepted);
    /// The user has typed a comment; the row, which may be one of any list, still has the old one.
    void setComment(QTreeWidgetItem* row, const QString& comment);

    // Slots count from 0: slot 0 is "class 1".
    void reassign(int slot); ///< asks for the class
    void unassign(int slot);

private:
    using Edit = std::function<RecordEdit(const RecordingRow&)>;

    void applyToSelected(const QString& label, const QList<QTreeWidgetItem*>& rows, const Edit& edit,
                         const QString& loss);
    bool apply(QTreeWidgetItem& row, const RecordEdit& edit);

    QTreeWidget& m_list;
    ClassTreePane& m_classes;
    const RecordingSession& m_session;
    FileRun& m_run;
    RowUpdater& m_rows;
    UserPrompts& m_prompts;
};

#endif
