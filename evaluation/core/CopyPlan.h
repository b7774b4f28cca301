#ifndef SONAVIA_EVALUATION_CORE_COPYPLAN_H
#define SONAVIA_EVALUATION_CORE_COPYPLAN_H

#include "recordings/RecordingRow.h"

#include <QStringList>
#include <QVector>

/// Which recordings of a list are copied.
namespace CopyPlan {

/// The names of the files that carry at least one of the checked classes, or no main class when "Unassigned"
/// is checked; each once, in the order of the list.
QStringList names(const QVector<RecordingRow>& rows, const QStringList& checked);

/// Whether `folder` has a file of one of the names already.
bool anyExists(const QString& folder, const QStringList& names);

} // namespace CopyPlan

#endif
