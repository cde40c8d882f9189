#include "entry/editing.h"

#include "base/literals.h"
#include "base/text.h"
#include "entry/calculation.h"
#include "entry/cells.h"
#include "entry/day_kinds.h"
#include "entry/notices.h"
#include "entry/tally.h"

namespace entry {

using namespace base;

namespace {

Cell cursor_of(const base::Sheet& hyou) {
    return {hyou.Row(), hyou.Col()};
}

QString editor_text(const MonthSheet& sheet, Cell cell) {
    const QString& text = sheet.hyou(cell.row, cell.col);
    return cell.col == col::remark ? text : text_to_time(text);
}

bool is_clock_or_break(int column) {
    return column >= col::clock_in && column <= col::break_time;
}

bool awaits_calculation(const MonthSheet& sheet, Cell cell) {
    return Val(sheet.mark(cell.row)) == 2;
}

void hide_kinds(KindList& kyucom) {
    kyucom.visible = kyucom.enabled = false;
}

/// `entry_cell` still names the cell that was left, so that the calculation sees which column was edited.
void calculate_day_left(MonthSheet& sheet) {
    const bool pending = sheet.pending_cell.has_value();
    const Cell left = sheet.pending_cell.value_or(sheet.entry_cell);
    sheet.pending_cell.reset();
    if (!pending && !awaits_calculation(sheet, left))
        return;
    sheet.entry_cell = left;
    出勤集計処理(sheet, left.row);
    sheet.mark(left.row) = u"1"_s;
}

void lay_box(MonthSheet& sheet, Editors& editors, Cell here) {
    hide_kinds(editors.kyucom);
    sheet.entry_cell = here;
    const auto method = here.col == col::remark ? InputMethod::On : InputMethod::Off;
    editors.atai.place(here, editor_text(sheet, here), method);
    editors.focus = EntryControl::Atai;
}

void place_box(MonthSheet& sheet, Editors& editors) {
    hide_kinds(editors.kyucom);
    const Cell here = cursor_of(sheet.hyou);
    if (here.col < sheet.hyou.FixedCols())
        return;
    calculate_day_left(sheet);
    lay_box(sheet, editors, here);
}

int item_of_kind(const KindList& kyucom, qint64 number) {
    for (int i = 0; i < kyucom.items.size(); ++i)
        if (Val(kind_parts(kyucom.items[i]).number) == number)
            return i;
    return kyucom.index;
}

void remember_pending(MonthSheet& sheet) {
    if (is_clock_or_break(sheet.entry_cell.col) && awaits_calculation(sheet, sheet.entry_cell))
        sheet.pending_cell = sheet.entry_cell;
}

/// A kind is chosen for the day as it was typed: the day is calculated first, and the choice stands.
void calculate_before_choice(MonthSheet& sheet) {
    const Cell here = sheet.entry_cell;
    if (!sheet.pending_cell || sheet.pending_cell->row != here.row)
        return;
    calculate_day_left(sheet);
    sheet.entry_cell = here;
}

void place_kinds(MonthSheet& sheet, Editors& editors) {
    const Cell here = cursor_of(sheet.hyou);
    hide_kinds(editors.kyucom);
    remember_pending(sheet);
    sheet.entry_cell = here;
    editors.atai.close();
    if (!is_day(sheet, here.row))
        return;
    editors.kyucom.index = item_of_kind(editors.kyucom, Val(sheet.hyou_system(here.row, record::kind_number)));
    sheet.hyou(here.row, col::kind) = sheet.hyou_system(here.row, record::kind_name);
    editors.kyucom.cell = here;
    editors.kyucom.visible = editors.kyucom.enabled = true;
    editors.focus = EntryControl::Kyucom;
}

bool has_impossible_minutes(const QString& typed) {
    const qint64 past_hour = Val(last_four(typed).right(2));
    return past_hour > 59 || past_hour < 0;
}

QString committed_text(int column, const QString& typed) {
    if (column == col::remark)
        return Trim(typed).left(longest_remark);
    return has_impossible_minutes(typed) ? QString() : time_to_text(typed);
}

/// A text that stands as it was read says nothing.
void write_cell(MonthSheet& sheet, Editors& editors, Cell cell) {
    const QString& typed = editors.atai.text;
    if (const QString words = typed_notice(cell.col, typed); !words.isEmpty() && typed != editor_text(sheet, cell))
        editors.notice = {cell, words};
    sheet.hyou(cell.row, cell.col) = committed_text(cell.col, typed);
}

bool is_typed_time(int character) {
    return character == key::backspace || (character >= u'0' && character <= u'9');
}

void mark_typed(MonthSheet& sheet) {
    sheet.mark(sheet.hyou.Row()) = is_clock_or_break(sheet.hyou.Col()) ? u"2"_s : u"1"_s;
}

Cell after_enter(Cell cell) {
    if (cell.col == col::clock_in || cell.col == col::clock_out)
        return {cell.row, cell.col + 1};
    return {cell.row + 1, col::clock_in};
}

/// Column 7 has no box: the arrows pass it over.
int beside(int column, int step) {
    return column + step == col::kind ? column + 2 * step : column + step;
}

Cell led_by_key(Cell here, int key_code) {
    switch (key_code) {
    case key::enter:
        return after_enter(here);
    case key::right:
        return {here.row, beside(here.col, 1)};
    case key::left:
        return {here.row, beside(here.col, -1)};
    case key::down:
        return {here.row + 1, here.col};
    case key::up:
        return {here.row - 1, here.col};
    default:
        return here;
    }
}

/// Where a key leads; nothing for other keys and past the edges. Enter alone goes on below the total row.
std::optional<Cell> target_of(const base::Sheet& hyou, int key_code) {
    const Cell here = cursor_of(hyou);
    const Cell target = led_by_key(here, key_code);
    const int last_row = key_code == key::down ? row::total : hyou.Rows() - 1;
    const bool inside = target.row >= row::first_day && target.row <= last_row && target.col >= hyou.FixedCols() &&
                        target.col < hyou.Cols();
    return inside && target != here ? std::optional(target) : std::nullopt;
}

bool in_view(const base::Sheet& hyou, Cell cell, int view_width, int view_height) {
    return cell.col >= hyou.LeftCol() && cell.col <= hyou.VisibleCols(view_width) && cell.row >= hyou.TopRow() &&
           cell.row <= hyou.VisibleRows(view_height);
}

QString& count_cell(base::Sheet& hyou_day) {
    return hyou_day(strip::count, hyou_day.Col());
}

} // namespace

void 入力フォーム(MonthSheet& sheet, Editors& editors) {
    if (sheet.hyou.Col() == col::kind)
        place_kinds(sheet, editors);
    else
        place_box(sheet, editors);
}

void place_again(MonthSheet& sheet, Editors& editors) {
    sheet.hyou.SetCursor(sheet.entry_cell);
    if (sheet.entry_cell.col == col::kind)
        place_kinds(sheet, editors);
    else
        lay_box(sheet, editors, sheet.entry_cell);
}

bool box_differs(const MonthSheet& sheet, const Editors& editors) {
    const Cell cell = sheet.entry_cell;
    return editors.atai.active && cell.row != row::category_number &&
           committed_text(cell.col, editors.atai.text) != sheet.hyou(cell.row, cell.col);
}

void commit(MonthSheet& sheet, Editors& editors) {
    if (!editors.atai.active)
        return;
    const Cell cell = sheet.entry_cell;
    if (cell.row != row::category_number)
        write_cell(sheet, editors, cell);
    editors.atai.close();
}

bool type_key(MonthSheet& sheet, int character) {
    const bool stands = sheet.hyou.Col() == col::remark || is_typed_time(character);
    if (stands)
        mark_typed(sheet);
    return stands;
}

QString accept_text(MonthSheet& sheet, const QString& text) {
    QString standing = text;
    if (sheet.hyou.Col() != col::remark)
        standing.removeIf([](QChar c) { return c < u'0' || c > u'9'; });
    if (!standing.isEmpty())
        mark_typed(sheet);
    return standing;
}

bool move_by_key(MonthSheet& sheet, Editors& editors, int key_code) {
    const auto target = target_of(sheet.hyou, key_code);
    if (!target)
        return false;
    sheet.hyou.SetCursor(*target);
    editors.notice.reset();
    commit(sheet, editors);
    入力フォーム(sheet, editors);
    return true;
}

/// The day in hand first, which knows the cell that was edited.
void calculate_pending_days(MonthSheet& sheet) {
    const Cell in_hand = sheet.entry_cell;
    calculate_day_left(sheet);
    for (int r = row::first_day; r <= row::last_day; ++r) {
        sheet.entry_cell = {r, col::clock_out};
        calculate_day_left(sheet);
    }
    sheet.entry_cell = in_hand;
}

void choose_kind(MonthSheet& sheet, KindList& kyucom, int index) {
    const int r = sheet.hyou.Row();
    if (!kyucom.enabled || index < 0 || index >= kyucom.items.size() || !is_day(sheet, r))
        return;
    const KindParts kind = kind_parts(kyucom.items[index]);
    kyucom.index = index;
    calculate_before_choice(sheet);
    sheet.hyou_system(r, record::kind_number) = kind.number;
    sheet.hyou_system(r, record::kind_name) = kind.name;
    sheet.hyou_system(r, record::holiday_work) = kind.holiday_work;
    sheet.hyou(r, col::kind) = kind.name;
    sheet.mark(r) = u"1"_s;
    休暇出勤日計算処理(sheet, 0);
}

void follow_scroll(MonthSheet& sheet, Editors& editors, int view_width, int view_height) {
    if (sheet.entry_cell.col == col::kind) {
        editors.kyucom.visible = false;
        return;
    }
    const Cell cell = sheet.entry_cell;
    editors.atai.visible = editors.atai.active && cell.row >= 2 && cell.row <= row::total &&
                           in_view(sheet.hyou, cell, view_width, view_height);
    if (editors.atai.visible)
        sheet.hyou.SetCursor(cell);
}

void type_count(base::Sheet& hyou_day, int character) {
    QString& cell = count_cell(hyou_day);
    if (character >= u'0' && character <= u'9') {
        const qint64 value = Val(文字除去(cell, u',') + QChar(character));
        cell = value == 0 ? u"0"_s : grouped(value);
    } else if (character == key::backspace) {
        cell = grouped(count_of(cell) / 10);
    } else if (character == key::minus && cell.isEmpty()) {
        cell = u"-"_s;
    }
}

void clear_count(base::Sheet& hyou_day) {
    count_cell(hyou_day).clear();
}

} // namespace entry
