#include "limits/figures.h"

#include "base/company_month.h"
#include "base/text.h"

namespace limits {

using namespace base;

namespace {

// An employee's months are looked up by their keys: a range would read all the days between them.
constexpr std::string_view saved_sql = "select 1 from rovmei where 社員システム番号 = ? and 出社日 in (?, ?)";
constexpr std::string_view hours_sql = "select 年月日, 勤務種類, 時間 from kinjisyu where 社員システム番号 = ?"
                                       " and 年月日 in (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";
constexpr std::string_view leave_sql = "select システム番号, 日数１ from kinnisu where 社員システム番号 = ?"
                                       " and 年月 between ? and ? and 休暇残業 in (1, 2)";
constexpr std::string_view days_sql = "select 出社日, 出社時間, 退社時間, 休憩時間 from rovmei"
                                      " where 社員システム番号 = ? and 出社日 between ? and ? order by 出社日";

int total_key(int month_key) {
    return month_key * 100 + total_row;
}

/// A month's sum has hours without end: time_to_minutes would read four digits.
minutes sum_of(qint64 duration_number) {
    return std::chrono::hours(duration_number / 100) + minutes(duration_number % 100);
}

class Reader {
public:
    Reader(store::Database& rovdata, const Span& span, const Rules& rules, int month_start_day)
        : m_span(span), m_rules(rules), m_month(span.month / 100, span.month % 100, month_start_day),
          m_saved(rovdata.prepare(saved_sql)), m_hours(rovdata.prepare(hours_sql)), m_leave(rovdata.prepare(leave_sql)),
          m_days(rovdata.prepare(days_sql)) {
        for (int back = 0; back < Span::months; ++back) {
            const int key = total_key(span.month_back(back));
            m_back.insert(key, back);
            m_hours.bind_at(back + 2, key);
        }
    }

    bool has_saved(EmployeeKey employee) {
        m_saved.bind(employee, total_key(m_span.month), total_key(m_span.month_back(1)));
        return m_saved.step();
    }

    void read(Figures& figures) {
        read_hours(figures);
        read_leave(figures);
        read_days(figures);
    }

private:
    void read_hours(Figures& figures) {
        m_hours.bind(figures.key);
        while (m_hours.step()) {
            const store::Row row = m_hours.row();
            Hours& month = figures.hours[size_t(m_back.value(row.integer(0)))];
            const Counts counts = m_rules.categories.value(row.number(1), Counts::Not);
            if (counts == Counts::Overtime)
                month.overtime += sum_of(row.number(2));
            else if (counts == Counts::HolidayWork)
                month.holiday_work += sum_of(row.number(2));
        }
    }

    void read_leave(Figures& figures) {
        m_leave.bind(figures.key, m_span.month_back(m_span.of_leave - 1), m_span.month);
        while (m_leave.step())
            figures.half_days += m_rules.leave.value(m_leave.row().number(0)) * m_leave.row().integer(1);
    }

    void read_days(Figures& figures) {
        m_days.bind(figures.key, m_month.start_key(), m_month.end_key());
        while (m_days.step()) {
            const store::Row row = m_days.row();
            const auto sheet_row = m_month.row_of_key(row.integer(0));
            const ClockNumber in{row.number(1)};
            const minutes stay = end_minutes(in, {row.number(2)}) - time_to_minutes(in);
            const minutes pause = time_to_minutes({row.number(3)});
            if (sheet_row && *sheet_row != total_row && stay > minutes(0))
                figures.days << WorkedDay{m_month.day(*sheet_row), stay - pause, pause};
        }
    }

    const Span& m_span;
    const Rules& m_rules;
    CompanyMonth m_month;
    QHash<int, int> m_back; ///< how many months back, by the key of the sum
    store::Statement m_saved;
    store::Statement m_hours;
    store::Statement m_leave;
    store::Statement m_days;
};

} // namespace

QList<Figures> read_figures(store::Database& rovdata, const Span& span, const Rules& rules, int month_start_day) {
    const store::Transaction view(rovdata, store::Transaction::Lock::Read);
    Reader reader(rovdata, span, rules, month_start_day);
    QList<Figures> all;
    auto staff = rovdata.prepare(
        "select システム番号, 社員番号, 社員名 from syain where システム番号 > 0 order by 社員番号, システム番号");
    while (staff.step()) {
        const store::Row row = staff.row();
        Figures figures{.key = EmployeeKey(row.number(0)), .number = Trim(row.text(1)), .name = Trim(row.text(2))};
        if (!reader.has_saved(figures.key))
            continue;
        reader.read(figures);
        all << figures;
    }
    return all;
}

} // namespace limits
