#pragma once

// A disk of the server's own for tables of a test, which is full whenever the test wants it.

#include "support/data_server.h"
#include "support/disk.h"

#ifdef Q_OS_LINUX

namespace support {

class ServerDisk {
public:
    explicit ServerDisk(const char* size) : m_disk((QDir().mkpath(place()), place()), size) {
        if (!m_disk.mounted)
            return;
        QDir().mkpath(tables());
        EXPECT_EQ(
            QProcess::execute(QStringLiteral("chown"), {QStringLiteral("--reference=") + server_folder(), tables()}),
            0);
        psql(QStringLiteral("create tablespace small location '%1'").arg(tables()));
        psql(QStringLiteral("grant create on tablespace small to public"));
    }
    ~ServerDisk() {
        if (!m_disk.mounted)
            return;
        for (const char* sql : {"alter table all in tablespace small set tablespace pg_default",
                 "drop tablespace small", "checkpoint"}) // a new life looks for what it remembers
            psql(QString::fromLatin1(sql));
    }
    ServerDisk(const ServerDisk&) = delete;
    ServerDisk& operator=(const ServerDisk&) = delete;

    bool is_there() const { return m_disk.mounted; } ///< only the administrator has such a disk

    /// The tables of the schema lie there from now on. Empty ones take no room, so that their first row needs some.
    static void take(const QString& schema, const QStringList& tables) {
        for (const QString& table : tables)
            psql(QStringLiteral("alter table \"%1\".%2 set tablespace small").arg(schema, table));
    }

    static void fill() {
        QFile file(filler());
        if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
            while (file.write(QByteArray(4096, 'x')) > 0) {
            }
    }
    static void empty() { QFile::remove(filler()); }

private:
    static QString place() { return server_folder() + QStringLiteral("/disk"); }
    static QString tables() { return place() + QStringLiteral("/tables"); }
    static QString filler() { return place() + QStringLiteral("/filler"); }

    SmallDisk m_disk;
};

} // namespace support

#endif
