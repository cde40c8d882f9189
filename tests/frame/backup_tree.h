#pragma once

// A company's four databases where the program looks for them, and rows saved into them one by one.

#include "frame/drive_tree.h"
#include "store/held.h"
#include "support/killed.h"

#include <array>

class BackupTree : public DriveTree {
public:
    BackupTree() : DriveTree(support::fast_place()) {
        for (const Live& live : live_files(settings)) {
            Database database = Database::open(live.path, live.kind);
            if (!database.has_table(QStringLiteral("syain")))
                continue;
            add_employees(database, 300);
            database.exec("delete from syain where システム番号 % 2 = 1");
        }
    }

    using Database = store::Database;
    using Kind = store::Kind;
    struct Live {
        Kind kind;
        QString path;
        const char* save;  ///< adds a row with a number of its own
        const char* saved; ///< how many there are, and their sum
    };
    static std::array<Live, 4> live_files(const base::Settings& settings) {
        return {{{Kind::Rovdata, store::rovdata_path(settings),
                     "insert into rovmei (社員システム番号, 出社日) values (7, ?)",
                     "select count(*), sum(出社日) from rovmei"},
            {Kind::Comsys, store::comsys_path(settings), "insert into bangou values ('saved', ?)",
                "select count(*), sum(番号) from bangou"},
            {Kind::Allsystem, store::allsystem_path(settings), "insert into allsystem (製品番号) values (?)",
                "select count(*), sum(製品番号) from allsystem"},
            {Kind::Losys, store::losys_path(settings), "insert into losystem values ('saved', ?)",
                "select count(*), sum(データ) from losystem"}}};
    }
    static base::Settings settings_at(const QString& drive) {
        base::Settings settings;
        settings.install_drive = drive;
        settings.server_root = settings.local_root = platform::install_root(drive);
        return settings;
    }

    /// Saves the number into the file as a screen does; once more where another program was in the way.
    static void save(const Live& live, int number) {
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
    static std::string rows(qint64 count, qint64 sum) {
        return std::to_string(count) + " rows, " + std::to_string(sum) + " in all";
    }
    /// The same of a file; throws where the file isn't whole.
    static std::string saved(const Live& live, const QString& path) {
        Database database = store::open_checked(path, live.kind);
        store::Statement statement = database.prepare(live.saved);
        statement.step();
        return rows(statement.row().number(0), statement.row().number(1));
    }
    static std::string saved(const Live& live) { return saved(live, live.path); }
};
