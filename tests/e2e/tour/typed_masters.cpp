#include "typed_masters.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "store/files.h"

namespace tour {

using namespace base;

namespace {

constexpr int saturday_number = 6;
constexpr int weekdays = 7;

QString line(std::initializer_list<QString> cells) {
    return QStringList(cells).join(u'\t');
}

QStringList categories() {
    QStringList rows;
    for (const QStringView name : typed_categories)
        rows << name.toString();
    return rows;
}

QString band_row(int weekday, int band, const TypedBand& typed) {
    return line({typed_type.toString(), digits(weekday), digits(band), typed.start.toString(), typed.end.toString(),
        typed.category.toString(), digits(Val(typed.threshold)), digits(Val(typed.pause))});
}

QStringList bands() {
    QStringList rows;
    for (int weekday = 0; weekday < weekdays; ++weekday) {
        if (weekday == saturday_number) {
            TypedBand shorter = saturday;
            shorter.threshold = every_day[0].threshold; // a cell that isn't typed over stays
            shorter.pause = every_day[0].pause;
            rows << band_row(weekday, 1, shorter);
            continue;
        }
        for (int i = 0; i < int(std::size(every_day)); ++i)
            rows << band_row(weekday, i + 1, every_day[i]);
    }
    return rows;
}

QStringList kinds() {
    QStringList rows;
    for (const TypedKind& kind : typed_kinds) {
        const bool attendance = kind.day_class == u"出勤";
        const QString mark = kind.standard ? digits(attendance ? 2 : 1) : QString();
        rows << line({kind.name.toString(), mark, digits(attendance ? 1 : 0)});
    }
    return rows;
}

QStringList employees() {
    QStringList rows;
    for (const TypedEmployee& employee : typed_employees)
        rows << line({employee.number.toString(), employee.name.toString(), employee.reading.toString()});
    return rows;
}

QStringList assignments() {
    QStringList rows;
    for (const TypedEmployee& employee : typed_employees)
        rows << line({employee.number.toString(), typed_type.toString()});
    return rows;
}

constexpr std::string_view employee_rows =
    "select 社員番号, 社員名, フリガナ from syain where システム番号 <> 0 order by システム番号";

struct Check {
    QStringView table;
    QString (*path)(const base::Settings&);
    store::Kind kind;
    std::string_view sql;
    QStringList (*wanted)();
};

constexpr Check checks[] = {
    {u"kinsyu", store::rovdata_path, store::Kind::Rovdata, "select 種類名 from kinsyu order by システム番号",
        categories},
    {u"kintype", store::rovdata_path, store::Kind::Rovdata,
        "select 勤務タイプ名, 曜日, 連番, 開始時間, 終了時間, 種類名, 休憩勤務時間1, 休憩時間1 from kintype"
        " left join kinsyu on kinsyu.システム番号 = 時間種類 where 時間計算 = 0 and 休憩勤務時間2 = 0 and 休憩時間2 = 0"
        " and 休憩勤務時間3 = 0 and 休憩時間3 = 0 order by kintype.システム番号, 曜日, 連番",
        bands},
    {u"kyutype", store::rovdata_path, store::Kind::Rovdata,
        "select 休暇名, 通常, 休出 from kyutype order by システム番号", kinds},
    {u"syain", store::rovdata_path, store::Kind::Rovdata, employee_rows, employees},
    {u"syain in comsys", store::comsys_path, store::Kind::Comsys, employee_rows, employees},
    {u"syainkinmu", store::rovdata_path, store::Kind::Rovdata,
        "select 社員番号, (select min(勤務タイプ名) from kintype where システム番号 = 勤務タイプ) from syainkinmu"
        " join syain on syain.システム番号 = システム社員番号 order by 社員番号",
        assignments},
};

QStringList rows_now(const Check& check, const base::Settings& settings) {
    return e2e::rows_of(check.path(settings), check.kind, check.sql);
}

/// The rows of `all` that remain when each row of `some` is taken out once.
QStringList without(QStringList all, const QStringList& some) {
    for (const QString& row : some)
        all.removeOne(row);
    return all;
}

} // namespace

KnownCompany typed_company() {
    // With the first band's break from 6:00 on, the second one's from 2:00 on.
    return {.name = u"new"_s,
        .employee_row = 1,
        .leave = typed_kinds[0].name.toString(),
        .sunday_work = typed_kinds[1].name.toString(),
        .weekday_figures = {{u"830"_s, u"1715"_s, {u"0:45"_s, u"8:00"_s, u"8:45"_s, u""_s}},
            {u"825"_s, u"1730"_s, {u"0:45"_s, u"8:20"_s, u"8:45"_s, u"0:15"_s}},
            {u"840"_s, u"1945"_s, {u"1:00"_s, u"10:05"_s, u"8:35"_s, u"2:30"_s}},
            {u"830"_s, u"2210"_s, {u"1:00"_s, u"12:40"_s, u"8:45"_s, u"4:45"_s}}}};
}

TablesBefore::TablesBefore(const base::Settings& settings) : m_settings(settings) {
    for (const Check& check : checks)
        m_rows << rows_now(check, settings);
}

QStringList TablesBefore::faults() const {
    QStringList faults;
    for (int i = 0; i < int(std::size(checks)); ++i) {
        const QStringList came = without(rows_now(checks[i], m_settings), m_rows[i]);
        const QStringList wanted = checks[i].wanted();
        if (came != wanted)
            faults << u"%1:\n    typed  %2\n    stored %3"_s.arg(
                checks[i].table, wanted.join(u"\n           "), came.join(u"\n           "));
    }
    return faults;
}

} // namespace tour
