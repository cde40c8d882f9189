#include "entry/month_load.h"

#include "base/numbers.h"
#include "base/text.h"
#include "common/count_tag.h"
#include "common/time_field.h"
#include "entry/cells.h"
#include "entry/waiting_days.h"
#include "frame/kept_files.h"
#include "store/error.h"
#include "store/files.h"

#include <QSet>
#include <list>
#include <utility>

namespace entry {

using namespace base;

namespace {

void show_day(base::Sheet& hyou, int r, const common::SavedDay& day) {
    if (r != row::total) {
        hyou(r, col::clock_in) = day.clock_in;
        hyou(r, col::clock_out) = day.clock_out;
    }
    hyou(r, col::break_time) = day.break_time;
    hyou(r, col::work_time) = day.work_time;
    hyou(r, col::remark) = day.remark;
}

void show_hours(MonthSheet& sheet, int r, qint64 category, const QString& time) {
    if (const auto column = category_column(sheet, category))
        sheet.hyou(r, *column) = time;
}

void show_count(base::Sheet& hyou_day, const common::SavedCount& count) {
    for (int column = 0; column < hyou_day.Cols(); ++column) {
        if (Trim(hyou_day(strip::tag, column)) != count.tag)
            continue;
        hyou_day(strip::count, column) = count.days;
        return;
    }
}

void clear_counts(base::Sheet& hyou_day) {
    for (int column = 0; column < hyou_day.Cols(); ++column)
        hyou_day(strip::count, column).clear();
}

void show_kind(MonthSheet& sheet, int r, const common::SavedKind& kind) {
    sheet.hyou_system(r, record::kind_number) = kind.number();
    sheet.hyou_system(r, record::kind_name) = kind.name();
    sheet.hyou_system(r, record::holiday_work) = kind.holiday_work();
    sheet.hyou(r, col::kind) = sheet.hyou_system(r, record::kind_name);
}

/// A row of an exchange file, its fields by what they hold: a column is named its ordinal + 1. The employee stands in
/// ordinal 6 of kind "51" and in ordinal 3 of the others.
enum WaitingField {
    waiting_date,
    waiting_kind_number,
    waiting_kind_name,
    waiting_days,
    waiting_row_kind,
    waiting_clock_in,
    waiting_hours = 10
};
constexpr qint64 day_counts = 53; ///< the kind of the rows of a month's counts
constexpr std::string_view waiting_rows =
    R"(select case "2" when '51' then "10" else "3" end, "5", "6", "7", "2", "11", "13", "14", "15", "16", "6")"
    R"( from jyusin where (case "2" when '51' then "7" else "4" end) = ? order by rowid)";

/// Lays the rows of one exchange file over the month as the exchange manager applies them (exchange/apply.h).
class WaitingRows {
public:
    explicit WaitingRows(MonthSheet& sheet) : m_sheet(sheet) {}

    void lay(store::Database& exchange, EmployeeKey employee) {
        auto rows = exchange.prepare(waiting_rows);
        rows.bind(digits(employee.value()));
        while (rows.step())
            if (const int date = rows.row().integer(waiting_date); rows.row().number(waiting_row_kind) == day_counts)
                lay_count(date, rows.row());
            else if (const auto r = m_sheet.month.row_of_key(date))
                lay(*r, rows.row());
    }

private:
    void lay(int r, const store::Row& fields) {
        const qint64 kind = fields.number(waiting_row_kind);
        m_counts = false;
        if (kind != 52)
            m_days_of_hours.clear();
        if (kind == 51)
            show_day(m_sheet.hyou, r, common::saved_day(fields, waiting_clock_in, common::PastMidnight::AsTyped));
        else if (kind == 52)
            lay_hours(r, fields);
        else if (kind == 54)
            lay_kind(r, fields);
    }

    /// The first row of a day in a stretch takes away the hours that stood there.
    void lay_hours(int r, const store::Row& fields) {
        if (!m_days_of_hours.contains(r))
            for (int column = col::first_category; column < m_sheet.hyou.Cols(); ++column)
                m_sheet.hyou(r, column).clear();
        m_days_of_hours.insert(r);
        show_hours(
            m_sheet, r, fields.number(waiting_kind_number), common::time_field_without_zero(fields, waiting_hours));
    }

    /// The first row of a stretch takes away the month's counts.
    void lay_count(int month, const store::Row& fields) {
        m_days_of_hours.clear();
        if (month != m_sheet.month.month_key())
            return;
        if (!std::exchange(m_counts, true))
            clear_counts(m_sheet.hyou_day);
        const common::CountTag tag{fields.number(waiting_kind_number), fields.number(waiting_kind_name)};
        if (const qint64 days = fields.number(waiting_days); days != 0)
            show_count(m_sheet.hyou_day, {tag.text(), grouped(days)});
    }

    void lay_kind(int r, const store::Row& fields) {
        if (fields.number(waiting_kind_number) != 0)
            return show_kind(m_sheet, r, common::SavedKind(fields));
        for (const int field : {record::kind_number, record::kind_name, record::holiday_work})
            m_sheet.hyou_system(r, field).clear();
        m_sheet.hyou(r, col::kind).clear();
    }

    MonthSheet& m_sheet;
    QSet<int> m_days_of_hours;
    bool m_counts = false; ///< whether a row of counts went before
};

/// An exchange file whose rows don't leave it as long as this lives.
struct Kept {
    explicit Kept(const QString& path) : file(store::Database::open(path, store::Kind::Exchange)) {
        file.prepare("select 1 from jyusin limit 1").step(); // a view begins with its first read
    }
    store::Database file;
    store::Transaction view{file, store::Transaction::Lock::Read};
};

/// The oldest first; but for files that have gone by now, and those that the manager can't read either.
std::list<Kept> hold_kept_files(const base::Settings& settings) {
    std::list<Kept> kept;
    for (const QString& path : frame::kept_files(settings)) {
        try {
            kept.emplace_back(path);
        } catch (const store::Error& error) {
            if (error.code() != store::Code::Replaced && !holds_no_rows(error.code()))
                throw;
        }
    }
    return kept;
}

MonthSheet empty_like(MonthSheet sheet) {
    for (int r = row::first_day; r <= row::total; ++r) {
        for (int column = col::clock_in; column < sheet.hyou.Cols(); ++column)
            sheet.hyou(r, column).clear();
        for (int field = 0; field < sheet.hyou_system.Cols(); ++field)
            sheet.hyou_system(r, field).clear();
    }
    clear_counts(sheet.hyou_day);
    return sheet;
}

MonthInTables read_tables(const MonthSheet& like, const QString& rovdata, EmployeeKey employee) {
    MonthSheet sheet = empty_like(like);
    auto database = store::Database::open(rovdata, store::Kind::Rovdata);
    const store::Transaction view(database, store::Transaction::Lock::Read);
    勤務時間取得(sheet, database, employee);
    return {database.state(), std::move(sheet)};
}

} // namespace

void 勤務時間取得(MonthSheet& sheet, store::Database& database, EmployeeKey employee) {
    common::SavedMonth saved(database, sheet.month, common::PastMidnight::AsTyped);
    saved.ask(employee);
    勤務時間取得(sheet, saved, employee);
}

void 勤務時間取得(MonthSheet& sheet, common::SavedMonth& saved, EmployeeKey employee) {
    saved.days(employee, [&](int r, const common::SavedDay& day) { show_day(sheet.hyou, r, day); });
    saved.hours(employee, [&](int r, qint64 category, const QString& time) { show_hours(sheet, r, category, time); });
    saved.counts(employee, [&](const common::SavedCount& count) { show_count(sheet.hyou_day, count); });
    saved.kinds(employee, [&](int r, const common::SavedKind& kind) { show_kind(sheet, r, kind); });
    sheet.entry_cell = {row::first_day, col::clock_in};
}

WorkType read_month(MonthSheet& sheet, store::Database& database, EmployeeKey employee, MonthInTables& in_tables) {
    // The exchange manager may be writing meanwhile.
    const store::Transaction view(database, store::Transaction::Lock::Read);
    common::SavedMonth saved(database, sheet.month, common::PastMidnight::AsTyped);
    saved.ask(employee);
    TypeOfEmployee types(database, employee);
    WorkType type = types.read(sheet);
    勤務時間取得(sheet, saved, employee);
    in_tables = {database.state(), sheet};
    return type;
}

WorkType read_month(MonthSheet& sheet, store::Database& database, EmployeeKey employee) {
    MonthInTables unasked;
    return read_month(sheet, database, employee, unasked);
}

MonthSheet month_in_tables(const MonthSheet& like, const base::Settings& settings, EmployeeKey employee) {
    return read_tables(like, store::rovdata_path(settings), employee).sheet;
}

// Rows move from exchange file 01 to a kept file and into the tables. The kept files are held before the tables are
// read, so that none is missed; one that is in the tables already stands as it stood.
MonthSheet month_as_stored(const MonthSheet& like, const base::Settings& settings, store::Database& exchange,
    EmployeeKey employee, MonthInTables& in_tables) {
    std::list<Kept> kept = hold_kept_files(settings);
    if (const QString rovdata = store::rovdata_path(settings); !store::stands_at(rovdata, in_tables.state))
        in_tables = read_tables(like, rovdata, employee);
    MonthSheet sheet = in_tables.sheet;
    for (Kept& older : kept)
        WaitingRows(sheet).lay(older.file, employee);
    WaitingRows(sheet).lay(exchange, employee);
    return sheet;
}

void trim_strip(base::Sheet& hyou_day) {
    int last = hyou_day.Cols() - 1;
    while (last >= strip::first_kind && hyou_day(strip::name, last).isEmpty())
        --last;
    if (last >= 1)
        hyou_day.SetCols(last + 1);
}

} // namespace entry
