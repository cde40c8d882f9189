#pragma once

// Disks and folders that refuse what is written to them.

#include <QFile>
#include <gtest/gtest.h>

#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/mount.h>
#include <sys/resource.h>
#include <unistd.h>

namespace support {

/// The administrator may write anything, so these steps run as nobody.
class AsNobody {
public:
    AsNobody() : m_was(geteuid()) {
        if (m_was == 0) {
            EXPECT_EQ(seteuid(65534), 0);
        }
    }
    ~AsNobody() { EXPECT_EQ(seteuid(m_was), 0); }

private:
    uid_t m_was;
};

constexpr auto readable = QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther;
constexpr auto enterable = readable | QFile::ExeOwner | QFile::ExeGroup | QFile::ExeOther;

/// A disk of its own that is quickly full; only the administrator can have one.
class SmallDisk {
public:
    explicit SmallDisk(const QString& folder, const char* size = "size=160k") : m_folder(QFile::encodeName(folder)) {
        mounted = mount("none", m_folder.constData(), "tmpfs", 0, size) == 0;
    }
    ~SmallDisk() {
        if (mounted)
            umount2(m_folder.constData(), MNT_DETACH); // somebody else may have it open still
    }
    bool mounted = false;

private:
    QByteArray m_folder;
};

/// A disk that takes only so many bytes of any file that this program writes.
class ShortFiles {
public:
    explicit ShortFiles(rlim_t bytes) : m_signalled(std::signal(SIGXFSZ, SIG_IGN)) {
        EXPECT_EQ(getrlimit(RLIMIT_FSIZE, &m_was), 0);
        const rlimit shorter{bytes, m_was.rlim_max};
        EXPECT_EQ(setrlimit(RLIMIT_FSIZE, &shorter), 0);
    }
    ~ShortFiles() {
        setrlimit(RLIMIT_FSIZE, &m_was);
        std::signal(SIGXFSZ, m_signalled);
    }

private:
    rlimit m_was{};
    void (*m_signalled)(int);
};

} // namespace support

#endif
