#ifndef SONAVIA_VIEWER_CORE_FOLDERLISTING_H
#define SONAVIA_VIEWER_CORE_FOLDERLISTING_H

#include <QStringList>

enum class FolderFiles { WavAndRaw, WavOnly };

/// The names of a folder's recordings, without the folder, in the order of their characters' codes, so that
/// the first is the same on every file system. The suffix has to be one of ".wav", ".WAV", ".raw", ".RAW";
/// where the file system tells cases apart, ".Wav" is not listed. An unreadable folder is empty.
QStringList recordingsInFolder(const QString& folder, FolderFiles files = FolderFiles::WavAndRaw);

/// An absolute path without "." and "..", to which "/" and a name can be appended: without a slash at the
/// end, so that the root of a file system is an empty text.
QString folderPath(const QString& folder);

#endif
