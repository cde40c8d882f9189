#pragma once

// Disks and folders that refuse what is written to them.

#include <QFile>
#include <gtest/gtest.h>

#ifdef Q_OS_LINUX
#include <sys/mount.h>
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
    explicit SmallDisk(const QString& folder) : m_folder(QFile::encodeName(folder)) {
        mounted = mount("none", m_folder.constData(), "tmpfs", 0, "size=160k") == 0;
    }
    ~SmallDisk() {
        if (mounted)
            umount(m_folder.constData());
    }
    bool mounted = false;

private:
    QByteArray m_folder;
};

} // namespace support

#endif
