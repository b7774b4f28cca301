#include "recordings/classRecordEdit.h"

#include "recordings/writeBextDescription.h"

#include <algorithm>

namespace {

/// As the automatic classes spell it; "No call" of the simple class model excludes nothing.
QString exclusiveClass()
{
    return QStringLiteral("No Call");
}

QString& slotOf(ClassRecord& record, int slot)
{
    return record.classes[static_cast<std::size_t>(slot)];
}

RecordEdit unchanged(const RecordingRow& row)
{
    RecordEdit edit;
    edit.record = row.record;
    return edit;
}

RecordEdit changed(const RecordingRow& row, const ClassRecord& record, const QString& description)
{
    RecordEdit edit;
    edit.effect = row.isWav() ? RecordEdit::Effect::RowAndFile : RecordEdit::Effect::Row;
    edit.record = record;
    edit.description = description;
    return edit;
}

RecordEdit changed(const RecordingRow& row, const ClassRecord& record)
{
    return changed(row, record, record.text());
}

/// For changes of the classes that may meet or miss the proposal.
RecordEdit changedWithAccepted(const RecordingRow& row, ClassRecord record)
{
    if (record.hasProposal())
        record.accepted = record.recomputedAccepted();
    return changed(row, record);
}

bool excludesOthers(const RecordingRow& row, const QString& className)
{
    return row.showsProposals && (className == exclusiveClass() || row.record.classes[0] == exclusiveClass());
}

void removeSlot(ClassRecord& record, int slot)
{
    const auto removed = record.classes.begin() + slot;
    std::move(removed + 1, record.classes.end(), removed);
    record.classes.back().clear();
}

/// Puts `className` into `slot`, or alone into the record where it or what is there excludes others.
RecordEdit placed(const RecordingRow& row, int slot, const QString& className)
{
    ClassRecord record = row.record;
    if (excludesOthers(row, className)) {
        record.classes = {};
        slot = 0;
    }
    slotOf(record, slot) = className;
    return changedWithAccepted(row, record);
}

bool isFilled(const RecordingRow& row, int slot)
{
    return slot >= 0 && slot < ClassRecord::slotCount &&
           !row.record.classes[static_cast<std::size_t>(slot)].isEmpty();
}

} // namespace

bool RecordEdit::fits() const
{
    return description.toUtf8().size() <= bextDescriptionSize;
}

RecordEdit classRecordEdit::assign(const RecordingRow& row, const QString& className)
{
    RecordEdit edit = unchanged(row);
    edit.possible = row.isWav() || row.date != QLatin1String("N/A");
    if (!edit.possible || !row.isHeaderRead() || className.isEmpty() || row.record.contains(className))
        return edit;
    int slot = 0;
    while (slot < ClassRecord::slotCount - 1 && isFilled(row, slot))
        ++slot;
    return placed(row, slot, className);
}

RecordEdit classRecordEdit::rename(const RecordingRow& row, const QString& oldName, const QString& newName)
{
    if (!row.record.contains(oldName))
        return unchanged(row);
    ClassRecord record = row.record;
    std::replace(record.classes.begin(), record.classes.end(), oldName, newName);
    return changed(row, record);
}

RecordEdit classRecordEdit::remove(const RecordingRow& row, const QString& className)
{
    if (!row.record.contains(className))
        return unchanged(row);
    ClassRecord record = row.record;
    for (int slot = ClassRecord::slotCount - 1; slot >= 0; --slot)
        if (slotOf(record, slot) == className)
            removeSlot(record, slot);
    return changed(row, record);
}

RecordEdit classRecordEdit::unassignAll(const RecordingRow& row)
{
    ClassRecord record = row.record;
    record.classes = {};
    const bool nothingLeft = !record.hasProposal() && record.comment.isEmpty();
    return changed(row, record, nothingLeft ? QString() : record.text());
}

RecordEdit classRecordEdit::reset(const RecordingRow& row)
{
    if (!row.isWav() || row.isDateUnknown())
        return unchanged(row);
    ClassRecord record;
    record.comment = row.record.comment;
    return changed(row, record);
}

RecordEdit classRecordEdit::acceptProposal(const RecordingRow& row, bool accepted)
{
    ClassRecord record = row.record;
    record.classes = {};
    record.accepted = accepted ? QStringLiteral("1") : QStringLiteral("0");
    if (accepted) {
        const QStringList proposed = record.proposedClasses();
        std::copy(proposed.cbegin(), proposed.cend(), record.classes.begin());
    }
    return changed(row, record);
}

RecordEdit classRecordEdit::reassign(const RecordingRow& row, int slot, const QString& className)
{
    if (!isFilled(row, slot) || className.isEmpty() || row.record.contains(className))
        return unchanged(row);
    return placed(row, slot, className);
}

RecordEdit classRecordEdit::unassign(const RecordingRow& row, int slot)
{
    if (!isFilled(row, slot))
        return unchanged(row);
    ClassRecord record = row.record;
    removeSlot(record, slot);
    return changedWithAccepted(row, record);
}

RecordEdit classRecordEdit::setComment(const RecordingRow& row, const QString& comment)
{
    if (comment == row.record.comment)
        return unchanged(row);
    ClassRecord record = row.record;
    record.comment = comment;
    return changed(row, record);
}
