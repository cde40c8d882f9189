#pragma once

// The server that scripts/with-server runs for a test program; without it there is none.

#include "store/server_place.h"

#include <QDir>
#include <QProcess>
#include <gtest/gtest.h>

namespace support {

/// What libpq connects with; empty without a server.
inline QByteArray data_server() {
    const auto place = store::place_for_new(QDir::tempPath() + QStringLiteral("/any.mdb"), store::Kind::Comsys);
    return place ? place->connection : QByteArray();
}

/// Runs the server's own words with its own tool.
inline void psql(const QString& sql) {
    QProcess tool;
    tool.start(QStringLiteral("psql"), {QString::fromUtf8(data_server()), QStringLiteral("-qAtc"), sql});
    ASSERT_TRUE(tool.waitForFinished());
    ASSERT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().toStdString();
}

/// The server's sudden death by kill -9, and its new life.
inline void tell_server(const QString& what) {
    const QString folder = QString::fromUtf8(data_server().split(' ').first().mid(5));
    ASSERT_EQ(QProcess::execute(folder + u'/' + what, QStringList()), 0);
}

/// As a server's restart does.
inline void cut_all_connections() {
    psql(QStringLiteral("select pg_terminate_backend(pid, 10000) from pg_stat_activity"
                        " where pid <> pg_backend_pid() and backend_type = 'client backend'"));
}

} // namespace support
