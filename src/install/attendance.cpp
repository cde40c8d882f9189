#include "install/attendance.h"

#include "base/company_month.h"
#include "base/literals.h"
#include "install/dice.h"
#include "install/workday.h"

#include <map>

namespace install {

using namespace base;

namespace {

constexpr qint64 days_worked = -1; ///< numbers of the two fixed counts of a month
constexpr qint64 days_unworked = -2;
enum class Family { Fixed = 0, Leave = 1, Work = 2 }; ///< `休暇残業`

/// What an employee did on one day. `休出` is empty where nobody chose the kind of a day without work.
struct Day {
    std::optional<Workday> work;
    KindNumber kind = KindNumber::DayOff;
    QString holiday_work;
    QString remark;
};

struct Span {
    minutes in;
    minutes out;
};

Span regular_clock(Dice& dice) {
    const minutes in(dice.chance(10) ? dice.between(420, 470) : dice.between(465, 485));
    if (dice.chance(60))
        return {in, minutes(dice.between(1020, 1035))};
    return {in, minutes(dice.chance(5) ? dice.between(1330, 1410) : dice.between(1050, 1220))};
}

Span night_clock(Dice& dice) {
    return {minutes(dice.between(1295, 1320)), minutes(dice.between(1740, 1770))};
}

Span part_clock(Dice& dice) {
    return {minutes(dice.between(530, 545)), minutes(dice.chance(10) ? 720 : dice.between(900, 930))};
}

Span clock_of(TypeNumber type, Dice& dice) {
    switch (type) {
    case TypeNumber::Night:
        return night_clock(dice);
    case TypeNumber::Part:
        return part_clock(dice);
    case TypeNumber::Regular:
        break;
    }
    return regular_clock(dice);
}

/// Of a hundred such weekdays, Sunday first, so many are worked.
int share_of_days(TypeNumber type, int weekday) {
    constexpr int shares[3][7]{
        {2, 95, 95, 95, 95, 95, 25}, // regular
        {1, 95, 95, 95, 95, 60, 10}, // nights
        {1, 95, 50, 95, 50, 95, 5},  // part-time
    };
    return shares[int(type) - 1][weekday];
}

Day day_without_work(int weekday, Dice& dice) {
    if (weekday == 0 || weekday == 6 || dice.chance(30))
        return {};
    const int reason = dice.below(100);
    const KindNumber leave = reason < 75   ? KindNumber::PaidLeave
                             : reason < 90 ? KindNumber::Sick
                                           : KindNumber::Substitute;
    return {std::nullopt, leave, u"0"_s, {}};
}

QString remark(Dice& dice) {
    constexpr std::array<QStringView, 5> remarks{u"直行", u"直帰", u"電車遅延", u"研修", u"棚卸し"};
    return dice.chance(4) ? remarks[size_t(dice.below(remarks.size()))].toString() : QString();
}

Day make_day(const WorkType& type, int weekday, Dice& dice) {
    if (!dice.chance(share_of_days(type.number, weekday)))
        return day_without_work(weekday, dice);
    const Span clock = clock_of(type.number, dice);
    const KindNumber kind = weekday == 0 ? KindNumber::SundayWork : KindNumber::Work;
    return {measure(type, weekday, clock.in, clock.out), kind, u"1"_s, remark(dice)};
}

/// The sums of a month on their way.
struct Totals {
    minutes pause{0};
    minutes work{0};
    std::array<minutes, category_count> hours{};
    std::map<std::pair<qint64, Family>, int> days; ///< by number and family

    void add(const Day& day) {
        ++days[{day.work ? days_worked : days_unworked, Family::Fixed}];
        ++days[{qint64(day.kind), kind(day.kind).work == 0 ? Family::Leave : Family::Work}];
        if (!day.work)
            return;
        pause += day.work->pause;
        work += day.work->work();
        for (size_t i = 0; i < hours.size(); ++i) {
            hours[i] += day.work->hours[i];
            if (day.work->hours[i] > minutes(0))
                ++days[{qint64(i) + 1, Family::Fixed}];
        }
    }
};

qint64 clock(minutes time) {
    return minutes_to_time(time).value;
}

class AttendanceTables {
public:
    explicit AttendanceTables(store::Database& rovdata)
        : m_day(rovdata.prepare("insert into rovmei (社員システム番号, 出社日, 出社時間, 退社時間, 休憩時間, 勤務時間,"
                                " 備考) values (?, ?, ?, ?, ?, ?, ?)")),
          m_hours(
              rovdata.prepare("insert into kinjisyu (社員システム番号, 年月日, 勤務種類, 時間) values (?, ?, ?, ?)")),
          m_kind(rovdata.prepare("insert into kyumei (社員システム番号, 年月日, システム番号, 休暇名, 休出)"
                                 " values (?, ?, ?, ?, ?)")),
          m_count(rovdata.prepare("insert into kinnisu (社員システム番号, 年月, システム番号, 休暇残業, 日数１)"
                                  " values (?, ?, ?, ?, ?)")) {}

    void write(int employee, int key, const Day& day) {
        const Workday work = day.work.value_or(Workday{});
        m_day.bind(employee, key, clock(work.in), clock(work.out), clock(work.pause), clock(work.work()), day.remark)
            .run();
        m_kind.bind(employee, key, int(day.kind), kind(day.kind).name, day.holiday_work).run();
        write_hours(employee, key, work.hours);
    }

    void write(int employee, const CompanyMonth& month, const Totals& totals) {
        m_day.bind(employee, month.total_key(), 0, 0, clock(totals.pause), clock(totals.work), QString()).run();
        write_hours(employee, month.total_key(), totals.hours);
        for (const auto& [what, days] : totals.days)
            m_count.bind(employee, month.month_key(), what.first, int(what.second), days).run();
    }

private:
    void write_hours(int employee, int key, const std::array<minutes, category_count>& hours) {
        for (size_t i = 0; i < hours.size(); ++i)
            if (hours[i] > minutes(0))
                m_hours.bind(employee, key, i + 1, clock(hours[i])).run();
    }

    store::Statement m_day, m_hours, m_kind, m_count;
};

void write_month(AttendanceTables& tables, const Employee& employee, const CompanyMonth& month) {
    Dice dice(quint64(employee.system_number) * 1'000'003 + quint64(month.month_key()));
    Totals totals;
    for (int row = 1; row <= month.length(); ++row) {
        const Day day = make_day(*employee.type, month.day(row).dayOfWeek() % 7, dice);
        tables.write(employee.system_number, month.posting_key(row), day);
        totals.add(day);
    }
    tables.write(employee.system_number, month, totals);
}

} // namespace

void write_attendance(store::Database& rovdata, const QList<Employee>& staff, const Sample& sample) {
    AttendanceTables tables(rovdata);
    const QDate last(sample.until / 100, sample.until % 100, 1);
    for (int back = sample.months - 1; back >= 0; --back) {
        const QDate first = last.addMonths(-back);
        const CompanyMonth month(first.year(), first.month(), 1);
        for (const Employee& employee : staff)
            write_month(tables, employee, month);
    }
}

} // namespace install
