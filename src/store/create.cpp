#include "platform/whole_file.h"
#include "store/file_engine.h"
#include "store/files.h"
#include "store/key.h"
#include "store/schema.h"
#include "store/server.h"

#include "base/literals.h"

#include <QFile>
#include <QTemporaryDir>
#include <sqlite3.h>

namespace store {

using namespace base;

namespace {

void write(const platform::NewFile& beside, const ServerPlace& place) {
    QFile file(beside.passing_path());
    const QByteArray bytes = bytes_of(place);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw Error(Code::Io, file.fileName(), {}, file.errorString());
}

} // namespace

std::unique_ptr<FileEngine> define_file(const QString& path, Kind kind) {
    auto engine = std::make_unique<FileEngine>(path);
    engine->open(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE);
    engine->unlock(key_for_new_file());
    engine->exec("pragma synchronous=off; pragma journal_mode=off; pragma cache_size=-65536; begin");
    engine->exec(file_definition_of(kind).toStdString());
    engine->exec("commit");
    return engine;
}

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
    define_file(path, kind).reset();
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
    if (const std::optional<ServerPlace> place = place_for_new(path, kind)) {
        create_on_server(*place, path, kind, fill);
        write(beside, *place);
    } else {
        Database database(define_file(beside.passing_path(), kind));
        if (fill)
            fill(database);
    }
    put_away_journal(path);
    check_system(beside.place(platform::Durability::Disk), path);
    return open(path, kind);
}

void make_on_server(const ServerPlace& place, const QString& path, Kind kind) {
    create_on_server(place, path, kind, {});
    check_system(platform::write_new_file(path, bytes_of(place), platform::Durability::Disk), path);
}

} // namespace store
