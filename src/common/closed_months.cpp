#include "common/closed_months.h"

#include "base/literals.h"
#include "store/database.h"
#include "store/files.h"

#include <QFile>
#include <QSysInfo>
#include <algorithm>

namespace common {

using namespace base;

namespace {

const QString time_format = u"yyyyMMddHHmmss"_s;

std::optional<store::Database> open_closings(const Settings& settings) {
    const QString path = store::closings_path(settings);
    if (!QFile::exists(path))
        return std::nullopt;
    return store::Database::open(path, store::Kind::Closings);
}

/// Another PC may make it at the same moment.
store::Database open_or_make(const Settings& settings) {
    if (auto database = open_closings(settings))
        return std::move(*database);
    try {
        return store::Database::create(store::closings_path(settings), store::Kind::Closings);
    } catch (const store::Error& error) {
        if (error.code() != store::Code::Exists)
            throw;
        return store::Database::open(store::closings_path(settings), store::Kind::Closings);
    }
}

bool is_closed(store::Database& database, int month) {
    return database.prepare("select 1 from simekiri where 年月 = ? and 解除日時 is null").bind(month).step();
}

void keep(store::Database& database, int month, const QHash<EmployeeKey, KeptSums>& sums) {
    database.prepare("delete from simekiri_kei where 年月 = ?").bind(month).run();
    auto insert = database.prepare("insert into simekiri_kei values (?, ?, ?, ?)");
    for (const auto& [employee, kept] : sums.asKeyValueRange())
        for (const auto& [what, value] : kept.asKeyValueRange())
            insert.bind(month, employee, what, value).run();
}

} // namespace

Noted noted_now(const QDateTime& now) {
    return {now, QSysInfo::machineHostName()};
}

QList<Closing> closings_of(const Settings& settings, int month) {
    QList<Closing> closings;
    auto database = open_closings(settings);
    if (!database)
        return closings;
    auto rows = database->prepare(
        "select 締日時, 締端末, 解除日時, 解除端末 from simekiri where 年月 = ? order by 締日時, rowid");
    rows.bind(month);
    while (rows.step()) {
        const store::Row fields = rows.row();
        const auto noted = [&](int first) {
            return Noted{QDateTime::fromString(fields.text(first), time_format), fields.text(first + 1)};
        };
        closings << Closing{noted(0), fields.text(2).isEmpty() ? std::nullopt : std::optional(noted(2))};
    }
    return closings;
}

std::optional<Noted> closed_since(const Settings& settings, int month) {
    const QList<Closing> closings = closings_of(settings, month);
    const auto open = std::ranges::find_if(closings, [](const Closing& closing) { return !closing.reopened; });
    return open == closings.end() ? std::nullopt : std::optional(open->closed);
}

bool close_month(const Settings& settings, int month, const Noted& by, const QHash<EmployeeKey, KeptSums>& sums) {
    auto database = open_or_make(settings);
    store::Transaction transaction(database);
    if (is_closed(database, month))
        return false;
    database.prepare("insert into simekiri (年月, 締日時, 締端末) values (?, ?, ?)")
        .bind(month, by.time.toString(time_format), by.pc)
        .run();
    keep(database, month, sums);
    transaction.commit();
    return true;
}

bool reopen_month(const Settings& settings, int month, const Noted& by) {
    auto database = open_closings(settings);
    if (!database)
        return false;
    database->prepare("update simekiri set 解除日時 = ?, 解除端末 = ? where 年月 = ? and 解除日時 is null")
        .bind(by.time.toString(time_format), by.pc, month)
        .run();
    return database->changes() > 0;
}

QHash<EmployeeKey, KeptSums> kept_sums(const Settings& settings, int month) {
    QHash<EmployeeKey, KeptSums> sums;
    auto database = open_closings(settings);
    if (!database)
        return sums;
    auto rows = database->prepare("select 社員システム番号, 種類, 値 from simekiri_kei where 年月 = ?");
    rows.bind(month);
    while (rows.step())
        sums[EmployeeKey(rows.row().number(0))].insert(rows.row().text(1), rows.row().number(2));
    return sums;
}

QString closed_words(int month, const Noted& since) {
    return u"%1年%2月は締められています（%3 %4）"_s.arg(month / 100)
        .arg(month % 100)
        .arg(since.time.toString(u"yyyy/MM/dd HH:mm"_s), since.pc)
        .replace(u" ）"_s, u"）"_s);
}

} // namespace common
