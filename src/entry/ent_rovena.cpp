#include "entry/ent_rovena.h"

#include "base/era.h"
#include "base/literals.h"
#include "base/month_look.h"
#include "base/numbers.h"
#include "entry/break_handling.h"
#include "entry/day_kinds.h"
#include "entry/employees.h"
#include "entry/layout.h"
#include "entry/month_load.h"
#include "entry/notices.h"
#include "entry/saving.h"
#include "entry/waiting_days.h"
#include "store/files.h"

#include <QScopedValueRollback>
#include <algorithm>

namespace entry {

using namespace base;

namespace {

const QString saved_with_a_day = u"日の変更といっしょに登録されます"_s;

} // namespace

store::Database ent_rovena::open_data() const {
    return store::Database::open(store::rovdata_path(m_session.settings), store::Kind::Rovdata);
}

void ent_rovena::Form_Load() {
    sortlist = int(common::employee_order(m_session.tables));
    sheet.kyuflg = break_handling(m_session.tables);
    リスト初期設定();
    書式設定();
    書式設定_日();
    書式設定_社員();
    社員マスター全呼出();
    editors.atai.close();
    for (Selector& selector : ym)
        selector.enabled = true;
    open_drafts();
    load_switches();
}

void ent_rovena::Form_Activate() {
    editors.focus = EntryControl::YmYear;
}

void ent_rovena::リスト初期設定() {
    const QDate today = m_session.host.now().date();
    ym[year_selector].items.clear();
    for (int i = -1; i <= 3; ++i)
        ym[year_selector].items << shown_year(today.addYears(i), m_session.settings, today);
    ym[month_selector].items.clear();
    for (int month = 1; month <= 12; ++month)
        ym[month_selector].items << digits(month);
    ym[year_selector].text = ym[year_selector].items[1];
    ym[month_selector].text = digits(today.month());
    auto database = open_data();
    load_day_kinds(sheet, editors.kyucom, database);
}

void ent_rovena::書式設定() {
    entry::書式設定(sheet, month_in_boxes().value_or(sheet.month));
    show_holidays(sheet.hyou, sheet.month, m_session.settings.own_holidays);
    show_month();
}

void ent_rovena::書式設定_日() {
    entry::書式設定_日(sheet);
}

void ent_rovena::書式設定_社員() {
    entry::書式設定_社員(hyou_syain);
}

void ent_rovena::社員マスター全呼出() {
    auto database = open_data();
    entry::社員マスター全呼出(hyou_syain, database, common::EmployeeOrder(sortlist));
}

void ent_rovena::社員リストソート処理() {
    entry::社員リストソート処理(hyou_syain, common::EmployeeOrder(sortlist));
    mark_employees();
}

void ent_rovena::社員選択処理() {
    editors.atai.close();
    editors.kyucom.visible = editors.kyucom.enabled = false;
    m_unsaved.reset();
    const EmployeeKey employee(Val(syainsyscd));
    if (employee.none())
        return;
    書式設定();
    書式設定_日();
    auto unloaded = qScopeGuard([this] { forget_employee(); });
    if (!saved_days_are_in(employee))
        return;
    report(u"データー抽出中"_s);
    load_month(employee);
    trim_strip(sheet.hyou_day);
    m_draft.begin(sheet, employee);
    m_open_months.open(employee, sheet.month);
    m_closed = common::closed_since(m_session.settings, sheet.month.month_key());
    unloaded.dismiss();
    keep_draft();
    sheet.hyou_day.SetCursor({1, 0});
    hyou_day_shown = true;
    sheet.hyou.SetCursor(sheet.entry_cell);
    m_history.begin(sheet, m_draft.beside_sheet());
    report(u"抽出終了"_s);
}

void ent_rovena::report(const QString& text) {
    msglab = text;
    if (msglab_changed)
        msglab_changed();
}

bool ent_rovena::saved_days_are_in(EmployeeKey employee) {
    const QScopedValueRollback<bool> in_hand(waiting, true);
    return 登録待ち(m_session, employee, [this] { report(u"登録完了を待っています"_s); }) == Opening::Free;
}

/// A load that failed or was refused leaves nobody chosen: an empty sheet under a name could be saved over that month.
void ent_rovena::forget_employee() {
    m_draft.end();
    m_in_tables = {};
    m_unsaved.reset();
    m_open_months.close();
    m_history.end();
    m_closed.reset();
    for (QString* text : {&syainsyscd, &syalab, &kintypecd, &lab2, &msglab})
        text->clear();
    sheet.band_table = {};
    sheet.category_list.clear();
    書式設定();
    書式設定_日();
}

void ent_rovena::load_month(EmployeeKey employee) {
    auto database = open_data();
    const WorkType type = read_month(sheet, database, employee, m_in_tables);
    kintypecd = type.kintypecd;
    lab2 = type.name;
}

void ent_rovena::保存処理() {
    if (saving || waiting)
        return;
    const QScopedValueRollback<bool> busy(saving, true);
    m_unsaved.reset();
    MonthInHand hand = m_draft.in_hand(sheet);
    hand.in_tables = &m_in_tables;
    SavedMonth save = entry::保存処理(m_session, hand, posted_employee(syalab, syainsyscd));
    if (save.month && !save.month->clashes.isEmpty())
        m_unsaved = std::move(save.month);
    else if (save.month)
        take_over(*std::move(save.month));
    else if (!m_closed && m_draft.waits_for_a_day() && changed_days(sheet).isEmpty())
        report(saved_with_a_day);
    if (save.saved != Saved::Posted)
        return;
    if (msglab == saved_with_a_day)
        report({});
    m_draft.posted(sheet, m_in_tables.sheet);
    m_history.posted(sheet, m_draft.beside_sheet());
    mark_draft();
}

void ent_rovena::ask_for_employee() {
    m_session.host.tell(u"社員を選択してから入力してください"_s, u"社員未選択"_s);
}

void ent_rovena::hyou_syain_Click(int row) {
    if (waiting || row < hyou_syain.FixedRows() || row >= hyou_syain.Rows() || !may_leave_month())
        return;
    choose_employee(row);
}

void ent_rovena::choose_employee(int row) {
    show_month();
    syainsyscd = hyou_syain(row, 2);
    syalab = hyou_syain(row, 0) + u':' + hyou_syain(row, 1);
    社員選択処理();
}

void ent_rovena::sortlist_Click(int element) {
    sortlist = element;
    common::keep_employee_order(m_session.tables, common::EmployeeOrder(element));
    社員リストソート処理();
}

void ent_rovena::kyuflg_Click(int element) {
    sheet.kyuflg = BreakHandling(element);
    keep_break_handling(m_session.tables, sheet.kyuflg);
}

void ent_rovena::hyou_Click(Cell cell) {
    atai_LostFocus();
    if (cell.col != col::kind && !employee_chosen())
        return ask_for_employee();
    if (cell.row < sheet.hyou.FixedRows())
        return;
    if (cell.col != col::kind)
        cell = {std::min(cell.row, sheet.hyou.LastRow()), std::min(cell.col, sheet.hyou.LastCol())};
    sheet.hyou.SetCursor(cell);
    入力フォーム(sheet, editors);
    keep_draft(UndoHistory::Step::Joins);
}

void ent_rovena::hyou_Scroll(int top_row, int left_col, int view_width, int view_height) {
    sheet.hyou.SetTopLeft(top_row, left_col);
    follow_scroll(sheet, editors, view_width, view_height);
}

void ent_rovena::atai_Change(const QString& text) {
    editors.atai.text = text;
}

bool ent_rovena::atai_KeyPress(int character) {
    if (!employee_chosen()) {
        ask_for_employee();
        return false;
    }
    if (refuse_if_closed())
        return false;
    const bool stands = type_key(sheet, character);
    say_refused(!stands);
    return stands;
}

QString ent_rovena::atai_Insert(const QString& text) {
    if (!employee_chosen()) {
        ask_for_employee();
        return {};
    }
    if (refuse_if_closed())
        return {};
    const QString standing = accept_text(sheet, text);
    say_refused(standing.isEmpty() && !text.isEmpty());
    return standing;
}

/// What was said before goes with the next key.
void ent_rovena::say_refused(bool refused) {
    editors.notice.reset();
    if (refused)
        say(refused_notice(sheet.hyou.Col()));
}

bool ent_rovena::atai_KeyDown(int key_code) {
    if (enter_goes_on(key_code)) {
        step_employee(1);
        return true;
    }
    const bool moved = move_by_key(sheet, editors, key_code);
    if (moved)
        keep_draft();
    return moved;
}

void ent_rovena::atai_LostFocus() {
    commit(sheet, editors);
    keep_draft();
}

void ent_rovena::kyucom_Click(int index) {
    if (!employee_chosen())
        ask_for_employee();
    else if (!refuse_if_closed())
        choose_kind(sheet, editors.kyucom, index);
    keep_draft();
}

void ent_rovena::hyou_day_Click(int column) {
    m_history.begin_count();
    sheet.hyou_day.SetCol(column);
}

void ent_rovena::keep_count() {
    const int column = sheet.hyou_day.Col();
    m_draft.count_typed(sheet, column);
    m_history.record_count(sheet, m_draft.beside_sheet(), column);
    mark_draft();
}

void ent_rovena::hyou_day_KeyPress(int character) {
    if (refuse_if_closed())
        return;
    type_count(sheet.hyou_day, character);
    keep_count();
}

void ent_rovena::hyou_day_KeyDown(int key_code) {
    if (key_code != key::del || refuse_if_closed())
        return;
    clear_count(sheet.hyou_day);
    keep_count();
}

void ent_rovena::botan_Click(int element) {
    atai_LostFocus();
    if (element == 0)
        close_wanted = may_leave_month();
    else
        保存処理();
}

} // namespace entry
