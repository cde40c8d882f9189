// The draft of ent_rovena and its look before saving: what was typed is never lost, and what is off is told in time.

#include "base/era.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "common/save_path.h"
#include "common/sheet_csv.h"
#include "entry/draft_store.h"
#include "entry/ent_rovena.h"
#include "entry/hand_figures.h"
#include "entry/saving.h"
#include "entry/unread_days.h"

#include <algorithm>

namespace entry {

using namespace base;

namespace {

/// What the days that can't be read back are called among the exports of this PC.
const QString unread_days_name = u"出勤入力"_s;

} // namespace

QString ent_rovena::standing() const {
    if (!m_closed)
        return m_draft.standing();
    return u"締め済み　"_s + m_draft.standing();
}

bool ent_rovena::refuse_if_closed() {
    if (m_closed)
        say(common::closed_words(sheet.month.month_key(), *m_closed));
    return is_closed();
}

void ent_rovena::open_drafts() {
    if (const QString kept = put_away_damaged_drafts(m_session.settings); !kept.isEmpty())
        m_session.host.tell(u"下書きのファイルが壊れていたため、\n%1\nとして残しました。"_s.arg(kept), u"下書き"_s);
    m_draft_months = drafts_waiting(m_session.settings).months_of;
    mark_employees();
}

void ent_rovena::mark_employees() {
    for (int r = hyou_syain.FixedRows(); r < hyou_syain.Rows(); ++r)
        mark_employee(r, m_draft_months.value(Val(hyou_syain(r, 2))));
}

/// The dot tells that there is a draft, its tip of which months.
void ent_rovena::mark_employee(int r, const QMap<int, bool>& months) {
    const QDate today = m_session.host.now().date();
    QStringList unsaved, saved;
    for (const auto& [month, is_unsaved] : months.asKeyValueRange())
        (is_unsaved ? unsaved : saved)
            << u"%1年%2月"_s.arg(shown_year(QDate(month / 100, 1, 1), m_session.settings, today)).arg(month % 100);
    QStringList tip;
    if (!unsaved.isEmpty())
        tip << u"未登録 "_s + unsaved.join(u'、');
    if (!saved.isEmpty())
        tip << u"反映待ち "_s + saved.join(u'、');
    hyou_syain.SetCellDot(r, 0, !months.isEmpty());
    hyou_syain.SetCellTip(r, 0, tip.join(u'　'));
}

void ent_rovena::keep_draft(UndoHistory::Step step) {
    m_draft.keep(sheet);
    m_history.record(sheet, m_draft.beside_sheet(), step);
    mark_draft();
}

/// Whoever has another month's draft keeps the dot when this month's is over.
void ent_rovena::mark_draft() {
    const qint64 employee = Val(syainsyscd);
    const int month = sheet.month.month_key();
    const auto noted = m_draft_months.value(employee);
    const bool is_as_noted =
        has_draft() ? noted.value(month, !m_draft.is_unsaved()) == m_draft.is_unsaved() : !noted.contains(month);
    if (employee == 0 || is_as_noted)
        return;
    if (has_draft())
        m_draft_months[employee].insert(month, m_draft.is_unsaved());
    else
        m_draft_months = drafts_waiting(m_session.settings).months_of;
    mark_employees();
}

std::optional<bool> ent_rovena::days_on_their_way() {
    const std::optional<bool> on_their_way = m_draft.on_their_way(sheet);
    keep_draft();
    return on_their_way;
}

bool ent_rovena::may_leave_month() {
    if (!employee_chosen())
        return true;
    keep_draft();
    if (m_draft.trouble().isEmpty() || !m_draft.is_unsaved())
        return true;
    const auto stays = m_session.host.ask(u"下書きを保存できません。\n%1\n\n"
                                          u"登録していない入力は、この月を離れると失われます。\n"
                                          u"この月に残りますか？"_s.arg(m_draft.trouble()),
        u"下書き"_s, platform::Buttons::YesNo);
    return stays == platform::Answer::No;
}

void ent_rovena::decide(int clash, MonthDraft::Choice choice) {
    m_draft.decide(sheet, clash, choice);
    keep_draft();
}

/// Where days or sums of others come onto the sheet, no earlier state of it can stand again beside what is stored now.
void ent_rovena::take_over(MergedMonth month) {
    if (!month.sums_taken_over && month.taken_over.isEmpty())
        return;
    const auto days = std::ranges::count_if(month.taken_over, [&](int r) {
        return !same_figures(sheet.hyou, month.sheet.hyou, r) ||
               !stands_as_read(typed_day(sheet, r), typed_day(month.sheet, r), sheet.kind_without_work);
    });
    sheet = std::move(month.sheet);
    m_draft.taken_over(sheet, month.taken_over);
    keep_draft();
    m_history.begin(sheet, m_draft.beside_sheet());
    if (days > 0)
        report(u"ほかのＰＣで登録された %1日を表示しました"_s.arg(days));
    else if (month.sums_taken_over)
        report(u"ほかのＰＣで登録された合計を表示しました"_s);
}

void ent_rovena::settle_and_save(const QList<MonthDraft::Choice>& choices) {
    if (!m_unsaved || choices.size() != m_unsaved->clashes.size())
        return;
    const MergedMonth unsaved = *std::exchange(m_unsaved, {});
    m_draft.settle(sheet, unsaved, choices);
    keep_draft();
    if (choices.contains(MonthDraft::Choice::Stored)) // what stood before mustn't come back as this person's wish
        m_history.begin(sheet, m_draft.beside_sheet());
    if (changed_days(sheet).isEmpty())
        take_over(merge_months(m_draft.in_hand(sheet), unsaved.stored));
    保存処理();
}

void ent_rovena::give_up_draft() {
    m_draft.give_up();
    社員選択処理();
    keep_draft();
}

QList<Finding> ent_rovena::look_before_saving() {
    atai_LostFocus();
    const EmployeeKey employee(Val(syainsyscd));
    if (employee.none() || saving || waiting || is_checked(m_session.settings, employee, sheet.month))
        return {};
    return findings(sheet, kinds_left_out());
}

void ent_rovena::calculate_all() {
    calculate_pending_days(sheet);
    keep_draft();
}

QString ent_rovena::export_days_not_read_back() {
    const base::Sheet days = days_not_read_back(sheet, m_session.settings, m_session.host.now().date());
    const QString headings[] = {
        u"登録後に呼び出せない日"_s, syalab, ym[year_selector].text + u"年"_s + ym[month_selector].text + u"月"_s};
    const QString path = common::CSV保存先取得(m_session.settings, m_session.host, m_session.tables, unread_days_name);
    if (path.isEmpty())
        return {};
    const common::Written written = common::write_csv(headings, days, path);
    common::tell_written(written, headings, days, m_session.host);
    return written == common::Written::Failed ? QString() : path;
}

void ent_rovena::ask_no_more_for_month() {
    set_checked(m_session.settings, EmployeeKey(Val(syainsyscd)), sheet.month);
}

FindingKinds ent_rovena::kinds_left_out() const {
    return entry::kinds_left_out(m_session.tables);
}

void ent_rovena::leave_out(const FindingKinds& kinds) {
    entry::leave_out(m_session.tables, kinds);
}

} // namespace entry
