// The cells of mst_kinjikan: the input box over the times, the two lists over category and mode.

#include "base/keys.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "base/time.h"
#include "masters/mst_kinjikan.h"

#include <ranges>

namespace masters {

using namespace base;

namespace {

constexpr int no_list = -1;

/// Each list has its name column and the number column behind it.
constexpr int name_cols[] = {band_col::category_name, band_col::mode_name};

int list_over(int column) {
    for (int element = 0; element < int(std::size(name_cols)); ++element)
        if (name_cols[element] == column)
            return element;
    return no_list;
}

bool is_time(int column) {
    return column == band_col::start || column == band_col::end || column >= band_col::first_rule;
}

/// Hours and minutes are looked at by place in the last four characters; a time that can't be is an empty cell.
QString committed_time(const QString& typed) {
    const QString four = last_four(typed);
    const qint64 hours = Val(QStringView(four).first(2));
    const qint64 past_hour = Val(QStringView(four).last(2));
    const bool possible = hours >= 0 && hours <= 23 && past_hour >= 0 && past_hour <= 59;
    return possible ? time_to_text(typed) : QString();
}

bool is_typed_time(int character) {
    return (character >= u'0' && character <= u'9') || character == key::minus;
}

QList<qint64> numbers_of(const ComboBox& combo) {
    QList<qint64> numbers;
    for (int item = 0; item < combo.items.size(); ++item)
        numbers << Val(combo.choice(item).number);
    return numbers;
}

/// All bands of the grid, the empty ones too, under their row numbers.
QList<common::DayBand> bands_of(const Sheet& hyou) {
    QList<common::DayBand> bands;
    for (int row = hyou.FixedRows(); row < hyou.Rows(); ++row)
        bands << common::DayBand{
            row, hyou(row, band_col::start), hyou(row, band_col::end), Val(hyou(row, band_col::category))};
    return bands;
}

} // namespace

void mst_kinjikan::入力フォーム() {
    const Cell here = cursor();
    if (here.row < hyou.FixedRows())
        return;
    if (is_time(here.col))
        return place_atai(text_to_time(hyou(here.row, here.col)), InputMethod::Off);
    const int element = list_over(here.col);
    if (element == no_list)
        return;
    atai_com[element].place(here);
    atai_com[element].select(Val(hyou(here.row, here.col + 1)));
    focus = Focus{Control::AtaiCom, element};
}

common::DayPicture mst_kinjikan::picture() const {
    const QList<qint64> categories = numbers_of(atai_com[0]);
    if (!atai.active)
        return common::day_picture(bands_of(hyou), categories);
    Sheet as_typed = hyou;
    as_typed(atai.cell.row, atai.cell.col) = committed_time(atai.text);
    return common::day_picture(bands_of(as_typed), categories);
}

void mst_kinjikan::atai_Change(const QString& text) {
    if (atai.active)
        atai.text = text;
}

bool mst_kinjikan::atai_KeyPress(int character) {
    return is_typed_time(character) || character == key::backspace;
}

QString mst_kinjikan::atai_Insert(const QString& text) {
    QString standing = text;
    return standing.removeIf([](QChar c) { return !is_typed_time(c.unicode()); });
}

void mst_kinjikan::atai_com_Click(int element, int item) {
    ComboBox& combo = atai_com[element];
    if (const auto choice = combo.choose(item))
        set_choice(element, combo.cell.row, *choice);
}

bool mst_kinjikan::atai_com_KeyPress(int element, int character) {
    ComboBox& combo = atai_com[element];
    if (!combo.visible || character != key::backspace)
        return false;
    combo.index = -1;
    set_choice(element, combo.cell.row, {});
    return true;
}

void mst_kinjikan::set_choice(int element, int row, const Choice& choice) {
    hyou(row, name_cols[element]) = choice.name;
    hyou(row, name_cols[element] + 1) = choice.number;
}

void mst_kinjikan::follow(int view_width, int view_height) {
    EditorScreen::follow(view_width, view_height);
    for (ComboBox& combo : atai_com)
        follow_scroll(hyou, combo, view_width, view_height);
}

void mst_kinjikan::leave_cell() {
    for (ComboBox& combo : atai_com)
        combo.close();
    if (!atai.active)
        return;
    hyou(atai.cell.row, atai.cell.col) = committed_time(atai.text);
    atai.close();
}

} // namespace masters
