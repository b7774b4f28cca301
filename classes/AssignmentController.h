#ifndef SONAVIA_CLASSES_ASSIGNMENTCONTROLLER_H
#define SONAVIA_CLASSES_ASSIGNMENTCONTROLLER_H

#include "classes/FileRun.h"
#include "classes/RowUpdater.h"
#include "recordings/classRecordEdit.h"

#include <QList>
#include <QObject>

#include <functional>
#include <memory>

class ClassTreePane;
class DirectEdits;
class FileDeletion;
class FileListMenus;
class QTreeWidget;
class QTreeWidgetItem;
class UserPrompts;
struct RecordingSession;

/// Gives classes to the recordings of the evaluation list, takes them away, and keeps the class tree with it:
/// from a gesture by button, key or menu over the questions to the runs over many files.
///
/// A run sends one request at a time through the signals below, which go to WriteFileBextThread; its answers
/// come in at the slots of the same kind. A row changes, by the same function of classRecordEdit that the
/// worker used, once its file has been written. Gestures during a run are ignored, and so are those that need
/// the whole list while it is being loaded.
///
/// GUI thread. The worker reads rows of these lists while a run is active: stop its thread before they go.
class AssignmentController : public QObject
{
    Q_OBJECT

public:
    struct Lists
    {
        QTreeWidget& evaluation; ///< view modes 2 to 4; its rows are counted in the class tree
        QTreeWidget& folder;     ///< view mode 1
    };

    /// Owns nothing of what it is given; becomes a child of `window`, which gets the dialogs.
    AssignmentController(QWidget& window, const Lists& lists, ClassTreePane& classes,
                         const RecordingSession& session, UserPrompts& prompts);
    ~AssignmentController() override;

    DirectEdits& directEdits() { return *m_directEdits; }
    FileDeletion& deletion() { return *m_deletion; }
    FileListMenus& menus() { return *m_menus; }

    /// A run is active: its gestures are ignored, and no row is to be changed or removed by others.
    bool isRunning() const { return m_run->isActive(); }
    /// Whether the headers of all rows have been read. Until then classes are not renamed or deleted, and
    /// files not reset: rows still to come would be missed.
    void setListComplete(bool complete) { m_listComplete = complete; }
    bool isListComplete() const { return m_listComplete; }

    /// As a click on the check box "Accept proposal" of the evaluation list's current row.
    void acceptProposal(bool accepted);

    // Gestures on the selected files of the evaluation list.
    void assignFileToClass(); ///< to the class whose button was pressed
    void assign(QTreeWidgetItem* classItem);
    /// By a letter key, without questions. False, and nothing happens, when no class has the shortcut ("<A>")
    /// or no file is selected.
    bool assignByShortcut(const QString& shortcut);
    void warnOfEmptyTree();       ///< in place of an assignment
    void assignAdditionalClass(); ///< asks for the class
    void unassignAllClasses();
    /// All files of the list, not only the selected ones.
    void resetAllFiles();

    // Gestures on the class tree.
    void deleteClass(QTreeWidgetItem* classItem);
    void renameClass(QTreeWidgetItem* classItem, const QString& newName);
    /// Makes the first file of a class current and asks for it to be loaded; an empty name means the first
    /// file without main class.
    void showFirstFileOf(const QString& className);

public slots:
    // Answers of the worker.
    void fileBextFinishedExtended(int index, const QString& wavDirectory, QTreeWidgetItem* classItem,
                                  const QList<QTreeWidgetItem*>& selectedFileItems, bool success);
    void renameClassFileFinished(int index, const QString& wavDirectory, const QString& oldClassName,
                                 const QString& newClassName,
                                 const QList<QTreeWidgetItem*>& selectedFileItems, bool success);
    void deleteClassFileFinished(int index, const QString& wavDirectory, const QString& deleteClassName,
                                 const QList<QTreeWidgetItem*>& selectedFileItems, bool success);
    void unassignFileFinished(int index, const QString& wavDirectory,
                              const QList<QTreeWidgetItem*>& selectedFileItems, bool success);
    void resetFileFinished(int index, const QString& wavDirectory,
                           const QList<QTreeWidgetItem*>& selectedFileItems, bool success);

signals:
    // Requests to the worker, for the file at `index` only.
    void signalWriteFileBextExtended(int index, const QString& wavDirectory, QTreeWidgetItem* classItem,
                                     const QList<QTreeWidgetItem*>& selectedFileItems);
    void signalRenameClassFile(int index, const QString& wavDirectory, const QString& oldClassName,
                               const QString& newClassName, const QList<QTreeWidgetItem*>& selectedFileItems);
    void signalDeleteClassFile(int index, const QString& wavDirectory, const QString& deleteClassName,
                               const QList<QTreeWidgetItem*>& selectedFileItems);
    void signalUnassignFile(int index, const QString& wavDirectory,
                            const QList<QTreeWidgetItem*>& selectedFileItems);
    void signalResetFile(int index, const QString& wavDirectory,
                         const QList<QTreeWidgetItem*>& selectedFileItems);

    /// From a gesture's first question to the end of its run: no list is to be made anew, and nothing opened
    /// that would.
    void rowsInUseChanged(bool inUse);
    /// The row has been made current and is to be loaded.
    void rowToBeLoaded(QTreeWidgetItem* row);
    /// All files have been reset and the class tree has been replaced: list the folder's WAV files again and
    /// read their headers with new proposals.
    void reloadAfterReset();

private:
    /// What the active run does to each of its files.
    struct Run
    {
        QList<QTreeWidgetItem*> files;
        std::function<RecordEdit(const RecordingRow&)> edit;
    };

    void startAssigning(QTreeWidgetItem* classItem, const QList<QTreeWidgetItem*>& files);
    void start(const QString& label, bool cancellable, Run run, std::function<void(int)> request,
               std::function<void(bool completed)> ended);
    void answered(int index, bool success);
    QList<QTreeWidgetItem*> carriersOf(const QString& className) const;
    QTreeWidgetItem* firstFileOf(const QString& className) const;
    void warnOfMissingClass(const QString& object);
    bool listIsComplete();
    bool confirms(const QString& question);

    QWidget& m_window;
    Lists m_lists;
    ClassTreePane& m_classes;
    const RecordingSession& m_session;
    UserPrompts& m_prompts;
    RowUpdater m_rows;
    FileRun* m_run; // child of the window
    Run m_present;
    bool m_listComplete = true;
    std::unique_ptr<DirectEdits> m_directEdits;
    std::unique_ptr<FileDeletion> m_deletion;
    std::unique_ptr<FileListMenus> m_menus;
};

#endif
