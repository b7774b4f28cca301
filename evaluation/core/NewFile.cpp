#include "evaluation/core/NewFile.h"

#include "evaluation/core/filePath.h"

#include <QFileInfo>
#include <QRandomGenerator>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

NewFile::NewFile(const QString& target) : m_target(target)
{
    const QString folder = QFileInfo(target).path();
    // Short, because the target's name may be as long as names can be.
    for (int attempt = 0; attempt < 10 && !m_created; ++attempt) {
        m_file.setFileName(QStringLiteral("%1/.sonavia-%2")
                               .arg(folder)
                               .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0')));
        m_created = m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered);
        if (!m_created && !m_file.exists())
            break; // it is not the name that was taken
    }
}

NewFile::~NewFile()
{
    if (m_created && !m_tookPlace)
        m_file.remove();
}

bool NewFile::synchronize()
{
#ifdef Q_OS_UNIX
    return ::fsync(m_file.handle()) == 0;
#else
    return true;
#endif
}

bool NewFile::takePlace()
{
    m_file.close();
    std::error_code error;
    std::filesystem::rename(filePath(m_file.fileName()), filePath(m_target), error);
    m_tookPlace = !error;
    return m_tookPlace;
}
