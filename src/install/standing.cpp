#include "install/standing.h"

#include "base/literals.h"
#include "store/files.h"
#include "store/setup.h"

#include <QFileInfo>
#include <string>

namespace install {

using namespace base;
using store::Database;
using store::Kind;

namespace {

constexpr std::string_view count_masters = "select (select count(*) from syain) + (select count(*) from kinsyu)"
                                           " + (select count(*) from kintype) + (select count(*) from kyutype)"
                                           " + (select count(*) from syainkinmu)";

/// Attendance and other masters may still name what was deleted, so they count as well.
struct Counter {
    QStringView name;
    std::string_view numbers; ///< all that are in use, as `n`
};
constexpr Counter counters[]{
    {u"勤務種類",
        "select システム番号 n from kinsyu union select 時間種類 from kintype union select 勤務種類 from kinjisyu"},
    {u"勤務時間", "select システム番号 n from kintype union select 勤務タイプ from syainkinmu"},
    {u"休暇種類", "select システム番号 n from kyutype union select システム番号 from kyumei"},
    {u"社員番号", "select システム番号 n from syain union select 社員システム番号 from rovmei"},
};

Database open_rovdata(const frame::Settings& settings) {
    return Database::open(store::rovdata_path(settings), Kind::Rovdata);
}

qint64 number(Database& database, const std::string& sql) {
    store::Statement statement = database.prepare(sql);
    return statement.step() ? statement.row().number(0) : 0;
}

void carry_counters(Database& comsys, Database& rovdata) {
    store::Statement add = comsys.prepare("insert into bangou (番号名称, 番号) values (?, ?)");
    for (const Counter& counter : counters)
        add.bind(counter.name, number(rovdata, "select max(n) from (" + std::string(counter.numbers) + ")")).run();
}

void carry_staff(Database& comsys, Database& rovdata) {
    store::Statement add = comsys.prepare(
        "insert into syain (システム番号, 社員番号, 社員名, フリガナ, 第１グループ, 第２グループ, 第３グループ)"
        " values (?, ?, ?, ?, ?, ?, ?)");
    store::Statement staff =
        rovdata.prepare("select システム番号, 社員番号, 社員名, フリガナ, 第１グループ,"
                        " 第２グループ, 第３グループ from syain where システム番号<>0 order by rowid");
    while (staff.step()) {
        const store::Row row = staff.row();
        add.bind(row.number(0), row.number(1), row.text(2), row.text(3), row.text(4), row.text(5), row.text(6)).run();
    }
}

} // namespace

bool holds_masters(const frame::Settings& settings) {
    if (!QFileInfo::exists(store::rovdata_path(settings)))
        return false;
    Database rovdata = open_rovdata(settings);
    return number(rovdata, std::string(count_masters)) > 0;
}

void carry_on(Database& comsys, const frame::Settings& settings) {
    Database rovdata = open_rovdata(settings);
    carry_counters(comsys, rovdata);
    carry_staff(comsys, rovdata);
}

void register_if_filled(const frame::Settings& settings) {
    if (!holds_masters(settings))
        return;
    Database allsystem = Database::open(store::allsystem_path(settings), Kind::Allsystem);
    store::register_product(allsystem, settings);
}

} // namespace install
