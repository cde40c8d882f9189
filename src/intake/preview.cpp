#include "intake/preview.h"

#include "base/literals.h"
#include "intake/standing_days.h"
#include "intake/stays.h"
#include "store/files.h"

#include <algorithm>
#include <array>

namespace intake {

using namespace base;

namespace {

constexpr std::array<QStringView, state_count> words_of_states{u"新しい", u"同じ", u"違う", u"読めない"};

bool same_clock(const ClockCells& cells, const entry::TypedDay& standing) {
    const auto end = [](const QString& in, const QString& out) { return end_minutes(clock_of(in), clock_of(out)); };
    return !standing.clock_in.isEmpty() && !standing.clock_out.isEmpty() &&
           clock_of(cells.clock_in) == clock_of(standing.clock_in) &&
           end(cells.clock_in, cells.clock_out) == end(standing.clock_in, standing.clock_out);
}

/// What is typed instead, in words.
QString standing_words(const entry::TypedDay& day) {
    QStringList words;
    if (!day.clock_in.isEmpty() || !day.clock_out.isEmpty())
        words << u"%1～%2"_s.arg(day.clock_in, day.clock_out);
    else if (!day.break_time.isEmpty())
        words << u"休憩 %1"_s.arg(day.break_time);
    if (words.isEmpty())
        words << u"区分「%1」"_s.arg(day.kind_name);
    return u"入力済み: %1"_s.arg(words.join(u' '));
}

void compare(ImportDay& day, const Stay& stay, const StandingDay& standing) {
    const ClockCells cells = cells_of(stay);
    day.clock_in = cells.clock_in;
    day.clock_out = cells.clock_out;
    day.standing = standing.typed;
    day.reason = standing.trouble;
    if (!standing.trouble.isEmpty())
        return;
    if (same_clock(cells, standing.typed))
        day.state = State::Same;
    else
        day.state = standing.blank ? State::New : State::Different;
    if (day.state == State::Different)
        day.reason = standing_words(standing.typed);
}

class Previewer {
public:
    Previewer(const RecorderFile& file, const Profile& profile, const Circumstances& circumstances)
        : m_file(file), m_profile(profile), m_circumstances(circumstances),
          m_rovdata(store::Database::open(store::rovdata_path(circumstances.settings), store::Kind::Rovdata)),
          m_employees(m_rovdata),
          m_readings(read_lines(file, profile, m_employees, {circumstances.settings, circumstances.today})) {}

    Preview made() {
        add_days();
        for (int i = 0; i < m_readings.size(); ++i)
            m_preview.lines << line(i);
        for (int i = 0; i < m_stays.size(); ++i)
            tell_of_lines(i);
        return std::move(m_preview);
    }

private:
    void add_days() {
        m_stays = m_profile.has_stamps() ? stays_of_stamps(m_readings) : stays_of_lines(m_readings);
        std::ranges::stable_sort(m_stays, {}, [](const Stay& stay) { return std::pair(stay.employee, stay.day); });
        StandingDays standing(m_circumstances.settings, m_rovdata);
        for (const Stay& stay : m_stays)
            m_preview.days << day(stay, standing);
    }

    ImportDay day(const Stay& stay, StandingDays& standing) const {
        const Employee& employee = m_employees[stay.employee];
        ImportDay day{
            employee.key, employee.number, employee.name, stay.day, {}, {}, {}, State::NotUnderstood, stay.reason};
        if (!stay.reason.isEmpty())
            return day;
        if (m_circumstances.waiting.contains(employee.key.value()))
            day.reason = u"登録した内容の反映を待っています"_s;
        else
            compare(day, stay, standing.day(employee.key, stay.day));
        return day;
    }

    PreviewLine line(int index) const {
        const Reading& reading = m_readings[index];
        const RecorderLine& written = m_file.lines[m_profile.heading_lines + index];
        PreviewLine line{.number = written.number, .reason = reading.reason};
        line.employee = reading.employee < 0 ? m_profile.cell(written, Role::Employee) : employee_words(reading);
        line.date = reading.day.isValid() ? reading.day.toString(u"yyyy/MM/dd"_s) : m_profile.cell(written, Role::Date);
        line.times = times_words(written);
        if (reading.reason.isEmpty() && !reading.has_times()) {
            line.state = State::Same;
            line.reason = u"時刻がありません"_s;
        }
        return line;
    }

    QString employee_words(const Reading& reading) const {
        const Employee& employee = m_employees[reading.employee];
        return u"%1 %2"_s.arg(employee.number, employee.name);
    }

    QString times_words(const RecorderLine& line) const {
        if (m_profile.has_stamps())
            return u"%1 %2"_s.arg(m_profile.cell(line, Role::Stamp), m_profile.cell(line, Role::Direction)).trimmed();
        return u"%1～%2"_s.arg(m_profile.cell(line, Role::In), m_profile.cell(line, Role::Out));
    }

    void tell_of_lines(int index) {
        const ImportDay& day = m_preview.days[index];
        const QList<int>& readings = m_stays[index].readings;
        for (const int reading : readings) {
            PreviewLine& line = m_preview.lines[reading];
            line.day = index;
            line.state = day.state;
            line.reason = day.reason;
            if (day.reason.isEmpty())
                line.reason = note(reading, readings, day);
        }
    }

    /// What became of a line of an understood day, where that isn't plain.
    QString note(int reading, const QList<int>& readings, const ImportDay& day) const {
        if (!m_profile.has_stamps())
            return reading == readings.first() ? QString() : u"同じ日の行があります"_s;
        if (reading != readings.first() && reading != readings.last())
            return u"間の打刻です"_s;
        if (reading == readings.first())
            return u"%1 の出社"_s.arg(day.date.toString(u"M/d"_s));
        return u"%1 の退社"_s.arg(day.date.toString(u"M/d"_s));
    }

    const RecorderFile& m_file;
    const Profile& m_profile;
    const Circumstances& m_circumstances;
    store::Database m_rovdata;
    Employees m_employees;
    QList<Reading> m_readings;
    QList<Stay> m_stays;
    Preview m_preview;
};

} // namespace

QStringView state_words(State state) {
    return words_of_states[size_t(state)];
}

int Preview::count(State state) const {
    return static_cast<int>(std::ranges::count(lines, state, &PreviewLine::state));
}

Preview preview(const RecorderFile& file, const Profile& profile, const Circumstances& circumstances) {
    if (file.lines.isEmpty())
        return {u"ファイルに行がありません"_s, {}, {}};
    if (const QString problem = profile.problem(); !problem.isEmpty())
        return {problem, {}, {}};
    return Previewer(file, profile, circumstances).made();
}

} // namespace intake
