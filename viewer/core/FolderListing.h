#ifndef SONAVIA_VIEWER_CORE_FOLDERLISTING_H
#define SONAVIA_VIEWER_CORE_FOLDERLISTING_H

#include <QStringList>

/// The names of a folder's recordings, without the folder, in the order in which the file system gives them.
/// The suffix has to be one of ".wav", ".WAV", ".raw", ".RAW"; where the file system tells cases apart,
/// ".Wav" is not listed. An unreadable folder is empty.
QStringList recordingsInFolder(const QString& folder);

#endif
