#include "install/standing.h"

#include "base/literals.h"
#include "store/files.h"
#include "store/numbering.h"
#include "store/setup.h"

#include <QFileInfo>

namespace install {

using namespace base;
using store::Database;
using store::Kind;

namespace {

constexpr std::string_view count_masters = "select (select count(*) from syain) + (select count(*) from kinsyu)"
                                           " + (select count(*) from kintype) + (select count(*) from kyutype)"
                                           " + (select count(*) from syainkinmu)";

Database open_rovdata(const base::Settings& settings) {
    return Database::open(store::rovdata_path(settings), Kind::Rovdata);
}

void carry_counters(Database& from, Database& to) {
    store::Statement add = to.prepare("insert into bangou (番号名称, 番号) values (?, ?)");
    for (const QStringView counter : store::counter_names)
        add.bind(counter, store::highest_in_use(from, counter)).run();
}

void carry_staff(Database& from, Database& to) {
    store::Statement add = to.prepare(
        "insert into syain (システム番号, 社員番号, 社員名, フリガナ, 第１グループ, 第２グループ, 第３グループ)"
        " values (?, ?, ?, ?, ?, ?, ?)");
    store::Statement staff =
        from.prepare("select システム番号, 社員番号, 社員名, フリガナ, 第１グループ,"
                     " 第２グループ, 第３グループ from syain where システム番号<>0 order by rowid");
    while (staff.step()) {
        const store::Row row = staff.row();
        add.bind(row.number(0), row.number(1), row.text(2), row.text(3), row.text(4), row.text(5), row.text(6)).run();
    }
}

} // namespace

bool holds_masters(const base::Settings& settings) {
    if (!QFileInfo::exists(store::rovdata_path(settings)))
        return false;
    Database rovdata = open_rovdata(settings);
    store::Statement count = rovdata.prepare(count_masters);
    return count.step() && count.row().number(0) > 0;
}

void carry_on(Database& comsys, const base::Settings& settings) {
    Database rovdata = open_rovdata(settings);
    carry_counters(rovdata, comsys);
    carry_staff(rovdata, comsys);
}

void register_if_filled(const base::Settings& settings) {
    if (!holds_masters(settings))
        return;
    Database allsystem = Database::open(store::allsystem_path(settings), Kind::Allsystem);
    store::register_product(allsystem, settings);
}

} // namespace install
