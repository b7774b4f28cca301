#include "recordings/RecordingsLog.h"

Q_LOGGING_CATEGORY(lcRecordings, "sonavia.recordings", QtInfoMsg)
