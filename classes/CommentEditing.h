#ifndef SONAVIA_CLASSES_COMMENTEDITING_H
#define SONAVIA_CLASSES_COMMENTEDITING_H

#include <QList>
#include <QObject>

class CommentDelegate;
class FileRun;
class QTreeWidget;
class QTreeWidgetItem;
class UserPrompts;
struct RecordingSession;

/// The comments of recordings, edited in the file lists and written into the files at once. Only edits by the
/// user are written, not rows being filled. When a file cannot be written its row gets the old comment back.
/// GUI thread.
class CommentEditing : public QObject
{
    Q_OBJECT

public:
    /// Owns nothing.
    CommentEditing(const RecordingSession& session, const FileRun& run, UserPrompts& prompts);

    /// Takes over the comment column of a list, and its key F2. Nothing else opens an editor in the list.
    void addList(QTreeWidget& list);

    /// Opens the editor; nothing while a recording is computed, a run is active or the row's header has not
    /// been read.
    void edit(QTreeWidgetItem* row);

    /// An item of one of the lists has changed.
    void itemChanged(QTreeWidgetItem* item, int column);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isBlocked() const;
    bool write(QTreeWidgetItem& item, const QString& previousComment);

    const RecordingSession& m_session;
    const FileRun& m_run;
    UserPrompts& m_prompts;
    QList<CommentDelegate*> m_delegates; // children of their lists
};

#endif
