#include "entry/month_draft.h"

#include "base/literals.h"
#include "entry/cells.h"
#include "entry/draft_store.h"
#include "entry/hand_figures.h"
#include "entry/month_load.h"
#include "entry/tally.h"
#include "entry/waiting_days.h"

#include <algorithm>

namespace entry {

using namespace base;

namespace {

QString words(const QString& text, QTime time) {
    return time.isValid() ? u"%1 %2"_s.arg(text, time.toString(u"H:mm")) : text;
}

/// Whether what was posted of the day has come into the tables: they hold it, or something else than lay beneath it.
bool has_arrived(const DraftDay& day, const MonthSheet& stored) {
    const int r = stored.month.row(day.date);
    const DayVersion posted{day.posted ? day.typed : day.before, day.figures};
    return !stored.month.is_found_again(r) || is_among({posted}, stored, r) || !is_among(day.beneath, stored, r);
}

bool arrived(const DraftDay& day, const MonthSheet& stored) {
    return day.posted && has_arrived(day, stored);
}

void add_missing(QMap<QString, QString>& counts, QMap<QString, QString> others) {
    others.insert(counts);
    counts = std::move(others);
}

DraftDay over_itself(DraftDay day) {
    day.before = day.typed;
    day.beneath.clear();
    day.posted = false;
    return day;
}

/// Hours that had no column when the day was posted wait still.
DraftDay not_posted(const DraftDay& day, const MonthSheet& stored) {
    const int r = stored.month.row(day.date);
    DraftDay left{day.date, typed_day(stored, r), typed_day(stored, r)};
    left.figures = figures_of(stored, stored.hyou, r);
    for (const auto& [tag, time] : day.hours.asKeyValueRange())
        if (!day.figures.contains(tag))
            left.hours.insert(tag, time);
    return left;
}

} // namespace

void MonthDraft::begin(MonthSheet& sheet, EmployeeKey employee) {
    end();
    m_employee = employee;
    m_month = sheet.month;
    m_read = month_as_read(sheet);
    m_read_figures = sheet.hyou;
    m_read_strip = sheet.hyou_day;
    m_totals = totals_of(sheet);
    m_kept = read_draft(m_session.settings, employee, m_month);
    if (m_kept.isEmpty())
        return;
    for (const DraftDay& day : std::as_const(m_kept.days))
        keep_without_column(sheet, day);
    know_what_lies_beneath();
    const auto was_posted = [](const DraftDay& day) { return day.posted || !day.beneath.isEmpty(); };
    const bool wait = std::ranges::any_of(m_kept.days, was_posted) && days_wait(m_session.settings, employee);
    if (!wait)
        leave_what_arrived(sheet);
    m_counts = m_kept.counts;
    m_posted_counts = m_kept.posted_counts;
    m_clashes = lay_draft(sheet, m_kept);
    for (const DraftDay& day : std::as_const(m_kept.days))
        if (day.posted || (wait && !day.beneath.isEmpty()))
            note_posted(sheet, day);
    m_totals = totals_of(sheet);
    keep(sheet);
}

/// Drafts of an earlier version don't tell it.
void MonthDraft::know_what_lies_beneath() {
    for (DraftDay& day : m_kept.days)
        if (day.posted && day.beneath.isEmpty())
            day.beneath << DayVersion{day.before};
}

/// A day that stands as it was posted is on its way still, or has arrived; one that was typed anew behind that lies
/// over it. Where something else stands now, somebody else saved it, or the person is to decide.
void MonthDraft::note_posted(MonthSheet& sheet, const DraftDay& day) {
    const int r = m_month.row(day.date);
    const bool stands =
        day.posted ? is_among({{day.typed, day.figures}}, sheet, r) : stored_alike(day.typed, typed_day(sheet, r));
    if (!stands)
        return;
    PostedDay posted{day.posted ? typed_day(sheet, r) : day.before, day.hours, day.figures, day.beneath};
    if (!day.posted) {
        for (auto figure = posted.hours.begin(); figure != posted.hours.end(); ++figure)
            *figure = day.figures.value(figure.key());
        sheet.mark(r) = u"1"_s;
    }
    m_posted.insert(r, posted);
    put_figures(sheet, m_read_figures, r, day.figures);
}

/// A work type that was taken away may be given back.
void MonthDraft::keep_without_column(const MonthSheet& sheet, const DraftDay& day) {
    const Hours shown = figures_of(sheet, sheet.hyou, m_month.row(day.date));
    for (const auto& [tag, time] : day.hours.asKeyValueRange())
        if (!shown.contains(tag)) {
            m_without_column[day.date].first = day.typed;
            m_without_column[day.date].second.insert(tag, time);
        }
}

/// Times typed anew would have given their own.
void MonthDraft::add_without_column(QList<DraftDay>& days, const MonthSheet& sheet) const {
    for (const auto& [date, kept] : m_without_column.asKeyValueRange()) {
        const int r = m_month.row(date);
        if (!same_times(kept.first, typed_day(sheet, r)))
            continue;
        auto day = std::ranges::find(days, date, &DraftDay::date);
        if (day == days.end())
            day = days.insert(day, DraftDay{date, m_read[r], m_read[r]});
        day->hours.insert(kept.second);
    }
}

/// A day that was posted is over once its rows are applied, unless the tables hold what was beneath it: then its rows
/// were refused or the company was taken back to an earlier state, or else somebody made the day again what it was. The
/// person knows which, and is asked: it lies over itself, where something else stands now. Counts go with the days.
void MonthDraft::leave_what_arrived(const MonthSheet& sheet) {
    const Draft as_it_was = std::exchange(m_kept, {m_employee, {}, m_kept.counts, m_kept.posted_counts});
    for (DraftDay day : as_it_was.days) {
        const bool lost = !day.beneath.isEmpty() && !has_arrived(day, sheet);
        if (lost)
            add_missing(m_kept.counts, std::exchange(m_kept.posted_counts, {}));
        else
            day.beneath.clear();
        if (day.posted)
            day = lost ? over_itself(day) : not_posted(day, sheet);
        if (lost || day.typed != day.before || !day.hours.isEmpty())
            m_kept.days << day;
    }
    m_kept.posted_counts.clear();
    if (m_kept != as_it_was)
        write(m_kept);
}

void MonthDraft::end() {
    m_employee = EmployeeKey();
    m_kept = {};
    m_posted.clear();
    m_clashes.clear();
    m_counts.clear();
    m_posted_counts.clear();
    m_totals.clear();
    m_without_column.clear();
    m_saved = {};
    m_are_lost = false;
    m_trouble.clear();
}

QStringList MonthDraft::totals_of(const MonthSheet& sheet) {
    QStringList totals;
    for (int column = 0; column < sheet.hyou.Cols(); ++column)
        totals << sheet.hyou(row::total, column);
    return totals;
}

/// A sum that changes to what the days don't give was typed; a tally takes it away, as it does counts.
void MonthDraft::note_sums(const MonthSheet& sheet) {
    const QStringList before = std::exchange(m_totals, totals_of(sheet));
    if (before.size() != m_totals.size())
        return;
    for (int column = col::break_time; column < sheet.hyou.Cols(); ++column) {
        if (!is_sum(column) || m_totals[column] == before[column])
            continue;
        const QString tag = sum_tag.toString() + tag_of(sheet, column);
        m_posted_counts.remove(tag);
        if (m_totals[column] == sum_of_days(sheet, column))
            m_counts.remove(tag);
        else
            m_counts.insert(tag, m_totals[column]);
    }
}

Draft MonthDraft::draft_of(const MonthSheet& sheet) {
    note_sums(sheet);
    for (int column = 0; column < sheet.hyou_day.Cols(); ++column)
        for (auto* counts : {&m_counts, &m_posted_counts})
            if (const QString& tag = sheet.hyou_day(strip::tag, column);
                counts->contains(tag) && counts->value(tag) != sheet.hyou_day(strip::count, column))
                counts->remove(tag);
    Draft draft{m_employee, draft_days(sheet, m_read, m_posted), m_counts};
    add_hours(draft.days, sheet, m_read, m_posted, m_read_figures);
    add_without_column(draft.days, sheet);
    if (!m_posted.isEmpty())
        draft.posted_counts = m_posted_counts;
    // A day that is typed anew before it is decided stands as it is typed now.
    for (const Clash& clash : m_clashes)
        if (std::ranges::find(draft.days, clash.draft.date, &DraftDay::date) == draft.days.end())
            draft.days << clash.draft;
    std::ranges::sort(draft.days, {}, &DraftDay::date);
    return draft;
}

void MonthDraft::keep(const MonthSheet& sheet) {
    if (m_employee.none())
        return;
    const Draft draft = draft_of(sheet);
    if (draft != m_kept || !m_trouble.isEmpty())
        write(draft);
}

void MonthDraft::write(Draft draft) {
    try {
        keep_draft(m_session.settings, draft, m_month);
        m_trouble.clear();
    } catch (const store::Error& error) {
        m_trouble = error.text();
    }
    m_kept = std::move(draft);
}

void MonthDraft::count_typed(const MonthSheet& sheet, int column) {
    m_counts.insert(sheet.hyou_day(strip::tag, column), sheet.hyou_day(strip::count, column));
    keep(sheet);
}

void MonthDraft::posted(const MonthSheet& sheet) {
    if (m_employee.none())
        return;
    m_saved = m_session.host.now().time();
    m_are_lost = false;
    note_sums(sheet);
    m_posted_counts.insert(std::exchange(m_counts, {}));
    const auto undecided = [&](int r) { return std::ranges::find(m_clashes, r, &Clash::row) != m_clashes.end(); };
    for (Clash& clash : m_clashes)
        clash.draft.posted = false;
    const Draft draft = draft_of(sheet);
    for (const DraftDay& day : draft.days)
        if (const int r = m_month.row(day.date); !undecided(r)) {
            const Hours figures = figures_of(sheet, sheet.hyou, r);
            m_posted.insert(r, {day.typed, day.hours, figures, beneath_next(sheet, r, {day.typed, figures})});
        }
    m_read_figures = sheet.hyou;
    m_read_strip = sheet.hyou_day;
    write(draft_of(sheet));
}

/// What the tables may hold if a posting gets lost.
QList<DayVersion> MonthDraft::beneath_next(const MonthSheet& sheet, int r, const DayVersion& next) const {
    const auto before = m_posted.find(r);
    if (before == m_posted.end())
        return {{m_read[r], figures_of(sheet, m_read_figures, r)}};
    QList<DayVersion> versions = before->beneath;
    if (const DayVersion last{before->typed, before->figures}; last != next && !versions.contains(last))
        versions << last;
    return versions;
}

/// What the tables hold now is what the next draft lies over. A day that stands there as it did before it was posted
/// stays: it is asked about when the month is read anew.
std::optional<bool> MonthDraft::on_their_way(const MonthSheet& sheet) {
    if (std::ranges::none_of(m_kept.days, &DraftDay::posted))
        return false;
    try {
        if (days_wait(m_session.settings, m_employee))
            return true;
        let_arrived_go(month_in_tables(sheet, m_session.settings, m_employee));
        return false;
    } catch (const store::Error&) {
        return std::nullopt; // told by whatever the person does next
    }
}

bool MonthDraft::waits_for_days() const {
    return !m_are_lost && std::ranges::any_of(m_kept.days, &DraftDay::posted);
}

void MonthDraft::let_arrived_go(const MonthSheet& stored) {
    Draft left = m_kept;
    left.days.removeIf([&](const DraftDay& day) { return arrived(day, stored); });
    m_are_lost = std::ranges::any_of(left.days, &DraftDay::posted);
    m_posted.removeIf([&](const auto& entry) {
        const PostedDay& posted = entry.value();
        if (!is_among({{posted.typed, posted.figures}}, stored, entry.key()) &&
            is_among(posted.beneath, stored, entry.key()))
            return false;
        m_read[entry.key()] = posted.typed;
        return true;
    });
    if (!m_are_lost) {
        m_posted_counts.clear();
        left.posted_counts.clear();
    }
    write(left);
}

MonthInHand MonthDraft::in_hand(const MonthSheet& sheet) const {
    return {sheet, m_read, m_posted, m_read_figures, m_read_strip, m_counts};
}

void MonthDraft::read_figures_of(const MonthSheet& stored, int r) {
    if (m_read_figures.Cols() != stored.hyou.Cols())
        return;
    for (int column = 0; column < stored.hyou.Cols(); ++column)
        m_read_figures(r, column) = stored.hyou(r, column);
}

void MonthDraft::taken_over(const MonthSheet& sheet, const QList<int>& rows) {
    m_totals = totals_of(sheet);
    for (const int r : rows) {
        m_without_column.remove(m_month.day(r));
        m_read[r] = typed_day(sheet, r);
        read_figures_of(sheet, r);
        m_posted.remove(r);
        for (Clash& clash : m_clashes)
            if (clash.row == r)
                stands_otherwise(clash, sheet);
    }
    read_figures_of(sheet, row::total);
    m_read_strip = sheet.hyou_day;
}

void MonthDraft::stands_otherwise(Clash& clash, const MonthSheet& stored) const {
    const Merge anew =
        merge(m_month, {clash.draft}, m_read, stored.kind_without_work, figures_of_others({clash.draft}, stored));
    clash.stored = m_read[clash.row];
    clash.stored_hours = anew.clashes.isEmpty() ? Hours() : anew.clashes.first().stored_hours;
}

void MonthDraft::settled(const Clash& clash, const MonthSheet& stored) {
    m_without_column.remove(clash.draft.date);
    m_read[clash.row] = clash.stored;
    read_figures_of(stored, clash.row);
    read_figures_of(stored, row::total);
    m_read_strip = stored.hyou_day;
    m_posted.remove(clash.row);
}

void MonthDraft::give_up() {
    m_clashes.clear();
    m_counts.clear();
    m_posted_counts.clear();
    m_without_column.clear();
    write({m_employee, {}, {}});
}

void MonthDraft::bring_back(const BesideSheet& beside) {
    m_clashes = beside.clashes;
    m_counts = beside.counts;
    m_totals.clear(); // what stands in the sums then was noted then
}

void MonthDraft::decide(MonthSheet& sheet, int clash, Choice choice) {
    DraftDay decided = m_clashes[clash].draft;
    const int r = m_clashes[clash].row;
    if (same_times(decided.typed, m_clashes.takeAt(clash).stored)) { // nothing is calculated
        const Hours typed = std::exchange(decided.hours, decided.figures);
        decided.hours.insert(typed);
    }
    if (choice == Choice::Typed) {
        lay_day(sheet, r, decided);
        lay_counts(sheet.hyou_day, m_counts);
        lay_sums(sheet, m_counts);
    } else {
        m_without_column.remove(decided.date);
    }
    keep(sheet);
}

QString MonthDraft::standing() const {
    if (!m_trouble.isEmpty())
        return u"下書きを保存できません。%1"_s.arg(m_trouble);
    if (const int days = m_kept.unsaved_days())
        return u"未登録 %1日"_s.arg(days);
    const auto is_of_sum = [](const QString& tag) { return tag.startsWith(sum_tag); };
    if (!m_kept.counts.isEmpty())
        return std::ranges::all_of(m_kept.counts.keys(), is_of_sum) ? u"未登録 合計"_s : u"未登録 日数"_s;
    if (!m_kept.days.isEmpty())
        return words(u"反映待ち"_s, m_saved);
    return m_saved.isValid() ? words(u"登録しました"_s, m_saved) : QString();
}

} // namespace entry
