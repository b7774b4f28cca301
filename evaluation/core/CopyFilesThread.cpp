#include "evaluation/core/CopyFilesThread.h"

#include "evaluation/core/fileCopy.h"

#include <QFile>

QString CopyFilesThread::errorMark()
{
    return QStringLiteral("error");
}

void CopyFilesThread::copyFiles(int index, const QString& newDirectory, const QString& oldDirectory,
                                const QStringList& fileNames, bool overwrite)
{
    const QString name = fileNames.value(index);
    const bool success = !name.isEmpty() && copy(oldDirectory + QLatin1Char('/') + name,
                                                 newDirectory + QLatin1Char('/') + name, overwrite);
    if (!m_stop)
        emit signalCopyFinished(index, newDirectory, oldDirectory,
                                success ? fileNames : fileNames + QStringList(errorMark()), overwrite);
}

bool CopyFilesThread::copy(const QString& source, const QString& target, bool overwrite) const
{
    if (!overwrite && QFile::exists(target))
        return true;
    return copyFile(source, target, m_stop);
}
