#include "evaluation/core/fileCopy.h"

#include "evaluation/core/NewFile.h"
#include "evaluation/core/filePath.h"

#include <QDateTime>
#include <QFileInfo>

#include <algorithm>

#ifdef Q_OS_LINUX
#include <cerrno>
#include <sys/sendfile.h>
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

#else

bool copyContents(QFile& source, NewFile& target, const std::atomic<bool>& stop)
{
    // The system's own copy wants a name that is not taken.
    const QString name = target.file().fileName();
    target.file().remove();
    return !stop && QFile::copy(source.fileName(), name) &&
           target.file().open(QIODevice::ReadWrite | QIODevice::ExistingOnly | QIODevice::Unbuffered) &&
           target.file().size() == source.size();
}

#endif

} // namespace

bool copyFile(const QString& source, const QString& target, const std::atomic<bool>& stop)
{
    QFile in(source);
    if (!QFileInfo(source).isFile() || isSameFile(source, target) ||
        !in.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return false;
    NewFile copy(target);
    if (!copy.file().isOpen() || !copyContents(in, copy, stop))
        return false;
    copy.file().setFileTime(in.fileTime(QFileDevice::FileModificationTime),
                            QFileDevice::FileModificationTime);
    copy.file().setPermissions(in.permissions());
    if (QFileInfo::exists(target) && !copy.synchronize())
        return false; // the older file is worth the wait
    return copy.takePlace();
}
