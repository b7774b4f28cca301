#ifndef SONAVIA_TESTS_SUPPORT_TESTFOLDER_H
#define SONAVIA_TESTS_SUPPORT_TESTFOLDER_H

#include <QFile>
#include <QTemporaryDir>

/// A temporary folder and the files in it, by name. A file that cannot be written ends the test program.
class TestFolder
{
public:
    QString path() const { return m_dir.path(); }
    QString path(const QString& name) const { return m_dir.filePath(name); }

    /// Makes or replaces a file. Returns its path.
    QString write(const QString& name, const QByteArray& bytes = {}) const
    {
        QFile::remove(path(name)); // some file systems sync a file that was emptied and written again
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(path(name)));
        return path(name);
    }
    QByteArray bytes(const QString& name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private:
    QTemporaryDir m_dir;
};

#endif
