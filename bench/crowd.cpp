// The company of many employees and work types.

#include "bench/companies.h"
#include "install/install.h"
#include "store/database.h"
#include "store/files.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTemporaryDir>

namespace bench {

namespace {

using store::Database;
using store::Kind;

constexpr int crowd = 10'000;
constexpr int work_types = 200;
constexpr int categories = 10;

/// Numbers from 1 on, as a table to insert from.
QByteArray numbers_to(int last) {
    return "with recursive n(i) as (values(1) union all select i + 1 from n where i < " + QByteArray::number(last) +
           ")";
}

void fill_crowd(Database& database, QByteArray rows) {
    database.exec(("insert into " + rows.replace("FROM_CROWD", numbers_to(crowd))).toStdString());
}

constexpr const char* employee_rows = "syain (システム番号, 社員番号, 社員名, フリガナ) FROM_CROWD"
                                      " select i, 20000 - i, '社員' || i, 'シャイン' || i from n";

void fill_rovdata(Database& rovdata) {
    store::Transaction transaction(rovdata);
    fill_crowd(rovdata, employee_rows);
    fill_crowd(rovdata, ("syainkinmu FROM_CROWD select i, 1 + i % " + QByteArray::number(work_types) + " from n"));
    rovdata.exec(("insert into kinsyu " + numbers_to(categories) + " select i, '種類' || i from n").toStdString());
    rovdata.exec(("insert into kintype " + numbers_to(work_types) +
                  ", d(w) as (select i - 1 from n where i < 8), b(r) as (select i from n where i < 4)"
                  " select i, '勤務' || i, r, w, 700 + 100 * r, 800 + 100 * r, r, 0, 600, 45, 0, 0, 0, 0 from n, d, b")
                     .toStdString());
    transaction.commit();
}

base::Settings fill_crowded(const QString& root) {
    install::Options options;
    options.root = root;
    options.assets = {QCoreApplication::applicationDirPath() + QStringLiteral("/../artwork")};
    install::run(options, root, [](const QString&) {});
    base::Settings settings = settings_of(options);
    auto rovdata = Database::open(store::rovdata_path(settings), Kind::Rovdata);
    fill_rovdata(rovdata);
    auto comsys = Database::open(store::comsys_path(settings), Kind::Comsys);
    fill_crowd(comsys, employee_rows);
    const QString sibling = QFileInfo(store::rovdata_path(settings)).path() + QStringLiteral("/sibling.mdb");
    Database::create(sibling, Kind::Any, [](Database& database) {
        database.exec("create table syain (システム番号 integer, 社員番号 integer, 社員名 text, フリガナ text,"
                      " 第１グループ text, 第２グループ text, 第３グループ text);"
                      "create index syain_key on syain (システム番号)");
        fill_crowd(database, employee_rows);
    });
    Database::open(store::allsystem_path(settings), Kind::Allsystem)
        .exec("insert into allsystem (個別dataファイル) values ('rovdata.mdb'), ('sibling.mdb')");
    return settings;
}

} // namespace

base::Settings& crowded_company() {
    static const QTemporaryDir folder(temporary_place());
    static base::Settings settings = fill_crowded(folder.path());
    return settings;
}

} // namespace bench
