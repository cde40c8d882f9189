#include "entry/month_draft.h"

#include "base/literals.h"
#include "entry/cells.h"
#include "entry/draft_store.h"
#include "entry/hand_figures.h"
#include "entry/month_load.h"
#include "entry/posted_days.h"
#include "entry/tally.h"
#include "entry/waiting_days.h"
#include "store/files.h"

#include <algorithm>

namespace entry {

using namespace base;

namespace {

QString words(const QString& text, QTime time) {
    return time.isValid() ? u"%1 %2"_s.arg(text, time.toString(u"H:mm")) : text;
}

/// Whether sums or counts of the month follow from a difference of the two days.
bool counts_otherwise(const MonthSheet& a, const MonthSheet& b, int r) {
    const TypedDay day = typed_day(a, r), other = typed_day(b, r);
    return !same_times(day, other) || !same_kind(day, other) || !same_figures(a.hyou, b.hyou, r);
}

} // namespace

void MonthDraft::begin(MonthSheet& sheet, EmployeeKey employee) {
    end();
    m_employee = employee;
    m_month = sheet.month;
    m_read = month_as_read(sheet);
    m_as_read = sheet;
    m_sums.begin(sheet);
    m_kept = read_draft(m_session.settings, employee, m_month);
    if (m_kept.isEmpty())
        return;
    for (const DraftDay& day : std::as_const(m_kept.days))
        keep_without_column(sheet, day);
    know_what_lies_beneath(m_kept.days);
    lay_kept(sheet);
    m_sums.stand(sheet);
    keep(sheet);
}

void MonthDraft::lay_kept(MonthSheet& sheet) {
    const bool wait = days_wait(m_session.settings, m_employee);
    if (!wait)
        write_if_other(left_of(m_kept, sheet));
    m_sums.take_up(m_kept);
    const auto coming = wait ? month_coming(sheet) : std::nullopt;
    m_clashes = lay_draft(sheet, m_kept, coming ? &*coming : nullptr);
    for (const DraftDay& day : std::as_const(m_kept.days))
        if (day.posted || (wait && was_posted(day)))
            note_posted(sheet, day);
        else if (const int r = m_month.row(day.date); coming && is_among({{day.before, day.figures}}, *coming, r))
            note_read(*coming, r);
    for (const DraftDay& day : std::as_const(m_kept.undecided))
        m_clashes << Clash{m_month.row(day.date), day, m_read[m_month.row(day.date)]};
    const bool as_coming = coming && take_sums(sheet, *coming);
    if (!as_coming && !is_unsaved()) // they follow from posted days alone
        note_sums_read(sheet);
}

void MonthDraft::note_posted(MonthSheet& sheet, const DraftDay& day) {
    const auto posted = posted_day(sheet, day);
    if (!posted)
        return;
    m_posted.insert(m_month.row(day.date), *posted);
    put_figures(sheet, m_as_read.hyou, m_month.row(day.date), day.figures);
}

/// What it will be once the rows that wait are in.
std::optional<MonthSheet> MonthDraft::month_coming(const MonthSheet& sheet) const {
    try {
        auto exchange =
            store::Database::open(store::exchange_path(m_session.settings, store::posting_file), store::Kind::Exchange);
        MonthInTables unread;
        return month_as_stored(sheet, m_session.settings, exchange, m_employee, unread);
    } catch (const store::Error&) { // told by whatever the person does next
        return {};
    }
}

/// Where the month stands as it is stored, or will be by waiting rows, these sums and counts are its own. Those typed
/// since stand. Gives back whether it does.
bool MonthDraft::take_sums(MonthSheet& sheet, const MonthSheet& stored) {
    if (!take_sums_of_same_days(sheet, stored))
        return false;
    note_sums_read(sheet);
    lay_counts(sheet.hyou_day, m_sums.typed());
    lay_sums(sheet, m_sums.typed());
    return true;
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

void MonthDraft::end() {
    m_employee = EmployeeKey();
    m_kept = {};
    m_posted.clear();
    m_clashes.clear();
    m_sums = {};
    m_without_column.clear();
    m_saved = {};
    m_are_lost = false;
    m_trouble.clear();
}

Draft MonthDraft::draft_of(const MonthSheet& sheet) {
    m_sums.look(sheet, m_as_read);
    Draft draft{m_employee, draft_days(sheet, m_read, m_posted), {}};
    add_hours(draft.days, sheet, m_read, m_posted, m_as_read.hyou);
    for (const Clash& clash : m_clashes) {
        const bool typed_anew = std::ranges::find(draft.days, clash.draft.date, &DraftDay::date) != draft.days.end();
        (typed_anew ? draft.undecided : draft.days) << clash.draft;
    }
    add_without_column(draft.days, sheet);
    std::ranges::sort(draft.days, {}, &DraftDay::date);
    m_sums.put_into(draft, sheet, m_as_read);
    return draft;
}

void MonthDraft::keep(const MonthSheet& sheet) {
    if (m_employee.none())
        return;
    write_if_other(draft_of(sheet));
}

void MonthDraft::write_if_other(Draft draft) {
    if (draft != m_kept || !m_trouble.isEmpty())
        write(std::move(draft));
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
    m_sums.count_typed(sheet, column);
    keep(sheet);
}

void MonthDraft::posted(const MonthSheet& sheet, const MonthSheet& in_tables) {
    if (m_employee.none())
        return;
    m_saved = m_session.host.now().time();
    m_are_lost = false;
    m_sums.posted(sheet, m_as_read);
    for (Clash& clash : m_clashes)
        clash.draft.posted = false;
    const Draft draft = draft_of(sheet);
    m_clashes.removeIf([&](const Clash& clash) { return !draft.days.contains(clash.draft); }); // typed anew
    for (const DraftDay& day : draft.days)
        if (std::ranges::find(m_clashes, day, &Clash::draft) == m_clashes.end())
            day_posted(sheet, day, in_tables);
    m_as_read = sheet;
    write(draft_of(sheet));
}

/// Where others' rows waited, the month was read with them, and the tables hold what lies beneath these.
void MonthDraft::day_posted(const MonthSheet& sheet, const DraftDay& day, const MonthSheet& in_tables) {
    const int r = m_month.row(day.date);
    const DayVersion version{day.typed, figures_of(sheet, sheet.hyou, r)};
    QList<DayVersion> beneath = m_posted.contains(r)
                                    ? beneath_next(m_posted[r], version)
                                    : QList{DayVersion{m_read[r], figures_of(sheet, m_as_read.hyou, r)}};
    if (!is_among(beneath, in_tables, r) && !is_among({version}, in_tables, r))
        beneath << DayVersion{typed_day(in_tables, r), figures_of(in_tables, in_tables.hyou, r)};
    m_posted.insert(r, {day.typed, day.hours, version.figures, beneath});
}

/// What the tables hold now is what the next draft lies over. A day that stands there as it did before it was posted
/// stays: it is asked about when the month is read anew.
std::optional<bool> MonthDraft::on_their_way(const MonthSheet& sheet) {
    if (!has_posted())
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
    return !m_are_lost && has_posted();
}

bool MonthDraft::has_posted() const {
    return !m_posted.isEmpty() || !m_kept.posted_counts.isEmpty() ||
           std::ranges::any_of(m_kept.days, &DraftDay::posted);
}

void MonthDraft::let_arrived_go(const MonthSheet& stored) {
    Draft left = m_kept;
    left.days.removeIf([&](const DraftDay& day) { return arrived(day, stored); });
    m_posted.removeIf([&](const auto& entry) {
        const bool is_there = arrived(entry.value(), stored, entry.key());
        if (is_there)
            m_read[entry.key()] = entry.value().typed;
        return is_there;
    });
    m_are_lost = !m_posted.isEmpty() || std::ranges::any_of(left.days, &DraftDay::posted) ||
                 !lost_counts(m_kept, stored).isEmpty();
    if (!m_are_lost) {
        m_sums.let_posted_go();
        left.posted_counts.clear();
        left.counts_beneath.clear();
    }
    write(left);
}

MonthInHand MonthDraft::in_hand(const MonthSheet& sheet) const {
    return {sheet, m_read, m_posted, m_as_read.hyou, m_as_read.hyou_day, m_sums.typed()};
}

void MonthDraft::read_figures_of(const MonthSheet& stored, int r) {
    if (m_as_read.hyou.Cols() != stored.hyou.Cols())
        return;
    for (int column = 0; column < stored.hyou.Cols(); ++column)
        m_as_read.hyou(r, column) = stored.hyou(r, column);
}

void MonthDraft::note_sums_read(const MonthSheet& sheet) {
    read_figures_of(sheet, row::total);
    m_as_read.hyou_day = sheet.hyou_day;
}

void MonthDraft::note_read(const MonthSheet& stored, int r) {
    m_read[r] = typed_day(stored, r);
    read_figures_of(stored, r);
}

void MonthDraft::taken_over(const MonthSheet& sheet, const QList<int>& rows) {
    m_sums.stand(sheet);
    for (const int r : rows) {
        m_without_column.remove(m_month.day(r));
        note_read(sheet, r);
        m_posted.remove(r);
        for (Clash clash : std::exchange(m_clashes, {}))
            if (clash.row != r || stands_otherwise(clash, sheet))
                m_clashes << clash;
    }
    note_sums_read(sheet);
}

/// Whether it is to be decided still, over what is stored by now.
bool MonthDraft::stands_otherwise(Clash& clash, const MonthSheet& stored) const {
    const Merge anew =
        merge(m_month, {clash.draft}, m_read, stored.kind_without_work, figures_of_others({clash.draft}, stored));
    clash.stored = m_read[clash.row];
    clash.stored_hours = anew.clashes.isEmpty() ? Hours() : anew.clashes.first().stored_hours;
    return !anew.clashes.isEmpty() || !anew.laid.isEmpty();
}

void MonthDraft::settled(const Clash& clash, const MonthSheet& stored) {
    m_without_column.remove(clash.draft.date);
    note_read(stored, clash.row);
    m_posted.remove(clash.row);
    m_clashes.removeIf([&](const Clash& undecided) { return undecided.row == clash.row; });
}

void MonthDraft::settle(MonthSheet& sheet, const MergedMonth& unsaved, const QList<Choice>& choices) {
    const MonthSheet before = sheet;
    bool otherwise = false;
    for (qsizetype i = 0; i < choices.size(); ++i) {
        const Clash& clash = unsaved.clashes[i];
        settled(clash, unsaved.stored);
        if (choices[i] == Choice::Stored)
            copy_day(sheet, unsaved.stored, clash.row);
        otherwise = otherwise || counts_otherwise(before, sheet, clash.row);
    }
    if (!take_sums(sheet, unsaved.stored) && otherwise)
        tally_anew(sheet, m_sums.typed());
}

/// What was posted stays until it has come into the tables.
void MonthDraft::give_up() {
    Draft left{m_employee, {}, {}, m_kept.posted_counts, m_kept.counts_beneath};
    for (const auto& [r, day] : m_posted.asKeyValueRange())
        left.days << DraftDay{
            m_month.day(r), m_read[r], day.typed, BreakFrom::Rules, false, true, day.hours, day.figures, day.beneath};
    m_clashes.clear();
    m_sums.give_up();
    m_without_column.clear();
    write(left);
}

void MonthDraft::bring_back(const BesideSheet& beside) {
    m_clashes = beside.clashes;
    m_sums.bring_back(beside.counts);
}

QMap<QString, QString> MonthDraft::counts_by_hand() const {
    QMap<QString, QString> counts = m_kept.posted_counts;
    counts.insert(m_sums.typed());
    return counts;
}

void MonthDraft::decide(MonthSheet& sheet, int clash, Choice choice) {
    const Clash decided = m_clashes.takeAt(clash);
    if (choice == Choice::Typed) {
        const MonthSheet theirs = sheet;
        lay_instead(sheet, decided.row, decided.draft);
        if (counts_otherwise(theirs, sheet, decided.row))
            tally_anew(sheet, counts_by_hand());
    } else {
        m_without_column.remove(decided.draft.date);
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
    if (!m_kept.isEmpty())
        return m_are_lost ? u"反映されていません"_s : words(u"反映待ち"_s, m_saved);
    return m_saved.isValid() ? words(u"登録しました"_s, m_saved) : QString();
}

} // namespace entry
