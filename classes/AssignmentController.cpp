#include "classes/AssignmentController.h"

#include "base/UserPrompts.h"
#include "classes/AssignSecondClassDialog.h"
#include "classes/ClassTreePane.h"
#include "classes/DirectEdits.h"
#include "classes/FileDeletion.h"
#include "classes/FileListMenus.h"
#include "classes/core/AssignmentPlan.h"
#include "classes/selectedRows.h"
#include "recordings/RecordingSession.h"
#include "recordings/rows/RowItem.h"

#include <QTreeWidget>

#include <utility>

namespace {

using Answer = UserPrompts::Answer;

/// From here on the class tree is a fixed one: Vantor folder evaluation, and review.
constexpr int firstModeWithFixedTree = 3;

} // namespace

AssignmentController::AssignmentController(QWidget& window, const Lists& lists, ClassTreePane& classes,
                                           const RecordingSession& session, UserPrompts& prompts)
    : QObject(&window),
      m_window(window),
      m_lists(lists),
      m_classes(classes),
      m_session(session),
      m_prompts(prompts),
      m_rows(lists.evaluation, classes),
      m_run(new FileRun(window, prompts)),
      m_directEdits(
          std::make_unique<DirectEdits>(lists.evaluation, classes, session, *m_run, m_rows, prompts)),
      m_deletion(std::make_unique<FileDeletion>(lists.evaluation, classes, session, *m_run, prompts)),
      m_menus(std::make_unique<FileListMenus>(*this, lists.evaluation, lists.folder, classes))
{
    connect(m_run, &FileRun::rowsInUseChanged, this, &AssignmentController::rowsInUseChanged);
    connect(&m_classes, &ClassTreePane::deletionWanted, this, &AssignmentController::deleteClass);
    connect(&m_classes, &ClassTreePane::renamingWanted, this, &AssignmentController::renameClass);
    connect(&m_classes, &ClassTreePane::fileWanted, this, &AssignmentController::showFirstFileOf);
}

AssignmentController::~AssignmentController() = default;

void AssignmentController::acceptProposal(bool accepted)
{
    m_directEdits->acceptProposal(m_lists.evaluation.currentItem(), accepted);
}

void AssignmentController::assignFileToClass()
{
    if (m_classes.clickedClass())
        assign(m_classes.clickedClass());
}

void AssignmentController::assign(QTreeWidgetItem* classItem)
{
    if (isRunning())
        return;
    const FileRun::RowsInUse use(*m_run);
    const QList<QTreeWidgetItem*> selected = selectedRecordings(m_lists.evaluation);
    const bool asksAboutNoCall = m_session.viewMode < firstModeWithFixedTree;
    const AssignmentPlan plan(classItem->text(ClassTreePane::Name), recordsOf(selected), asksAboutNoCall);
    QList<QTreeWidgetItem*> files;
    for (const int index : plan.settle(m_prompts))
        files.append(selected.at(index));
    startAssigning(classItem, files);
}

bool AssignmentController::assignByShortcut(const QString& shortcut)
{
    QTreeWidgetItem* classItem = m_classes.itemOfShortcut(shortcut);
    if (!classItem || !m_lists.evaluation.selectionModel()->hasSelection())
        return false;
    if (!isRunning())
        startAssigning(classItem, selectedRecordings(m_lists.evaluation));
    return true;
}

void AssignmentController::warnOfEmptyTree()
{
    warnOfMissingClass(QStringLiteral("a class"));
}

void AssignmentController::assignAdditionalClass()
{
    const QStringList names = m_classes.classTree().names();
    if (names.isEmpty()) {
        warnOfMissingClass(QStringLiteral("a second class"));
        return;
    }
    const QVector<ClassRecord> records = recordsOf(selectedRecordings(m_lists.evaluation));
    if (records.isEmpty() || isRunning())
        return;
    AssignSecondClassDialog dialog(QStringLiteral("Assign additional class"),
                                   AssignmentPlan::carriedByNone(names, records), &m_window);
    if (dialog.exec() == QDialog::Accepted)
        assign(m_classes.itemOf(dialog.className()));
}

void AssignmentController::unassignAllClasses()
{
    if (isRunning())
        return;
    const QList<QTreeWidgetItem*> files = selectedRecordings(m_lists.evaluation);
    start(
        QStringLiteral("Unassigning..."), true, {files, classRecordEdit::unassignAll},
        [this, folder = m_session.folder, files](int index) {
            emit signalUnassignFile(index, folder, files);
        },
        [](bool) {});
}

void AssignmentController::resetAllFiles()
{
    if (isRunning() || m_lists.evaluation.topLevelItemCount() == 0 || !listIsComplete() ||
        m_prompts.ask({UserPrompts::Icon::Warning,
                       QStringLiteral("Warning"),
                       QStringLiteral("Reset will delete class assignments and Vantor proposals\n"
                                      "of all files in your current loaded folder."),
                       {},
                       {Answer::Ok, Answer::Cancel},
                       Answer::Cancel}) != Answer::Ok)
        return;
    QList<QTreeWidgetItem*> files;
    for (int row = 0; row < m_lists.evaluation.topLevelItemCount(); ++row)
        files.append(m_lists.evaluation.topLevelItem(row));
    start(
        QStringLiteral("Resetting..."), true, {files, classRecordEdit::reset},
        [this, folder = m_session.folder, files](int index) { emit signalResetFile(index, folder, files); },
        [this](bool completed) {
            if (!completed)
                return;
            m_lists.evaluation.setSortingEnabled(false);
            m_classes.setClassTree(m_classes.classTree().reviewAfterReset());
            emit reloadAfterReset();
        });
}

void AssignmentController::deleteClass(QTreeWidgetItem* classItem)
{
    const QString name = classItem->text(ClassTreePane::Name);
    const QString level = classItem->parent() ? QStringLiteral("subclass") : QStringLiteral("class");
    const QString subject = classItem->parent() ? QStringLiteral("Subclass") : QStringLiteral("Class");
    if (isRunning() || !listIsComplete() ||
        !confirms(QStringLiteral("Do you really want to delete ") + level + QLatin1Char(' ') + name +
                  QStringLiteral("?\n") + subject + QLatin1Char(' ') + name +
                  QStringLiteral(" will be unassigned in all files!")))
        return;
    const QList<QTreeWidgetItem*> files = carriersOf(name);
    start(
        QStringLiteral("Deleting class assignment..."), false,
        {files, [name](const RecordingRow& row) { return classRecordEdit::remove(row, name); }},
        [this, folder = m_session.folder, name, files](int index) {
            emit signalDeleteClassFile(index, folder, name, files);
        },
        [this, classItem](bool completed) {
            if (completed)
                m_classes.remove(classItem);
        });
}

void AssignmentController::renameClass(QTreeWidgetItem* classItem, const QString& newName)
{
    const QString oldName = classItem->text(ClassTreePane::Name);
    const QString level = classItem->parent() ? QStringLiteral("subclass ") : QStringLiteral("class ");
    if (isRunning() || !listIsComplete() ||
        !confirms(QStringLiteral("Do you really want to rename ") + level + oldName +
                  QStringLiteral("?\nAll related files will be updated!")))
        return;
    const QList<QTreeWidgetItem*> files = carriersOf(oldName);
    start(
        QStringLiteral("Renaming..."), false,
        {files, [oldName, newName](
                    const RecordingRow& row) { return classRecordEdit::rename(row, oldName, newName); }},
        [this, folder = m_session.folder, oldName, newName, files](int index) {
            emit signalRenameClassFile(index, folder, oldName, newName, files);
        },
        [this, classItem, newName](bool completed) {
            if (completed)
                m_classes.rename(classItem, newName);
        });
}

void AssignmentController::showFirstFileOf(const QString& className)
{
    if (m_session.busy || isRunning())
        return;
    QTreeWidgetItem* row = firstFileOf(className);
    if (!row)
        return;
    m_lists.evaluation.setCurrentItem(row);
    m_lists.evaluation.scrollToItem(row);
    emit rowToBeLoaded(row);
}

void AssignmentController::startAssigning(QTreeWidgetItem* classItem, const QList<QTreeWidgetItem*>& files)
{
    const QString name = classItem->text(ClassTreePane::Name);
    start(
        QStringLiteral("Assigning..."), true,
        {files, [name](const RecordingRow& row) { return classRecordEdit::assign(row, name); }},
        [this, folder = m_session.folder, classItem, files](int index) {
            emit signalWriteFileBextExtended(index, folder, classItem, files);
        },
        [](bool) {});
}

void AssignmentController::start(const QString& label, bool cancellable, Run run,
                                 std::function<void(int)> request, std::function<void(bool)> ended)
{
    m_present = std::move(run);
    m_rows.beginRun(m_present.files.size());
    FileRun::Setup setup;
    setup.label = label;
    setup.cancellable = cancellable;
    setup.count = m_present.files.size();
    setup.errorText = [this](int index) {
        return QStringLiteral("Error Writing File ") + m_present.files.at(index)->text(RowItem::Name);
    };
    setup.ended = [this, ended = std::move(ended)](bool completed) {
        m_present = {};
        m_rows.endRun();
        ended(completed);
    };
    m_run->start(std::move(setup), std::move(request));
}

void AssignmentController::answered(int index, bool success)
{
    if (!m_run->expects(index))
        return;
    if (success) {
        QTreeWidgetItem& row = *m_present.files.at(index);
        const RecordEdit edit = m_present.edit(RowItem::read(row));
        if (edit.changesRow())
            m_rows.show(row, edit.record);
    }
    m_run->answered(index, success);
}

void AssignmentController::fileBextFinishedExtended(int index, const QString&, QTreeWidgetItem*,
                                                    const QList<QTreeWidgetItem*>&, bool success)
{
    answered(index, success);
}

void AssignmentController::renameClassFileFinished(int index, const QString&, const QString&, const QString&,
                                                   const QList<QTreeWidgetItem*>&, bool success)
{
    answered(index, success);
}

void AssignmentController::deleteClassFileFinished(int index, const QString&, const QString&,
                                                   const QList<QTreeWidgetItem*>&, bool success)
{
    answered(index, success);
}

void AssignmentController::unassignFileFinished(int index, const QString&, const QList<QTreeWidgetItem*>&,
                                                bool success)
{
    answered(index, success);
}

void AssignmentController::resetFileFinished(int index, const QString&, const QList<QTreeWidgetItem*>&,
                                             bool success)
{
    answered(index, success);
}

QList<QTreeWidgetItem*> AssignmentController::carriersOf(const QString& className) const
{
    QList<QTreeWidgetItem*> carriers;
    for (int number = 0; number < m_lists.evaluation.topLevelItemCount(); ++number) {
        QTreeWidgetItem* row = m_lists.evaluation.topLevelItem(number);
        if (RowItem::read(*row).record.contains(className))
            carriers.append(row);
    }
    return carriers;
}

QTreeWidgetItem* AssignmentController::firstFileOf(const QString& className) const
{
    const int slotCount = className.isEmpty() ? 1 : ClassRecord::slotCount;
    for (int slot = 0; slot < slotCount; ++slot)
        for (int number = 0; number < m_lists.evaluation.topLevelItemCount(); ++number) {
            QTreeWidgetItem* row = m_lists.evaluation.topLevelItem(number);
            if (row->text(RowItem::Class1 + slot) == className && !row->text(RowItem::Date).isEmpty())
                return row;
        }
    return nullptr;
}

void AssignmentController::warnOfMissingClass(const QString& object)
{
    m_prompts.warn(QStringLiteral("Warning"),
                   QStringLiteral("Please add new class to class tree, before assigning %1.").arg(object));
}

bool AssignmentController::listIsComplete()
{
    if (!m_listComplete)
        m_prompts.inform(QStringLiteral("Information"),
                         QStringLiteral("Please wait until all files of the list have been read."));
    return m_listComplete;
}

bool AssignmentController::confirms(const QString& question)
{
    return m_prompts.ask({UserPrompts::Icon::Warning,
                          QStringLiteral("Warning"),
                          question,
                          {},
                          {Answer::Yes, Answer::No},
                          Answer::No}) == Answer::Yes;
}
