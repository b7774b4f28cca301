#ifndef SONAVIA_RECORDINGS_RECORDINGSLOG_H
#define SONAVIA_RECORDINGS_RECORDINGSLOG_H

#include <QLoggingCategory>

/// What the readers and writers of recordings note while they work: "sonavia.recordings". Debug lines are off
/// unless asked for (QT_LOGGING_RULES="sonavia.recordings.debug=true"), so that listing a large folder stays
/// fast.
Q_DECLARE_LOGGING_CATEGORY(lcRecordings)

#endif
