#ifndef SONAVIA_RECORDINGS_RECORDINGROW_H
#define SONAVIA_RECORDINGS_RECORDINGROW_H

#include "recordings/ClassRecord.h"

/// What a file list shows of one recording, as a plain value: logic and workers take rows in this form and
/// know no list. The record mirrors that of the file.
struct RecordingRow
{
    QString name;   ///< of the file, without folder
    QString date;   ///< "dd/MM/yy", "N/A" where unknown, empty while the header is not yet read
    QString time;   ///< "hh:mm:ss" or "N/A"
    QString length; ///< seconds with three decimals in the user's locale, or "N/A"
    ClassRecord record;
    bool showsProposals = false; ///< the list shows the proposal and its check box

    /// Only WAV files carry a record; the row of any other is all that keeps its classes.
    bool isWav() const;
    bool isHeaderRead() const { return !date.isEmpty(); }
    /// The date reads "N/A", in any case.
    bool isDateUnknown() const;

    friend bool operator==(const RecordingRow& a, const RecordingRow& b)
    {
        return a.name == b.name && a.date == b.date && a.time == b.time && a.length == b.length &&
               a.record == b.record && a.showsProposals == b.showsProposals;
    }
    friend bool operator!=(const RecordingRow& a, const RecordingRow& b) { return !(a == b); }
};

#endif
