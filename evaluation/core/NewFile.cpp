#include "evaluation/core/NewFile.h"

#include "evaluation/core/filePath.h"

#include <QFileInfo>
#include <QRandomGenerator>

#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif
#ifdef Q_OS_LINUX
#include <cerrno>
#include <fcntl.h>
#endif

namespace {

constexpr int attempts = 10; // to find a name that is not taken

} // namespace

NewFile::NewFile(const QString& target) : m_target(target)
{
    openWithoutName(QFileInfo(target).path());
    if (!m_file.isOpen())
        openUnderHiddenName();
}

NewFile::~NewFile()
{
    m_file.close();
    if (m_hasHiddenName)
        QFile::remove(m_hiddenName);
}

void NewFile::chooseHiddenName()
{
    // Short, because the target's name may be as long as names can be.
    m_hiddenName = QStringLiteral("%1/.sonavia-%2")
                       .arg(QFileInfo(m_target).path())
                       .arg(QRandomGenerator::global()->generate(), 8, 16, QLatin1Char('0'));
}

#ifdef Q_OS_LINUX

void NewFile::openWithoutName(const QString& folder)
{
    if (::access("/proc/self/fd", X_OK) != 0)
        return; // takeName() could not work
    const int handle = ::open(QFile::encodeName(folder).constData(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
    if (handle >= 0)
        m_file.open(handle, QIODevice::WriteOnly | QIODevice::Unbuffered, QFileDevice::AutoCloseHandle);
}

bool NewFile::takeName()
{
    const QByteArray file = "/proc/self/fd/" + QByteArray::number(m_file.handle());
    const auto linkTo = [&file](const QString& path) {
        return ::linkat(AT_FDCWD, file.constData(), AT_FDCWD, QFile::encodeName(path).constData(),
                        AT_SYMLINK_FOLLOW) == 0;
    };
    if (linkTo(m_target))
        return true;
    for (int attempt = 0; attempt < attempts && !m_hasHiddenName && errno == EEXIST; ++attempt) {
        chooseHiddenName();
        m_hasHiddenName = linkTo(m_hiddenName);
    }
    return m_hasHiddenName;
}

#else

void NewFile::openWithoutName(const QString&)
{}

bool NewFile::takeName()
{
    return false; // it always has one
}

#endif

void NewFile::openUnderHiddenName()
{
    for (int attempt = 0; attempt < attempts && !m_hasHiddenName; ++attempt) {
        chooseHiddenName();
        m_file.setFileName(m_hiddenName);
        m_hasHiddenName = m_file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered);
        if (!m_hasHiddenName && !m_file.exists())
            break; // it is not the name that was taken
    }
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
    if (!m_hasHiddenName && !takeName())
        return false;
    m_file.close();
    if (!m_hasHiddenName)
        return true; // the target's name was free
    std::error_code error;
    std::filesystem::rename(filePath(m_hiddenName), filePath(m_target), error);
    m_hasHiddenName = static_cast<bool>(error);
    return !error;
}
