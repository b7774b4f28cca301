#include "classes/DirectEdits.h"

#include "base/UserPrompts.h"
#include "classes/AssignSecondClassDialog.h"
#include "classes/ClassTreePane.h"
#include "classes/FileRun.h"
#include "classes/RowUpdater.h"
#include "classes/core/AssignmentPlan.h"
#include "classes/selectedRows.h"
#include "recordings/RecordingSession.h"
#include "recordings/rows/RowItem.h"
#include "recordings/writeBextDescription.h"

#include <QTreeWidget>

namespace {

const char* const ordinals[ClassRecord::slotCount] = {"first", "second", "third", "fourth"};

QString assignmentLoss()
{
    return QStringLiteral("\nClass assignment is not saved to wav file.");
}

QString unassignmentLoss()
{
    return QStringLiteral("\nClass unassignment is not saved to wav file.");
}

QString failure(const QTreeWidgetItem& row, const QString& loss)
{
    return QStringLiteral("Could not write file ") + row.text(RowItem::Name) + loss;
}

} // namespace

DirectEdits::DirectEdits(QTreeWidget& list, ClassTreePane& classes, const RecordingSession& session,
                         FileRun& run, RowUpdater& rows, UserPrompts& prompts)
    : m_list(list), m_classes(classes), m_session(session), m_run(run), m_rows(rows), m_prompts(prompts)
{}

void DirectEdits::acceptProposal(QTreeWidgetItem* row, bool accepted)
{
    if (!row || m_run.isActive() || !RowItem::read(*row).isHeaderRead())
        return;
    if (!apply(*row, classRecordEdit::acceptProposal(RowItem::read(*row), accepted)))
        m_prompts.fail(QStringLiteral("Error"), failure(*row, assignmentLoss()));
}

void DirectEdits::setComment(QTreeWidgetItem* row, const QString& comment)
{
    if (!row || m_run.isActive())
        return;
    const RecordEdit edit = classRecordEdit::setComment(RowItem::read(*row), comment);
    const bool isSafe = !edit.writesFile() || ClassRecord::acceptsComment(comment);
    if (!isSafe || !apply(*row, edit))
        m_prompts.fail(QStringLiteral("Error"),
                       failure(*row, QStringLiteral("\nNew comment is not saved to wav file.")));
}

void DirectEdits::reassign(int slot)
{
    const QStringList names = m_classes.classTree().names();
    if (names.isEmpty()) {
        m_prompts.warn(
            QStringLiteral("Warning"),
            QStringLiteral("Please add new class to class tree, before reassigning class %1.").arg(slot + 1));
        return;
    }
    const FileRun::RowsInUse use(m_run);
    const QList<QTreeWidgetItem*> rows = selectedRecordings(m_list);
    const QVector<ClassRecord> records = recordsOf(rows);
    if (m_run.isActive() || !AssignmentPlan::anyHasSlot(slot, records))
        return;
    AssignSecondClassDialog dialog(QStringLiteral("Reassign %1 class").arg(QLatin1String(ordinals[slot])),
                                   AssignmentPlan::carriedByNone(names, records), &m_list);
    if (dialog.exec() == QDialog::Accepted)
        applyToSelected(
            QStringLiteral("Assigning..."), rows,
            [slot, name = dialog.className()](const RecordingRow& row) {
                return classRecordEdit::reassign(row, slot, name);
            },
            assignmentLoss());
}

void DirectEdits::unassign(int slot)
{
    if (m_run.isActive())
        return;
    applyToSelected(
        QStringLiteral("Unassigning..."), selectedRecordings(m_list),
        [slot](const RecordingRow& row) { return classRecordEdit::unassign(row, slot); }, unassignmentLoss());
}

void DirectEdits::applyToSelected(const QString& label, const QList<QTreeWidgetItem*>& rows, const Edit& edit,
                                  const QString& loss)
{
    m_rows.beginRun(rows.size());
    FileRun::Setup setup;
    setup.label = label;
    setup.count = rows.size();
    setup.errorText = [rows, loss](int index) { return failure(*rows.at(index), loss); };
    setup.ended = [this](bool) { m_rows.endRun(); };
    m_run.startHere(std::move(setup), [this, rows, edit](int index) {
        QTreeWidgetItem& row = *rows.at(index);
        return apply(row, edit(RowItem::read(row)));
    });
}

/// False when the file could not be written; the row is then as it was.
bool DirectEdits::apply(QTreeWidgetItem& row, const RecordEdit& edit)
{
    const QString path = m_session.folder + QLatin1Char('/') + row.text(RowItem::Name);
    if (edit.writesFile() && !(edit.fits() && writeBextDescription(path, edit.description)))
        return false;
    if (edit.changesRow())
        m_rows.show(row, edit.record);
    return true;
}
