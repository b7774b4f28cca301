#ifndef SONAVIA_CLASSES_FILEDELETION_H
#define SONAVIA_CLASSES_FILEDELETION_H

#include <QList>
#include <QObject>

class ClassTreePane;
class FileRun;
class QTreeWidget;
class QTreeWidgetItem;
class UserPrompts;
struct RecordingSession;

/// Removes recordings from disk, and their rows from the list, after a question. A file that cannot be
/// removed is reported and keeps its row. GUI thread.
class FileDeletion : public QObject
{
    Q_OBJECT

public:
    /// Owns nothing. Rows of `countedList` are counted in `classes`.
    FileDeletion(QTreeWidget& countedList, ClassTreePane& classes, const RecordingSession& session,
                 FileRun& run, UserPrompts& prompts);

    void deleteSelected(QTreeWidget& list);

signals:
    /// Rows have gone from `list`.
    void recordingsDeleted(QTreeWidget* list);

private:
    bool confirms(const QList<QTreeWidgetItem*>& rows);
    void removeRows(QTreeWidget& list, const QList<QTreeWidgetItem*>& rows);

    QTreeWidget& m_countedList;
    ClassTreePane& m_classes;
    const RecordingSession& m_session;
    FileRun& m_run;
    UserPrompts& m_prompts;
};

#endif
