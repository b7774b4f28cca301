#include "viewer/core/FolderListing.h"

#include <QDir>

QStringList recordingsInFolder(const QString& folder)
{
    // Without CaseSensitive the filters would also let ".Wav" pass.
    return QDir(folder).entryList(
        {QStringLiteral("*.wav"), QStringLiteral("*.WAV"), QStringLiteral("*.raw"), QStringLiteral("*.RAW")},
        QDir::Files | QDir::CaseSensitive, QDir::Unsorted);
}
