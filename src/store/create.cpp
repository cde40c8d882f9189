#include "platform/whole_file.h"
#include "store/connection.h"
#include "store/files.h"
#include "store/key.h"
#include "store/schema.h"

#include "base/literals.h"

#include <QFile>
#include <QTemporaryDir>
#include <sqlite3.h>

namespace store {

using namespace base;

namespace {

/// Nothing that is lost with a half-made file matters, so the engine keeps no journal and waits for no disk.
std::unique_ptr<Connection> define(const QString& path, Kind kind) {
    auto connection = std::make_unique<Connection>(path);
    connection->open(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    connection->unlock(key_for_new_file());
    connection->exec("pragma synchronous=off; pragma journal_mode=off; pragma cache_size=-65536; begin");
    connection->exec(definition_of(kind).toStdString());
    connection->exec("commit");
    return connection;
}

} // namespace

QString put_away_journal(const QString& path) {
    if (QFile::exists(path) || !QFile::exists(journal_of(path)))
        return {};
    const QString kept = journal_of(kept_name(path, QDateTime::currentDateTime()));
    if (!QFile::rename(journal_of(path), kept))
        throw Error(Code::ReadOnly, journal_of(path), {}, {});
    return kept;
}

QByteArray empty_database_image(Kind kind) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"new.mdb"_s);
    define(path, kind).reset();
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Error(Code::Other, path, {}, file.errorString());
    return file.readAll();
}

Database Database::create(const QString& path, Kind kind, const std::function<void(Database&)>& fill) {
    if (QFile::exists(path))
        throw Error(Code::Exists, path, {}, {});
    platform::NewFile beside(path);
    check_system(beside.make(), path);
    {
        Database database(define(beside.passing_path(), kind));
        if (fill)
            fill(database);
    }
    put_away_journal(path);
    check_system(beside.place(platform::Durability::Disk), path);
    return open(path, kind);
}

} // namespace store
