#ifndef SONAVIA_EVALUATION_CORE_FILECOPY_H
#define SONAVIA_EVALUATION_CORE_FILECOPY_H

#include "evaluation/core/NewFile.h"

#include <atomic>
#include <memory>

/// Copies the file `source` to a new file beside `target`, with its permissions and its time of last change,
/// which is the date of a recording without header; the copy is complete and waits for finishCopy(). The
/// bytes do not pass through the program where the system can copy by itself.
///
/// nullptr when that failed, when both are the same file, or when `stop` was set from another thread
/// meanwhile; nothing is left of the copy then.
std::unique_ptr<NewFile> prepareCopy(const QString& source, const QString& target,
                                     const std::atomic<bool>& stop);

/// Gives the copy the name of its target, over a file that is there. False, with the target as it was, when
/// that failed or `copy` is nullptr.
bool finishCopy(std::unique_ptr<NewFile> copy);

#endif
