#include "entry/paste.h"

#include "base/literals.h"

#include "base/text.h"
#include "entry/calculation.h"
#include "entry/cells.h"
#include "entry/editing.h"
#include "entry/notices.h"
#include "entry/pasted_text.h"

#include <QMap>
#include <algorithm>

namespace entry {

using namespace base;

namespace {

using State = PasteCell::State;

constexpr std::array pasted_columns{col::clock_in, col::clock_out, col::break_time, col::remark};
constexpr ClockNumber whole_day{2400};

struct Understood {
    QString text;
    QString reason;
};

Understood understood_remark(const QString& pasted) {
    return {Trim(pasted).left(longest_remark), typed_notice(col::remark, pasted)};
}

/// A clock-out of 24:00 or later is the small hour that it is, unless the stay would reach a whole day.
Understood small_hours(ClockNumber clock, const QString& clock_in) {
    const ClockNumber next_day{clock.value - whole_day.value};
    if (next_day >= whole_day)
        return {{}, u"退社時間は 47:59 までです"_s};
    if (!clock_in.isEmpty() && next_day >= clock_of(clock_in))
        return {{}, u"24時間以上の勤務は入力できません"_s};
    return {time_to_text(next_day), {}};
}

Understood understood_time(int column, const QString& pasted, const QString& clock_in) {
    const auto meaning = column == col::break_time ? TimeMeaning::Duration : TimeMeaning::Clock;
    const auto [clock, reason] = pasted_time(pasted, meaning);
    if (!clock)
        return {{}, reason};
    if (*clock < whole_day)
        return {time_to_text(*clock), {}};
    return column == col::clock_out ? small_hours(*clock, clock_in) : Understood{{}, u"23:59 までです"_s};
}

State state_of(const QString& standing, const QString& understood) {
    if (understood.isEmpty())
        return State::NotUnderstood;
    if (standing.isEmpty())
        return State::New;
    return standing == understood ? State::Same : State::Replaces;
}

PasteCell homeless(Cell cell, const QString& pasted, const QString& reason) {
    if (pasted.trimmed().isEmpty())
        return {cell, pasted, {}, State::Same};
    return {cell, pasted, {}, State::NotUnderstood, reason};
}

PasteCell read_cell(const MonthSheet& sheet, Cell cell, const QString& pasted, const QString& clock_in) {
    if (pasted.trimmed().isEmpty())
        return {cell, pasted, {}, State::Same};
    const Understood read =
        cell.col == col::remark ? understood_remark(pasted) : understood_time(cell.col, pasted, clock_in);
    return {cell, pasted, read.text, state_of(sheet.hyou(cell.row, cell.col), read.text), read.reason};
}

void read_line(const MonthSheet& sheet, int r, size_t first, const QStringList& line, QList<PasteCell>& cells) {
    const bool in_month = is_day(sheet, r);
    QString clock_in = in_month ? sheet.hyou(r, col::clock_in) : QString();
    for (const QString& pasted : line) {
        if (first >= pasted_columns.size())
            cells << homeless({r, col::kind}, pasted, u"この列の入る欄がありません"_s);
        else if (!in_month)
            cells << homeless({r, pasted_columns[first]}, pasted, u"月の終わりより下です"_s);
        else
            cells << read_cell(sheet, {r, pasted_columns[first]}, pasted, clock_in);
        if (cells.last().cell.col == col::clock_in && !cells.last().understood.isEmpty())
            clock_in = cells.last().understood;
        ++first;
    }
}

bool changes_sheet(const PasteCell& cell) {
    return cell.state == State::New || cell.state == State::Replaces;
}

/// Which cell of a day the calculation is to take as the edited one, the last one of the line: a break by hand stands.
/// A remark starts no calculation.
int edited_column(int before, int column) {
    return column == col::remark ? before : column;
}

} // namespace

int PastePreview::changes() const {
    return static_cast<int>(std::ranges::count_if(cells, changes_sheet));
}

PastePreview preview_paste(const MonthSheet& sheet, const QString& text) {
    const Cell in_hand = sheet.entry_cell;
    const auto column = std::ranges::find(pasted_columns, in_hand.col);
    if (!is_day(sheet, in_hand.row) || column == pasted_columns.end())
        return {{}, u"日の出社時間・退社時間・休憩時間・備考のどれかから貼り付けます"_s};
    PastePreview preview;
    int r = in_hand.row;
    for (const QStringList& line : pasted_lines(text))
        read_line(sheet, r++, size_t(column - pasted_columns.begin()), line, preview.cells);
    return preview;
}

int paste(MonthSheet& sheet, const PastePreview& preview) {
    calculate_pending_days(sheet);
    QMap<int, int> edited; ///< column by row
    for (const PasteCell& cell : preview.cells) {
        const auto [r, column] = cell.cell;
        if (!changes_sheet(cell) || !is_day(sheet, r))
            continue;
        sheet.hyou(r, column) = cell.understood;
        edited[r] = edited_column(edited.value(r, col::remark), column);
    }
    for (const auto& [r, column] : edited.asKeyValueRange()) {
        calculate_day(sheet, r, column);
        sheet.mark(r) = u"1"_s;
    }
    return static_cast<int>(edited.size());
}

} // namespace entry
