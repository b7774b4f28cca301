#include "classes/FileListMenus.h"

#include "classes/AssignmentController.h"
#include "classes/ClassTreePane.h"
#include "classes/FileDeletion.h"
#include "classes/core/AssignmentPlan.h"
#include "classes/selectedRows.h"

#include <QIcon>
#include <QMenu>
#include <QTreeWidget>

namespace {

QIcon icon(const char* name)
{
    return QIcon(QStringLiteral(":/images/") + QLatin1String(name));
}

/// A menu takes "&" for the mark of a key.
QString menuText(QString className)
{
    return className.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace

FileListMenus::FileListMenus(AssignmentController& assigning, QTreeWidget& evaluation, QTreeWidget& folder,
                             ClassTreePane& classes)
    : m_assigning(assigning), m_evaluation(evaluation), m_folder(folder), m_classes(classes)
{}

void FileListMenus::showEvaluationMenu(const QPoint& pos)
{
    evaluationMenu()->exec(m_evaluation.viewport()->mapToGlobal(pos));
}

void FileListMenus::showFolderMenu(const QPoint& pos)
{
    folderMenu()->exec(m_folder.viewport()->mapToGlobal(pos));
}

std::unique_ptr<QMenu> FileListMenus::evaluationMenu()
{
    auto menu = std::make_unique<QMenu>(&m_evaluation);
    const QList<QTreeWidgetItem*> rows = selectedRows(m_evaluation);
    if (!rows.isEmpty()) {
        addAssigning(*menu);
        menu->addSeparator();
    }
    menu->addAction(QStringLiteral("&Reset all files"), &m_assigning, &AssignmentController::resetAllFiles)
        ->setEnabled(m_evaluation.topLevelItemCount() > 0 && m_assigning.isListComplete());
    if (!rows.isEmpty()) {
        addDeletion(*menu, m_evaluation, rows.size());
        menu->addSeparator();
        addExports(*menu, m_evaluation, rows.size());
    }
    return menu;
}

std::unique_ptr<QMenu> FileListMenus::folderMenu()
{
    auto menu = std::make_unique<QMenu>(&m_folder);
    const QList<QTreeWidgetItem*> rows = selectedRows(m_folder);
    if (!rows.isEmpty()) {
        addExports(*menu, m_folder, rows.size());
        menu->addSeparator();
        addDeletion(*menu, m_folder, rows.size());
    }
    return menu;
}

void FileListMenus::addAssigning(QMenu& menu)
{
    const QIcon assignIcon = icon("green_arrow_left.png");
    const QStringList names = m_classes.classTree().names();
    if (names.isEmpty())
        menu.addAction(assignIcon, QStringLiteral("Assign class"), &m_assigning,
                       &AssignmentController::warnOfEmptyTree);
    else {
        QMenu* assign = menu.addMenu(assignIcon, QStringLiteral("Assign class"));
        for (const QString& name : names)
            assign->addAction(assignIcon, menuText(name), this, [this, name] {
                if (QTreeWidgetItem* classItem = m_classes.itemOf(name))
                    m_assigning.assign(classItem);
            });
    }
    menu.addAction(QStringLiteral("&Assign additional class"), &m_assigning,
                   &AssignmentController::assignAdditionalClass);
    addSlots(menu);
    menu.addAction(QStringLiteral("&Unassign all classes"), &m_assigning,
                   &AssignmentController::unassignAllClasses);
}

void FileListMenus::addSlots(QMenu& menu)
{
    const QIcon reassignIcon = icon("orange_arrows.png");
    const QIcon unassignIcon = icon("red_arrow_right.png");
    const QVector<ClassRecord> records = recordsOf(selectedRecordings(m_evaluation));
    QMenu* reassign = menu.addMenu(reassignIcon, QStringLiteral("Reassign"));
    QMenu* unassign = menu.addMenu(unassignIcon, QStringLiteral("Unassign"));
    for (int slot = 0; slot < ClassRecord::slotCount; ++slot) {
        const QString name = QStringLiteral("class %1").arg(slot + 1);
        const bool isFilled = AssignmentPlan::anyHasSlot(slot, records);
        reassign->addAction(reassignIcon, name, this, [this, slot] { emit reassigningWanted(slot); })
            ->setEnabled(isFilled);
        unassign->addAction(unassignIcon, name, this, [this, slot] { emit unassigningWanted(slot); })
            ->setEnabled(isFilled);
    }
    unassign->addAction(unassignIcon, QStringLiteral("&All classes"), &m_assigning,
                        &AssignmentController::unassignAllClasses);
}

void FileListMenus::addExports(QMenu& menu, const QTreeWidget& list, int count)
{
    const QString subject = count == 1 ? QStringLiteral("&Export selected file as ")
                                       : QStringLiteral("&Export selected files as ");
    menu.addAction(icon("csv_export.png"), subject + QStringLiteral("CSV file"), this,
                   [this, &list] { emit csvExportWanted(selectedRows(list)); });
    menu.addAction(icon("vantor_export.png"), subject + QStringLiteral("Vantor file"), this,
                   [this, &list] { emit vantorExportWanted(selectedRows(list)); });
}

void FileListMenus::addDeletion(QMenu& menu, QTreeWidget& list, int count)
{
    menu.addAction(icon("red_cross.png"),
                   count == 1 ? QStringLiteral("&Delete file") : QStringLiteral("&Delete files"), this,
                   [this, &list] { m_assigning.deletion().deleteSelected(list); });
}
