#ifndef SONAVIA_CLASSES_FILELISTMENUS_H
#define SONAVIA_CLASSES_FILELISTMENUS_H

#include <QList>
#include <QObject>

#include <memory>

class AssignmentController;
class ClassTreePane;
class QMenu;
class QTreeWidget;
class QTreeWidgetItem;

/// The context menus of both file lists, for the selected files. What has no effect on any of them is greyed.
/// GUI thread.
class FileListMenus : public QObject
{
    Q_OBJECT

public:
    /// Owns nothing. The menus call `assigning`.
    FileListMenus(AssignmentController& assigning, QTreeWidget& evaluation, QTreeWidget& folder,
                  ClassTreePane& classes);

    // At a position of the list's viewport.
    void showEvaluationMenu(const QPoint& pos);
    void showFolderMenu(const QPoint& pos);

    std::unique_ptr<QMenu> evaluationMenu();
    std::unique_ptr<QMenu> folderMenu();

signals:
    // Of the class in a slot, see classRecordEdit.
    void reassigningWanted(int slot);
    void unassigningWanted(int slot);
    void csvExportWanted(const QList<QTreeWidgetItem*>& selectedItems);
    void vantorExportWanted(const QList<QTreeWidgetItem*>& selectedItems);

private:
    void addAssigning(QMenu& menu);
    void addSlots(QMenu& menu);
    void addExports(QMenu& menu, const QTreeWidget& list, int count);
    void addDeletion(QMenu& menu, QTreeWidget& list, int count);

    AssignmentController& m_assigning;
    QTreeWidget& m_evaluation;
    QTreeWidget& m_folder;
    ClassTreePane& m_classes;
};

#endif
