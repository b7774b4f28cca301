#ifndef SONAVIA_RECORDINGS_CLASSRECORDEDIT_H
#define SONAVIA_RECORDINGS_CLASSRECORDEDIT_H

#include "recordings/RecordingRow.h"

/// What a gesture makes of a row and of its file.
struct RecordEdit
{
    enum class Effect {
        None,      ///< row and file stay as they are; that is a success
        Row,       ///< the row takes `record`; the file carries none
        RowAndFile ///< `description` goes into the file and, once written, `record` into the row
    };

    Effect effect = Effect::None;
    bool possible = true; ///< false: the recording cannot be written at all, which is a failure
    ClassRecord record;   ///< of the row afterwards; the present one where nothing changes
    QString description;  ///< the text for the file, see writeBextDescription()

    bool changesRow() const { return effect != Effect::None; }
    bool writesFile() const { return effect == Effect::RowAndFile; }
    /// The text stays within the Description field; what is typed must not lead out of it.
    bool fits() const;
};

/// All changes of a class record, as pure functions from a row to its new record. The workers that write and
/// the handlers that bring rows and counts up to date call the same ones, so that a row and its file cannot
/// part. Classes change in the rows of all recordings, but only WAV files are written.
///
/// Slots count from 0: slot 0 is "class 1".
namespace classRecordEdit {

/// Puts `className` into the first empty slot; with three classes it takes the fourth slot, whatever is
/// there. Where proposals are shown, "No Call" excludes all other classes. A row whose header is not yet read
/// and a class that is there already change nothing. Impossible for a file that is no WAV and has no date.
RecordEdit assign(const RecordingRow& row, const QString& className);

/// Puts `newName` in the place of `oldName`; nothing where the row does not hold that.
RecordEdit rename(const RecordingRow& row, const QString& oldName, const QString& newName);

/// Takes `className` out and moves the later classes up; the accepted flag stays as it is.
RecordEdit remove(const RecordingRow& row, const QString& className);

/// Takes all classes out, also where there are none, so that a Description in no known form is cleared.
RecordEdit unassignAll(const RecordingRow& row);

/// Leaves the comment only. Nothing for files that are no WAV or have no date.
RecordEdit reset(const RecordingRow& row);

/// The check box "Accept proposal": checked, the proposed classes become the classes; unchecked, all go.
RecordEdit acceptProposal(const RecordingRow& row, bool accepted);

/// Puts `className` in the place of the class in `slot`, by the rules of an assignment. Nothing where the
/// slot is empty or the row holds the class.
RecordEdit reassign(const RecordingRow& row, int slot, const QString& className);

/// Takes the class in `slot` out, moves the later ones up and computes the accepted flag anew. Nothing where
/// the slot is empty.
RecordEdit unassign(const RecordingRow& row, int slot);

/// Another comment; nothing where it is the present one.
RecordEdit setComment(const RecordingRow& row, const QString& comment);

} // namespace classRecordEdit

#endif
