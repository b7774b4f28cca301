#ifndef SONAVIA_EVALUATION_CORE_FILECOPY_H
#define SONAVIA_EVALUATION_CORE_FILECOPY_H

#include <QString>

#include <atomic>

/// Copies the file `source` to `target`, over a file that is there, with its permissions and its time of last
/// change, which is the date of a recording without header. The bytes do not pass through the program where
/// the system can copy by itself.
///
/// The copy is complete or is not there: it gets its name, and replaces an older file, at the end. False when
/// it failed, when both are the same file, or when `stop` was set from another thread meanwhile; `source` and
/// `target` are as they were then.
bool copyFile(const QString& source, const QString& target, const std::atomic<bool>& stop);

#endif
