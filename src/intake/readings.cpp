#include "intake/readings.h"

#include "base/literals.h"

namespace intake {

using namespace base;

namespace {

constexpr minutes whole_day = std::chrono::hours(24);

QString unreadable(Role role, const QString& cell, const QString& reason) {
    return u"%1「%2」: %3"_s.arg(role_captions()[size_t(role)], cell, reason);
}

class LineReader {
public:
    LineReader(const RecorderLine& line, const Profile& profile, const Calendar& calendar)
        : m_line(line), m_profile(profile), m_calendar(calendar) {}

    Reading read(const Employees& employees) {
        const auto [employee, reason] = employees.find(m_profile.cell(m_line, Role::Employee));
        m_reading.employee = employee;
        fail(reason);
        const QString written = m_profile.cell(m_line, Role::Date);
        std::optional<QDate> day;
        if (!written.isEmpty() && !(day = read_date(written, m_calendar)))
            fail(unreadable(Role::Date, written, u"日付ではありません"_s));
        m_profile.has_stamps() ? read_stamp(day) : read_in_and_out(day);
        if (m_reading.day > m_calendar.today)
            fail(u"まだ来ていない日です"_s);
        return m_reading;
    }

private:
    /// The first reason is the one that is told.
    void fail(const QString& reason) {
        if (m_reading.reason.isEmpty())
            m_reading.reason = reason;
    }

    Moment moment(Role role) {
        const QString cell = m_profile.cell(m_line, role);
        Moment moment = read_moment(cell, m_calendar);
        if (!moment.reason.isEmpty())
            fail(unreadable(role, cell, moment.reason));
        return moment;
    }

    void take_day(const std::optional<QDate>& day) {
        if (day)
            m_reading.day = *day;
        else
            fail(u"日付がありません"_s);
    }

    std::optional<minutes> since_day(const Moment& moment) const {
        if (!moment.time || !moment.date)
            return moment.time;
        return *moment.time + m_reading.day.daysTo(*moment.date) * whole_day;
    }

    void read_stamp(const std::optional<QDate>& day) {
        const Moment stamp = moment(Role::Stamp);
        take_day(stamp.date ? stamp.date : day);
        m_reading.stamp = stamp.time;
        if (!stamp.time)
            fail(u"時刻がありません"_s);
        m_reading.direction = m_profile.direction(m_profile.cell(m_line, Role::Direction));
        if (m_reading.direction == Direction::Other)
            fail(u"出退区分「%1」は出社でも退社でもありません"_s.arg(m_profile.cell(m_line, Role::Direction)));
    }

    void read_in_and_out(const std::optional<QDate>& day) {
        const Moment in = moment(Role::In);
        const Moment out = moment(Role::Out);
        take_day(day ? day : in.date ? in.date : out.date);
        m_reading.in = since_day(in);
        m_reading.out = since_day(out);
        if (m_reading.in && m_reading.out && !out.date && *m_reading.out < *m_reading.in)
            *m_reading.out += whole_day;
    }

    const RecorderLine& m_line;
    const Profile& m_profile;
    const Calendar& m_calendar;
    Reading m_reading;
};

} // namespace

QList<Reading> read_lines(
    const RecorderFile& file, const Profile& profile, const Employees& employees, const Calendar& calendar) {
    QList<Reading> readings;
    readings.reserve(file.lines.size());
    for (qsizetype i = profile.heading_lines; i < file.lines.size(); ++i)
        readings << LineReader(file.lines[i], profile, calendar).read(employees);
    return readings;
}

} // namespace intake
