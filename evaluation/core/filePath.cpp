#include "evaluation/core/filePath.h"

#include <QFile>

#include <system_error>

std::filesystem::path filePath(const QString& path)
{
#ifdef Q_OS_WIN
    return path.toStdWString();
#else
    return QFile::encodeName(path).toStdString();
#endif
}

bool isSameFile(const QString& a, const QString& b)
{
    std::error_code error;
    return std::filesystem::equivalent(filePath(a), filePath(b), error) && !error;
}
