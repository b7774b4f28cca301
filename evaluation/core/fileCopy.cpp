#include "evaluation/core/fileCopy.h"

#include "evaluation/core/filePath.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <sys/sendfile.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

#ifdef Q_OS_LINUX

constexpr qint64 portion = 16 << 20; // bytes between two looks at `stop`

/// Copies up to `count` bytes between the present offsets of two files; the number copied, -1 on an error.
/// Not every pair of file systems knows the first way, which can share blocks and stays on a server; the
/// second one works for all, and says what is wrong.
ssize_t copySome(int source, int target, std::size_t count)
{
    const ssize_t copied = ::copy_file_range(source, nullptr, target, nullptr, count, 0);
    return copied > 0 ? copied : ::sendfile(target, source, nullptr, count);
}

bool copyContents(QFile& source, NewFile& target, const std::atomic<bool>& stop)
{
    qint64 left = source.size();
    while (left > 0 && !stop) {
        const ssize_t copied = copySome(source.handle(), target.file().handle(),
                                        static_cast<std::size_t>(std::min(left, portion)));
        if (copied < 0 && errno == EINTR)
            continue;
        if (copied <= 0)
            return false;
        left -= copied;
    }
    return left == 0;
}

/// By hand, since Qt asks for each permission and takes the time through the computer's zone.
void copyAttributes(const QFile& source, NewFile& target)
{
    struct stat status
    {};
    if (::fstat(source.handle(), &status) != 0)
        return;
    const timespec times[] = {{0, UTIME_OMIT}, status.st_mtim};
    ::futimens(target.file().handle(), times);
    ::fchmod(target.file().handle(), status.st_mode & 0777);
}

#else

bool copyContents(QFile& source, NewFile& target, const std::atomic<bool>& stop)
{
    // The system's own copy wants a name that is not taken.
    const QString name = target.file().fileName();
    target.file().remove();
    if (stop || !QFile::copy(source.fileName(), name))
        return false;
    // The copy of a write-protected recording is protected, too, and could be neither opened nor removed.
    QFile::setPermissions(name, QFile::permissions(name) | QFileDevice::WriteOwner | QFileDevice::WriteUser);
    return target.file().open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered) &&
           target.file().size() == source.size();
}

void copyAttributes(const QFile& source, NewFile& target)
{
    target.file().setFileTime(source.fileTime(QFileDevice::FileModificationTime),
                              QFileDevice::FileModificationTime);
    target.file().setPermissions(source.permissions());
}

#endif

} // namespace

std::unique_ptr<NewFile> prepareCopy(const QString& source, const QString& target,
                                     const std::atomic<bool>& stop)
{
    QFile in(source);
    if (!QFileInfo(source).isFile() || isSameFile(source, target) ||
        !in.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return nullptr;
    auto copy = std::make_unique<NewFile>(target);
    if (!copy->file().isOpen() || !copyContents(in, *copy, stop))
        return nullptr;
    copyAttributes(in, *copy);
    return copy;
}

bool finishCopy(std::unique_ptr<NewFile> copy)
{
    if (!copy || (QFileInfo::exists(copy->target()) && !copy->synchronize()))
        return false; // the older file is worth the wait
    return copy->takePlace();
}
