#include "viewer/core/FolderListing.h"

#include <QDir>
#include <QDirIterator>

#include <algorithm>

QStringList recordingsInFolder(const QString& folder, FolderFiles files)
{
    // Ten thousands of names: name filters, which QDir makes patterns of, would take most of the time.
    QStringList names;
    for (QDirIterator entry(folder, QDir::Files); entry.hasNext();) {
        entry.next();
        const QString name = entry.fileName();
        const QStringRef suffix = name.rightRef(4);
        const bool wav = suffix == QLatin1String(".wav") || suffix == QLatin1String(".WAV");
        const bool raw = suffix == QLatin1String(".raw") || suffix == QLatin1String(".RAW");
        if (wav || (raw && files == FolderFiles::WavAndRaw))
            names.append(name);
    }
    std::sort(names.begin(), names.end());
    return names;
}

QString folderPath(const QString& folder)
{
    const QString path = QDir::cleanPath(QDir(folder).absolutePath());
    return path.endsWith(QLatin1Char('/')) ? path.chopped(1) : path;
}
