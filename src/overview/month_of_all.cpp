#include "overview/month_of_all.h"

#include "base/text.h"
#include "entry/cells.h"
#include "entry/day_kinds.h"
#include "entry/employees.h"
#include "entry/layout.h"

#include <QHash>
#include <algorithm>

namespace overview {

using namespace base;
using entry::MonthSheet;

namespace {

// The employees lead, so that each one's days are found by their key.
constexpr std::string_view days_sql = "select d.社員システム番号, 出社日, 出社時間, 退社時間, 勤務時間"
                                      " from syain s cross join rovmei d on d.社員システム番号 = s.システム番号"
                                      " and 出社日 between ? and ?";
constexpr std::string_view kinds_sql = "select d.社員システム番号, 年月日, d.システム番号, 休暇名, 休出"
                                       " from syain s cross join kyumei d on d.社員システム番号 = s.システム番号"
                                       " and 年月日 between ? and ?";
constexpr std::string_view hours_sql = "select d.社員システム番号, 勤務種類, 時間"
                                       " from syain s cross join kinjisyu d on d.社員システム番号 = s.システム番号"
                                       " and 年月日 = ?";

class Reading {
public:
    Reading(store::Database& rovdata, const CompanyMonth& month, common::EmployeeOrder order)
        : m_rovdata(rovdata), m_month(month), m_view(rovdata, store::Transaction::Lock::Read) {
        read_employees(order);
    }

    QList<EmployeeMonth> whole() && {
        each(days_sql, [this](EmployeeMonth& of, const store::Row& fields) { take_day(of, fields); });
        each(kinds_sql, [this](EmployeeMonth& of, const store::Row& fields) { take_kind(of, fields); });
        each(hours_sql, [](EmployeeMonth& of, const store::Row& fields) {
            of.hours.insert(fields.number(1), duration(fields.number(2)));
        });
        return std::move(m_all);
    }

private:
    void read_employees(common::EmployeeOrder order) {
        Sheet employees(2, 3);
        entry::書式設定_社員(employees);
        entry::社員マスター全呼出(employees, m_rovdata, order);
        for (int r = employees.FixedRows(); r < employees.Rows(); ++r) {
            const qint64 key = Val(employees(r, 2));
            m_places.insert(key, m_all.size());
            m_all << EmployeeMonth{EmployeeKey(key), employees(r, 0), employees(r, 1), {}, {}, {}};
        }
    }

    void each(std::string_view sql, const std::function<void(EmployeeMonth&, const store::Row&)>& take) {
        auto query = m_rovdata.prepare(sql);
        if (sql == hours_sql)
            query.bind(m_month.total_key());
        else
            query.bind(m_month.start_key(), std::max(m_month.end_key(), m_month.total_key()));
        while (query.step())
            if (const auto place = m_places.constFind(query.row().number(0)); place != m_places.cend())
                take(m_all[*place], query.row());
    }

    void take_day(EmployeeMonth& of, const store::Row& fields) const {
        const auto r = m_month.row_of_key(fields.integer(1));
        if (!r)
            return;
        const minutes work = duration(fields.number(4));
        if (*r == total_row) {
            of.work = work;
            return;
        }
        Day& day = of.days[size_t(*r)];
        const bool none = fields.number(2) == 0 && fields.number(3) == 0;
        day.clock_in = !none && !fields.is_null(2);
        day.clock_out = !none && !fields.is_null(3);
        day.work = work;
    }

    void take_kind(EmployeeMonth& of, const store::Row& fields) const {
        const auto r = m_month.row_of_key(fields.integer(1));
        if (!r || *r == total_row)
            return;
        Day& day = of.days[size_t(*r)];
        day.kind = fields.number(2);
        day.kind_name = Trim(fields.text(3));
        day.holiday_work = fields.number(4) != 0;
    }

    store::Database& m_rovdata;
    CompanyMonth m_month;
    store::Transaction m_view;
    QList<EmployeeMonth> m_all;
    QHash<qint64, qsizetype> m_places; ///< of the employees, by their keys
};

} // namespace

UsualKinds usual_kinds(store::Database& rovdata) {
    MonthSheet sheet;
    entry::KindList kinds;
    load_day_kinds(sheet, kinds, rovdata);
    return {Val(sheet.kind_without_work.number), Val(sheet.kind_with_work.number)};
}

DayState state_of(const Day& day, const UsualKinds& usual) {
    const bool usual_kind = day.kind == 0 || day.kind == usual.with_work;
    if (day.clock_in != day.clock_out)
        return DayState::OneClockTime;
    if (!usual_kind && day.holiday_work)
        return DayState::HolidayWork;
    if (!usual_kind && day.kind != usual.without_work)
        return DayState::Leave;
    if (day.clock_in || day.work > minutes(0))
        return DayState::Worked;
    return day.kind == 0 ? DayState::Blank : DayState::DayOff;
}

QList<EmployeeMonth> month_of_all(store::Database& rovdata, const CompanyMonth& month, common::EmployeeOrder order) {
    return Reading(rovdata, month, order).whole();
}

QList<CategoryName> category_names(store::Database& rovdata) {
    QList<CategoryName> names;
    auto query = rovdata.prepare("select システム番号, 種類名 from kinsyu order by システム番号");
    while (query.step())
        names << CategoryName{query.row().number(0), Trim(query.row().text(1))};
    return names;
}

void take_sheet(EmployeeMonth& employee, const MonthSheet& sheet) {
    const auto& hyou = sheet.hyou;
    for (int r = entry::row::first_day; r <= sheet.month.length(); ++r)
        employee.days[size_t(r)] = {!hyou(r, entry::col::clock_in).isEmpty(), !hyou(r, entry::col::clock_out).isEmpty(),
            minutes_of(hyou(r, entry::col::work_time)), Val(sheet.hyou_system(r, entry::record::kind_number)),
            sheet.hyou_system(r, entry::record::kind_name),
            Val(sheet.hyou_system(r, entry::record::holiday_work)) != 0};
    employee.work = duration(clock_of(hyou(entry::row::total, entry::col::work_time)).value);
    employee.hours.clear();
    for (int column = entry::col::first_category; column < hyou.Cols(); ++column)
        employee.hours.insert(
            entry::category_of(sheet, column), duration(clock_of(hyou(entry::row::total, column)).value));
}

} // namespace overview
