#include "intake/accept.h"

#include "base/literals.h"
#include "common/closed_months.h"
#include "entry/break_handling.h"
#include "entry/calculation.h"
#include "entry/day_kinds.h"
#include "entry/layout.h"
#include "entry/month_draft.h"
#include "entry/month_load.h"
#include "entry/saving.h"
#include "entry/waiting_days.h"
#include "intake/standing_days.h"
#include "store/files.h"

#include <algorithm>
#include <utility>

namespace intake {

using namespace base;
using entry::MonthSheet;
using entry::TypedDay;

namespace {

constexpr int months_at_a_time = 100;
const QString changed_since = u"確認した後に、その日の内容が変わりました"_s;

/// The chosen days of an employee's month.
struct ChosenMonth {
    const ImportDay* first;
    CompanyMonth month;
    QList<int> days;
};

/// Of what a person typed, all that decides whether a day may be laid over it: its times, else its break and kind.
TypedDay essence(const TypedDay& day, const entry::DayKind& kind_without_work) {
    if (!day.clock_in.isEmpty() || !day.clock_out.isEmpty())
        return {day.clock_in, day.clock_out, {}, {}, {}, {}, {}};
    TypedDay rest = typed_by_person(day, kind_without_work);
    rest.remark.clear();
    return rest;
}

QList<ChosenMonth> by_month(const Preview& preview, QList<int> chosen, int month_start_day) {
    std::ranges::sort(chosen); // by employee and date
    QList<ChosenMonth> months;
    for (const int index : chosen) {
        const ImportDay& day = preview.days[index];
        const CompanyMonth month = CompanyMonth::of(day.date, month_start_day);
        const bool goes_on = !months.isEmpty() && months.last().first->employee == day.employee &&
                             months.last().month.month_key() == month.month_key();
        if (!goes_on)
            months << ChosenMonth{&day, month, {}};
        months.last().days << index;
    }
    return months;
}

QSet<qint64> all_employees(const base::Settings& settings) {
    auto database = store::Database::open(store::rovdata_path(settings), store::Kind::Rovdata);
    auto query = database.prepare("select システム番号 from syain");
    QSet<qint64> employees;
    while (query.step())
        employees.insert(query.row().number(0));
    return employees;
}

class Acceptor {
public:
    Acceptor(frame::Session& session, const Preview& preview, Into into)
        : m_session(session), m_preview(preview), m_into(into) {
        m_empty.kyuflg = entry::break_handling(session.tables);
        entry::KindList kinds;
        auto database = open_data();
        load_day_kinds(m_empty, kinds, database);
    }

    Acceptance run(const QList<int>& chosen, const Progress& progress) {
        const auto months = by_month(m_preview, chosen, m_session.settings.month_start_day);
        for (qsizetype at = 0; at < months.size(); at += months_at_a_time) {
            const auto part = months.sliced(at, std::min<qsizetype>(months_at_a_time, months.size() - at));
            const bool goes_on =
                take_part(part, [&] { return !progress || progress(m_come_to, static_cast<int>(chosen.size())); });
            if (!goes_on)
                break;
        }
        return std::move(m_done);
    }

private:
    store::Database open_data() const {
        return store::Database::open(store::rovdata_path(m_session.settings), store::Kind::Rovdata);
    }

    /// False if it is over: cancelled, or nothing can be saved.
    bool take_part(const QList<ChosenMonth>& months, const std::function<bool()>& goes_on) {
        QSet<qint64> employees;
        for (const ChosenMonth& month : months)
            employees.insert(month.first->employee.value());
        const QSet<qint64> waiting = entry::wait_for_days(m_session, employees);
        auto database = open_data();
        for (const ChosenMonth& month : months) {
            if (m_done.cancelled = !goes_on(); m_done.cancelled)
                return false;
            m_come_to += static_cast<int>(month.days.size());
            if (waiting.contains(month.first->employee.value()))
                leave_out(month.days, u"登録した内容の反映を待っています"_s);
            else
                take_month(month, database);
        }
        return post();
    }

    void leave_out(const QList<int>& days, const QString& reason) {
        for (const int index : days)
            m_done.days.insert(index, {Became::LeftOut, reason});
    }

    void take_month(const ChosenMonth& month, store::Database& database) {
        const ImportDay& of = *month.first;
        const int key = month.month.month_key();
        if (const auto closed = common::closed_since(m_session.settings, key))
            return leave_out(month.days, common::closed_words(key, *closed));
        MonthSheet sheet = m_empty;
        書式設定(sheet, month.month);
        書式設定_日(sheet);
        read_month(sheet, database, of.employee);
        const entry::MonthAsRead read = month_as_read(sheet);
        const base::Sheet figures = sheet.hyou;
        entry::trim_strip(sheet.hyou_day);
        entry::MonthDraft draft(m_session);
        draft.begin(sheet, of.employee);
        const bool has_draft = !draft.isEmpty();
        const QList<int> laid = lay(sheet, month, draft.clashes());
        if (m_into == Into::Draft || has_draft)
            keep(sheet, draft, laid);
        else
            remember(sheet, read, figures, of, laid);
    }

    /// Gives back the days that are on the sheet now.
    QList<int> lay(MonthSheet& sheet, const ChosenMonth& month, const QList<entry::Clash>& clashes) {
        QList<std::pair<int, int>> rows; // laying one stamps the others
        for (const int index : month.days) {
            const int r = static_cast<int>(month.month.first().daysTo(m_preview.days[index].date)) + 1;
            if (may_be_laid(sheet, r, m_preview.days[index], clashes))
                rows.append({index, r});
            else
                leave_out({index}, changed_since);
        }
        QList<int> laid;
        for (const auto& [index, r] : rows) {
            sheet.hyou(r, entry::col::clock_in) = m_preview.days[index].clock_in;
            sheet.hyou(r, entry::col::clock_out) = m_preview.days[index].clock_out;
            calculate_day(sheet, r, entry::col::clock_out);
            sheet.mark(r) = u"1"_s;
            laid << index;
        }
        return laid;
    }

    static bool may_be_laid(const MonthSheet& sheet, int r, const ImportDay& day, const QList<entry::Clash>& clashes) {
        const bool wanted = day.state == State::New || day.state == State::Different;
        const auto& kind = sheet.kind_without_work;
        return wanted && std::ranges::find(clashes, r, &entry::Clash::row) == clashes.end() &&
               stored_alike(essence(day.standing, kind), essence(typed_day(sheet, r), kind));
    }

    void keep(const MonthSheet& sheet, entry::MonthDraft& draft, const QList<int>& laid) {
        draft.keep(sheet);
        if (!draft.trouble().isEmpty())
            return leave_out(laid, draft.trouble());
        const QString reason = m_into == Into::Draft ? QString() : u"この月の下書きがあるため、下書きに入れました"_s;
        for (const int index : laid)
            m_done.days.insert(index, {Became::Drafted, reason});
    }

    void remember(const MonthSheet& sheet, const entry::MonthAsRead& read, const base::Sheet& figures,
        const ImportDay& of, const QList<int>& laid) {
        m_months << entry::UnaskedMonth{sheet, read, {of.number, of.name, of.employee.value()}, {}, {}, figures};
        m_days_of << laid;
    }

    bool post() {
        QList<entry::UnaskedMonth> months = std::exchange(m_months, {});
        const QList<QList<int>> days = std::exchange(m_days_of, {});
        const bool none = std::ranges::all_of(days, &QList<int>::isEmpty);
        const bool saved = none || entry::post_months(m_session, months) != entry::Saved::Nothing;
        for (qsizetype i = 0; i < months.size(); ++i)
            for (const int index : days[i])
                tell(index, months[i], saved);
        return saved;
    }

    void tell(int index, const entry::UnaskedMonth& month, bool saved) {
        const int r = month.sheet.month.row(m_preview.days[index].date);
        if (!saved)
            leave_out({index}, u"登録できませんでした"_s);
        else if (month.left.contains(r))
            leave_out({index}, changed_since);
        else if (month.alike.contains(r))
            leave_out({index}, u"同じ内容がすでに登録されています"_s);
        else
            m_done.days.insert(index, {Became::Posted});
    }

    frame::Session& m_session;
    const Preview& m_preview;
    Into m_into;
    MonthSheet m_empty;
    QList<entry::UnaskedMonth> m_months; ///< yet to be posted
    QList<QList<int>> m_days_of;         ///< the days that were laid in each of them
    int m_come_to = 0;
    Acceptance m_done;
};

} // namespace

Preview look(frame::Session& session, const RecorderFile& file, const Profile& profile) {
    // Asked before the tables are read: rows that go into them meanwhile aren't missed.
    const QSet<qint64> waiting = entry::those_waiting(session.settings, all_employees(session.settings));
    const QDate today = session.host.now().date();
    Preview seen = preview(file, profile, {session.settings, today});
    QSet<qint64> employees;
    for (const ImportDay& day : std::as_const(seen.days))
        employees.insert(day.employee.value());
    if (!employees.intersects(waiting))
        return seen;
    return preview(file, profile, {session.settings, today, entry::wait_for_days(session, employees)});
}

int Acceptance::count(Became became) const {
    return static_cast<int>(std::ranges::count(days, became, &DayOutcome::became));
}

QString Acceptance::words() const {
    QStringList words;
    const auto add = [&](Became became, const QString& form) {
        if (const int number = count(became))
            words << form.arg(number);
    };
    add(Became::Posted, u"%1日を登録しました。"_s);
    add(Became::Drafted, u"%1日を下書きに入れました。"_s);
    add(Became::LeftOut, u"%1日は取り込みませんでした。"_s);
    if (cancelled)
        words << u"途中でやめました。"_s;
    return words.isEmpty() ? u"取り込む日はありません。"_s : words.join(QString());
}

QList<int> days_to_accept(const Preview& preview, bool replace) {
    QList<int> chosen;
    for (int i = 0; i < preview.days.size(); ++i) {
        const State state = preview.days[i].state;
        if (state == State::New || (replace && state == State::Different))
            chosen << i;
    }
    return chosen;
}

Acceptance accept(
    frame::Session& session, const Preview& preview, const QList<int>& chosen, Into into, const Progress& progress) {
    return Acceptor(session, preview, into).run(chosen, progress);
}

} // namespace intake
