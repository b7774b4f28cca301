#include "evaluation/core/ExportFile.h"

#include "evaluation/core/NewFile.h"

#include <QFileInfo>

#include <algorithm>

namespace {

/// Where the file stands, or is to stand, that `path` names, which may be a link to it.
QString realPath(const QString& path)
{
    const QFileInfo info(path);
    const QString real = info.canonicalFilePath();
    if (!real.isEmpty())
        return real;
    return info.isSymLink() ? info.symLinkTarget() : path;
}

bool replace(NewFile& file, const QFileInfo& old, const QByteArray& bytes)
{
    if (file.file().write(bytes) != bytes.size() || !file.synchronize())
        return false;
    if (old.exists())
        file.file().setPermissions(old.permissions());
    return file.takePlace();
}

/// For a file whose folder takes no new ones. What is written over is kept until the new text is complete:
/// the room of the old one is still its own then, so that it can be put back on a full disk.
bool overwrite(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered))
        return false;
    const qint64 oldSize = file.size();
    const QByteArray old = file.read(std::min<qint64>(oldSize, bytes.size()));
    if (old.size() < std::min<qint64>(oldSize, bytes.size()) || !file.seek(0))
        return false;
    if (file.write(bytes) == bytes.size() && file.resize(bytes.size()))
        return true;
    file.seek(0);
    file.write(old);
    file.resize(oldSize);
    return false;
}

} // namespace

namespace ExportFile {

bool write(const QString& path, const QString& text)
{
    return writeBytes(path, text.toUtf8());
}

bool writeBytes(const QString& path, const QByteArray& bytes)
{
    const QString target = realPath(path);
    const QFileInfo old(target);
    if (old.exists() && (!old.isFile() || !old.isWritable()))
        return false;
    NewFile file(target);
    return file.file().isOpen() ? replace(file, old, bytes) : overwrite(target, bytes);
}

QString failureText()
{
    return QStringLiteral("Could not write to file.");
}

} // namespace ExportFile
