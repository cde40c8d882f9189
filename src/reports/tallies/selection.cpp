#include "reports/tallies/selection.h"

#include "base/era.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "common/employee_order.h"
#include "store/files.h"

#include <algorithm>

namespace reports {

using namespace base;

namespace {

qint64 first_number(store::Statement query) {
    return query.step() ? query.row().number(0) : 0;
}

int date_of(const QString& text, const frame::Session& session) {
    return western_date_number(text, session.settings, session.host.now().date());
}

} // namespace

EmployeeRange chosen_employees(const Conditions& conditions) {
    const auto [first, last] = std::minmax({Val(conditions.systancd[0]), Val(conditions.systancd[1])});
    return {first, last};
}

EmployeeRange all_employees(store::Database& rovdata) {
    return {first_number(rovdata.prepare("select min(システム番号) from syain where システム番号 > 0")),
        first_number(rovdata.prepare("select max(システム番号) from syain where システム番号 > 0"))};
}

QString chosen_names(const Conditions& conditions) {
    if (conditions.tancd[0].isEmpty() && conditions.tancd[1].isEmpty())
        return {};
    return u'【' + conditions.ntancd[0] + u'～' + conditions.ntancd[1] + u'】';
}

std::optional<CompanyMonth> chosen_month(const Conditions& conditions, const frame::Session& session) {
    const qint64 month = Val(conditions.yyyymm[1]);
    if (Val(conditions.yyyymm[0]) <= 0 || month < 1 || month > 12)
        return std::nullopt;
    const QString first = conditions.yyyymm[0] + u'/' + digits(month) + u"/1"_s;
    const QDate date = date_of_number(date_of(first, session));
    if (!date.isValid())
        return std::nullopt;
    return CompanyMonth(date.year(), date.month(), session.settings.month_start_day);
}

DateRange chosen_dates(const Conditions& conditions, const frame::Session& session) {
    const int first = date_of(conditions.ymd[0], session);
    const int last = date_of(conditions.ymd[1], session);
    if (first != 0 && last != 0)
        return {std::min(first, last), std::max(first, last)};
    return {first == 0 ? DateRange::open_first : first, last == 0 ? DateRange::open_last : last};
}

void set_title(Report& report, const QString& title) {
    report.midasi = {title};
    report.chulab.clear();
}

void sort_employees(Sheet& hyou, const frame::Session& session, int key_col, int number_col) {
    if (common::employee_order(session.tables) == common::EmployeeOrder::Registered)
        hyou.Sort(key_col, SortOrder::NumericAscending);
    else
        hyou.Sort(number_col, SortOrder::TextAscending);
}

store::Database open_rovdata(const frame::Session& session) {
    return store::Database::open(store::rovdata_path(session.settings), store::Kind::Rovdata);
}

QHash<qint64, QString> category_names(store::Database& rovdata) {
    QHash<qint64, QString> names;
    auto query = rovdata.prepare("select システム番号, 種類名 from kinsyu");
    while (query.step())
        names.insert(query.row().number(0), Trim(query.row().text(1)));
    return names;
}

bool goes_on(const Work& work, qint64 done, qint64 total) {
    return !work.progress || work.progress(done, total);
}

} // namespace reports
