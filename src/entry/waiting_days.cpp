#include "entry/waiting_days.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "entry/saving.h"
#include "frame/kept_files.h"
#include "store/files.h"

#include <algorithm>
#include <array>

namespace entry {

using namespace base;
using namespace std::chrono_literals;

namespace {

constexpr auto step = 100ms;
constexpr auto longest_wait = 15s;
constexpr auto start_again = 5s; ///< a manager that was started is up, or has been killed, by then

/// A file that is busy is looked at again with the next step, so there is no use in standing still for it.
constexpr auto patience = 20ms;

/// The employee stands in ordinal 6 of kind "51" and in ordinal 3 of the others; a field is named its ordinal + 1.
constexpr std::string_view row_of_employee =
    R"(select 1 from jyusin where (case "2" when '51' then "7" else "4" end) = ? limit 1)";
constexpr std::string_view employees_of_rows =
    R"(select distinct (case "2" when '51' then "7" else "4" end) from jyusin)";

/// A file that is held, or just remade, is looked at again. One that isn't reached is for the person to know.
bool is_busy(const store::Error& error) {
    if (error.code() == store::Code::Busy || error.code() == store::Code::Replaced)
        return true;
    if (!holds_no_rows(error.code()))
        throw error;
    return false;
}

bool holds_row(const QString& path, EmployeeKey employee) {
    try {
        auto exchange = store::Database::open(path, store::Kind::Exchange, patience);
        return exchange.prepare(row_of_employee).bind(digits(employee.value())).step();
    } catch (const store::Error& error) {
        return is_busy(error);
    }
}

/// Nothing for a file that is held, or just remade.
std::optional<QSet<qint64>> employees_in(const QString& path) {
    QSet<qint64> employees;
    try {
        auto exchange = store::Database::open(path, store::Kind::Exchange, patience);
        auto query = exchange.prepare(employees_of_rows);
        while (query.step())
            employees.insert(Val(query.row().text(0)));
    } catch (const store::Error& error) {
        if (is_busy(error))
            return std::nullopt;
    }
    return employees;
}

/// Starts the manager on the PC whose work that is, and again if it ends with rows left.
class ManagerStart {
public:
    explicit ManagerStart(frame::Session& session) : m_session(session), m_next(session.host.steady_now()) {}

    void see_to_it() {
        const auto now = m_session.host.steady_now();
        if (now < m_next || !is_main_pc(m_session.settings) || manager_running(m_session))
            return;
        start_manager(m_session);
        m_next = now + start_again;
    }

private:
    frame::Session& m_session;
    std::chrono::steady_clock::time_point m_next;
};

/// False if the time is over before they are in.
bool wait_until(frame::Session& session, const std::function<bool()>& are_in) {
    ManagerStart manager(session);
    const auto limit = session.host.steady_now() + longest_wait;
    while (session.host.steady_now() < limit) {
        manager.see_to_it();
        session.host.wait(step);
        if (are_in())
            return true;
    }
    return false;
}

} // namespace

bool holds_no_rows(store::Code code) {
    using enum store::Code;
    constexpr std::array broken{Missing, Empty, NotADatabase, WrongKey, Damaged, OtherKind, Newer, Older, Misuse};
    return std::ranges::find(broken, code) != broken.end();
}

bool days_wait(const base::Settings& settings, EmployeeKey employee) {
    if (holds_row(store::exchange_path(settings, posting_file), employee))
        return true;
    return std::ranges::any_of(
        frame::kept_files(settings), [&](const QString& path) { return holds_row(path, employee); });
}

QSet<qint64> those_waiting(const base::Settings& settings, const QSet<qint64>& employees) {
    auto waiting = employees_in(store::exchange_path(settings, posting_file));
    for (const QString& path : frame::kept_files(settings))
        if (const auto in_file = employees_in(path); in_file && waiting)
            *waiting |= *in_file;
        else
            waiting.reset();
    return waiting ? *waiting & employees : employees;
}

QSet<qint64> wait_for_days(frame::Session& session, const QSet<qint64>& employees) {
    QSet<qint64> waiting = those_waiting(session.settings, employees);
    if (waiting.isEmpty())
        return waiting;
    wait_until(session, [&] {
        waiting = those_waiting(session.settings, employees);
        return waiting.isEmpty();
    });
    return waiting;
}

Opening 登録待ち(frame::Session& session, EmployeeKey employee, const std::function<void()>& waiting) {
    if (!days_wait(session.settings, employee))
        return Opening::Free;
    waiting();
    if (wait_until(session, [&] { return !days_wait(session.settings, employee); }))
        return Opening::Free;
    const auto answer = session.host.ask(u"この社員の登録がまだ終わっていません。\n"
                                         "いま開くと、登録したばかりの日は\n"
                                         "前の内容で表示されます。\n\n"
                                         "それでも開きますか？"_s,
        u"登録待ち"_s, platform::Buttons::YesNo);
    return answer == platform::Answer::Yes ? Opening::Free : Opening::Refused;
}

} // namespace entry
