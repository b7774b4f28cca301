#ifndef SONAVIA_RECORDINGS_WRITEBEXTDESCRIPTION_H
#define SONAVIA_RECORDINGS_WRITEBEXTDESCRIPTION_H

#include <QString>

class QFileDevice;

/// Bytes of the Description field of a broadcast extension chunk (EBU Tech 3285): what a class record should
/// fit into.
constexpr int bextDescriptionSize = 256;

/// Writes `description`, as UTF-8 and filled up with zero bytes, into the Description field of the WAV file's
/// "bext" chunk, at once and in place; a file without that chunk gets one of 858 bytes at its end. No other
/// byte changes but, with a new chunk, the four of the RIFF size; a file that holds the text already is not
/// written to. The only function of the program that changes a recording.
///
/// A text longer than the field runs on into the fields behind it. One that would run out of the chunk is
/// refused, and so is appending to a file whose chunks do not end where the file does.
///
/// False when the file does not hold the text now; the reason is logged. The file is then put back to what it
/// held before, as far as the disk lets it. When the process dies between the two writes of a new chunk, the
/// chunk is there and reads well, and the RIFF size is still the old one. Not to be called for the same file
/// from two threads.
bool writeBextDescription(const QString& wavFileName, const QString& description);

/// The same in a file that is open for reading and writing, unbuffered, so that each write is one call of the
/// system. The file stays open.
bool writeBextDescription(QFileDevice& file, const QString& description);

#endif
