#include "evaluation/core/ExportFile.h"

#include "evaluation/core/NewFile.h"

#include <QFileInfo>
#include <QSaveFile>

namespace {

/// QSaveFile writes to a file of the same name with ".XXXXXX" at its end; names have up to 255 bytes.
bool hasRoomForSuffix(const QString& path)
{
    return QFile::encodeName(QFileInfo(path).fileName()).size() <= 255 - 7;
}

bool save(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    // Without a buffer, whose last bytes would be lost without an error on a full disk.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return false;
    if (file.write(bytes) != bytes.size())
        file.cancelWriting();
    return file.commit();
}

bool saveUnderShortName(const QString& path, const QByteArray& bytes)
{
    const QFileInfo target(path);
    if (target.exists() && (!target.isFile() || !target.isWritable()))
        return false;
    NewFile file(path);
    return file.file().isOpen() && file.file().write(bytes) == bytes.size() && file.synchronize() &&
           file.takePlace();
}

} // namespace

namespace ExportFile {

bool write(const QString& path, const QString& text)
{
    return writeBytes(path, text.toUtf8());
}

bool writeBytes(const QString& path, const QByteArray& bytes)
{
    return hasRoomForSuffix(path) ? save(path, bytes) : saveUnderShortName(path, bytes);
}

QString failureText()
{
    return QStringLiteral("Could not write to file.");
}

} // namespace ExportFile
