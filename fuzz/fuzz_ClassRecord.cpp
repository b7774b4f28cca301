// cmake --preset fuzz && cmake --build --preset fuzz --target fuzz_ClassRecord
// Any text as the Description of a recording: parsing never fails, what is shown of it is written so that it
// reads back, and no edit of what may be typed breaks a record. See fuzz/README.md; the corpus is replayed by
// tests/recordings.

#include "fuzz/require.h"
#include "recordings/classRecordEdit.h"

#include <algorithm>

namespace {

/// Nothing in the record but what may be typed, so that it can take every form.
bool isTyped(const ClassRecord& record)
{
    return std::all_of(
               record.classes.cbegin(), record.classes.cend(),
               [](const QString& name) { return name.isEmpty() || ClassRecord::acceptsClassName(name); }) &&
           ClassRecord::acceptsComment(record.comment);
}

void checkEdit(const RecordEdit& edit, bool typed)
{
    require(edit.possible, "a WAV file can be edited");
    require(edit.changesRow() == edit.writesFile(), "row and file change together");
    if (edit.writesFile() && typed)
        require(edit.record.readsBack(edit.description) || edit.description.isEmpty(), "an edit reads back");
}

void checkEdits(const ClassRecord& record, const QString& name)
{
    RecordingRow row;
    row.name = QStringLiteral("a.wav");
    row.date = QStringLiteral("01/05/24");
    row.record = record;
    row.showsProposals = name.size() % 2 == 0;
    const bool typed = isTyped(record) && ClassRecord::acceptsClassName(name);
    const RecordEdit assigned = classRecordEdit::assign(row, name);
    checkEdit(assigned, typed);
    require(name.isEmpty() || assigned.record.contains(name), "an assigned class is there");
    const RecordEdit removed = classRecordEdit::remove(row, record.classes[0]);
    checkEdit(removed, typed);
    require(!removed.record.contains(record.classes[0]), "a deleted class is gone");
    checkEdit(classRecordEdit::rename(row, record.classes[1], name), typed);
    checkEdit(classRecordEdit::acceptProposal(row, false), typed);
    checkEdit(classRecordEdit::unassignAll(row), typed);
    checkEdit(classRecordEdit::reset(row), typed);
    for (int slot = -1; slot <= ClassRecord::slotCount; ++slot) {
        checkEdit(classRecordEdit::reassign(row, slot, name), typed);
        checkEdit(classRecordEdit::unassign(row, slot), typed);
    }
}

} // namespace

/// The last line of the input is a class name, what stands before it the Description.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromLatin1(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const int lineEnd = text.lastIndexOf(QLatin1Char('\n'));
    const ClassRecord record = ClassRecord::parse(text.left(std::max(lineEnd, 0)));
    require(record.readsBack(record.text()), "what was read reads back");
    if (isTyped(record))
        require(record.readsBack(record.allSlotsForm()), "all slots read back");
    checkEdits(record, text.mid(lineEnd + 1));
    return 0;
}
