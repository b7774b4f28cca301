#ifndef SONAVIA_TESTS_EVALUATION_DISKFAULTS_H
#define SONAVIA_TESTS_EVALUATION_DISKFAULTS_H

#include <QtGlobal>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <unistd.h>
#endif

/// While it lives, no file of this process grows over a size: writing fails as on a full disk, after a part
/// of the bytes.
class FullDisk
{
public:
    explicit FullDisk(unsigned long freeBytes)
    {
#ifdef Q_OS_UNIX
        ::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{freeBytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
#else
        Q_UNUSED(freeBytes)
#endif
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;
    ~FullDisk()
    {
#ifdef Q_OS_UNIX
        ::setrlimit(RLIMIT_FSIZE, &m_before);
#endif
    }

private:
#ifdef Q_OS_UNIX
    rlimit m_before{};
#endif
};

/// While it lives, the process has no more rights than any user, so that permissions count also where tests
/// run as root.
class OrdinaryUser
{
public:
    OrdinaryUser()
    {
#ifdef Q_OS_UNIX
        m_wasRoot = ::geteuid() == 0 && ::seteuid(nobody) == 0;
#endif
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;
    ~OrdinaryUser()
    {
#ifdef Q_OS_UNIX
        if (m_wasRoot && ::seteuid(0) != 0)
            qFatal("cannot become root again");
#endif
    }

private:
#ifdef Q_OS_UNIX
    static constexpr uid_t nobody = 65534;
#endif
    bool m_wasRoot = false;
};

constexpr bool canFeignDiskFaults()
{
#ifdef Q_OS_UNIX
    return true;
#else
    return false;
#endif
}

#endif
