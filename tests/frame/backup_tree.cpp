#include "backup_tree.h"

#include "platform/paths.h"
#include "store/files.h"
#include "store/held.h"

#include <QDir>
#include <QFileInfo>

using namespace base;
using store::Database;
using store::Kind;

namespace {

void make(const BackupTree::Live& live, int employees) {
    QDir().mkpath(QFileInfo(live.path).path());
    Database::create(live.path, live.kind, [&](Database& database) {
        if (!database.has_table(u"syain"_s))
            return;
        store::Transaction transaction(database);
        store::Statement add =
            database.prepare("insert into syain values (?, ?, '社員の名前', 'シャイン', '', '', '')");
        for (int i = 1; i <= 2 * employees; ++i)
            add.bind(i, i).run();
        database.exec("delete from syain where システム番号 % 2 = 1");
        transaction.commit();
    });
}

/// What is tested is the order of the changes, and memory spares the waiting for the disk.
QString place() {
    const QString memory = u"/dev/shm"_s;
    return QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
}

} // namespace

BackupTree::BackupTree(int employees) : folder(place() + u"/backup-XXXXXX"_s), settings(settings_at(folder.path())) {
    for (const Live& live : live_files(settings))
        make(live, employees);
}

frame::Settings BackupTree::settings_at(const QString& drive) {
    frame::Settings settings;
    settings.install_drive = drive;
    settings.server_root = settings.local_root = drive + platform::install_tail();
    return settings;
}

std::array<BackupTree::Live, 4> BackupTree::live_files(const frame::Settings& settings) {
    return {
        {{Kind::Rovdata, store::rovdata_path(settings), "insert into rovmei (社員システム番号, 出社日) values (7, ?)",
             "select count(*), sum(出社日) from rovmei"},
            {Kind::Comsys, store::comsys_path(settings), "insert into bangou values ('saved', ?)",
                "select count(*), sum(番号) from bangou"},
            {Kind::Allsystem, store::allsystem_path(settings), "insert into allsystem (製品番号) values (?)",
                "select count(*), sum(製品番号) from allsystem"},
            {Kind::Losys, store::losys_path(settings), "insert into losystem values ('saved', ?)",
                "select count(*), sum(データ) from losystem"}}};
}

std::string BackupTree::rows(qint64 count, qint64 sum) {
    return std::to_string(count) + " rows, " + std::to_string(sum) + " in all";
}

void BackupTree::save(const Live& live, int number) {
    for (;;) {
        try {
            Database database = Database::open(live.path, live.kind);
            store::Transaction transaction(database);
            database.prepare(live.save).bind(number).run();
            return transaction.commit();
        } catch (const store::Error& error) {
            if (error.code() != store::Code::Busy)
                throw;
        }
    }
}

std::string BackupTree::saved(const Live& live, const QString& path) {
    Database database = store::open_checked(path, live.kind);
    store::Statement statement = database.prepare(live.saved);
    statement.step();
    return rows(statement.row().number(0), statement.row().number(1));
}
