#pragma once

// The server that scripts/with-server runs for a test program; without it there is none.

#include "store/server_place.h"

#include <QDir>
#include <QFile>
#include <QProcess>
#include <QUuid>
#include <cstdlib>
#include <gtest/gtest.h>

namespace support {

/// What libpq connects with; empty without a server.
inline QByteArray data_server() {
    const auto place = store::place_for_new(QDir::tempPath() + QStringLiteral("/any.mdb"), store::Kind::Comsys);
    return place ? place->connection : QByteArray();
}

/// What scripts/with-server makes for it: its data, its socket, and what tells it to die and to live.
inline QString server_folder() {
    return QString::fromUtf8(data_server().split(' ').first().mid(5));
}

/// Runs the server's own words with its own tool.
inline void psql(const QString& sql) {
    QProcess tool;
    tool.start(QStringLiteral("psql"), {QString::fromUtf8(data_server()), QStringLiteral("-qAtc"), sql});
    ASSERT_TRUE(tool.waitForFinished());
    ASSERT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().toStdString();
}

/// A database of a test's own beside the others'.
class OwnDatabase {
public:
    OwnDatabase() { psql(QStringLiteral("create database ") + m_name); }
    ~OwnDatabase() { psql(QStringLiteral("drop database %1 with (force)").arg(m_name)); }
    OwnDatabase(const OwnDatabase&) = delete;
    OwnDatabase& operator=(const OwnDatabase&) = delete;

    /// What libpq connects with.
    QByteArray connection() const { return data_server().replace("dbname=postgres", "dbname=" + m_name.toUtf8()); }

private:
    const QString m_name = QStringLiteral("own_") + QUuid::createUuid().toString(QUuid::Id128);
};

/// The server's sudden death by kill -9, and its new life; from whatever thread.
inline void tell_server(const QString& what) {
    ASSERT_EQ(std::system(QFile::encodeName(server_folder() + u'/' + what)), 0);
}

/// As a server's restart does.
inline void cut_all_connections() {
    psql(QStringLiteral("select pg_terminate_backend(pid, 10000) from pg_stat_activity"
                        " where pid <> pg_backend_pid() and backend_type = 'client backend'"));
}

} // namespace support
