#include "recordings/RecordingRow.h"

#include "recordings/RecordingFile.h"

bool RecordingRow::isWav() const
{
    return RecordingFile::kindOf(name) == RecordingFile::Kind::Wav;
}

bool RecordingRow::isDateUnknown() const
{
    return date.compare(QLatin1String("N/A"), Qt::CaseInsensitive) == 0;
}
