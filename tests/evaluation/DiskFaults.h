#ifndef SONAVIA_TESTS_EVALUATION_DISKFAULTS_H
#define SONAVIA_TESTS_EVALUATION_DISKFAULTS_H

#include <QtGlobal>

#include <csignal>
#include <sys/resource.h>
#include <unistd.h>

/// While it lives, no file of this process grows over a size: writing fails as on a full disk, after a part
/// of the bytes.
class FullDisk
{
public:
    explicit FullDisk(rlim_t freeBytes)
    {
        ::signal(SIGXFSZ, SIG_IGN);
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{freeBytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { ::setrlimit(RLIMIT_FSIZE, &m_before); }
    Q_DISABLE_COPY(FullDisk)

private:
    rlimit m_before{};
};

/// While it lives, the process has no more rights than any user, so that permissions count also where tests
/// run as root.
class OrdinaryUser
{
public:
    OrdinaryUser() : m_wasRoot(::geteuid() == 0 && ::seteuid(65534) == 0) {}
    ~OrdinaryUser()
    {
        if (m_wasRoot && ::seteuid(0) != 0)
            qFatal("cannot become root again");
    }
    Q_DISABLE_COPY(OrdinaryUser)

private:
    bool m_wasRoot;
};

#endif
