#ifndef SONAVIA_TESTS_EVALUATION_FOLDERCONTENTS_H
#define SONAVIA_TESTS_EVALUATION_FOLDERCONTENTS_H

#include <QDir>
#include <QFile>
#include <QMap>

inline bool writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

inline QByteArray bytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
}

/// The bytes of all files of a folder, hidden ones included, by name.
inline QMap<QString, QByteArray> folderContents(const QString& folder)
{
    QMap<QString, QByteArray> contents;
    const QDir dir(folder);
    for (const QString& name : dir.entryList(QDir::Files | QDir::Hidden | QDir::System))
        contents.insert(name, bytesOf(dir.filePath(name)));
    return contents;
}

#endif
