// The keys of ent_rovena beyond those of its cells: from employee to employee, to the kinds and back, and why.

#include "base/combo_item.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "entry/cells.h"
#include "entry/ent_rovena.h"

#include <algorithm>

namespace entry {

using namespace base;

namespace {

const QString goes_on_key = u"次社員入力"_s;
const QString why_key = u"内訳表示"_s;

} // namespace

void ent_rovena::say(const QString& words) {
    editors.notice = {{sheet.hyou.Row(), sheet.hyou.Col()}, words};
}

/// The list's own row of the chosen employee; its heading's while nobody is chosen.
int ent_rovena::employee_row() const {
    for (int r = hyou_syain.FixedRows(); r < hyou_syain.Rows(); ++r)
        if (!syainsyscd.isEmpty() && hyou_syain(r, 2) == syainsyscd)
            return r;
    return hyou_syain.FixedRows() - 1;
}

void ent_rovena::step_employee(int step) {
    const int to = employee_row() + step;
    if (to < hyou_syain.FixedRows())
        return say(u"最初の社員です"_s);
    if (to >= hyou_syain.Rows())
        return say(u"最後の社員です"_s);
    atai_LostFocus();
    editors.notice.reset();
    hyou_syain.SetRow(to);
    hyou_syain_Click(to);
    if (!syainsyscd.isEmpty())
        hyou_Click({row::first_day, col::clock_in});
}

void ent_rovena::go_to_kinds() {
    if (!is_day(sheet, sheet.hyou.Row()))
        return say(u"この行は日ではありません"_s);
    hyou_Click({sheet.hyou.Row(), col::kind});
    QStringList choices;
    for (int i = 1; i < editors.kyucom.items.size(); ++i)
        choices << u"%1 %2"_s.arg(i).arg(combo_name(day_kind_item, editors.kyucom.items[i]));
    if (editors.kyucom.visible)
        say(choices.join(u"　"_s));
}

void ent_rovena::kyucom_Digit(int digit) {
    editors.notice.reset();
    if (digit < editors.kyucom.items.size())
        kyucom_Click(digit);
    else
        say(u"%1 の区分はありません（%2）"_s.arg(digits(digit), numbers_of_kinds()));
}

void ent_rovena::kyucom_KeyPress(int character) {
    editors.notice.reset();
    const QChar first(character);
    const auto begins = [&](const QString& item) { return item.startsWith(first, Qt::CaseInsensitive); };
    if (std::ranges::none_of(editors.kyucom.items, begins))
        say(u"「%1」で始まる区分はありません（%2）"_s.arg(first).arg(numbers_of_kinds()));
}

QString ent_rovena::numbers_of_kinds() const {
    const qsizetype last = std::min<qsizetype>(editors.kyucom.items.size() - 1, 9);
    return last < 1 ? u"0 で区分なし"_s : u"番号は 1～%1、0 で区分なし"_s.arg(last);
}

bool ent_rovena::kyucom_KeyDown(int key_code) {
    const int r = sheet.hyou.Row();
    if (key_code == key::enter)
        leave_kinds(r + 1);
    else if (key_code == key::escape)
        leave_kinds(r);
    return key_code == key::enter || key_code == key::escape;
}

void ent_rovena::leave_kinds(int r) {
    editors.notice.reset();
    if (goes_on && r > sheet.month.length())
        step_employee(1);
    else
        hyou_Click({r, col::clock_in});
}

/// Whether Enter leads past the month's last day, and on to the next employee.
bool ent_rovena::enter_goes_on(int key_code) const {
    const bool ends_day = sheet.hyou.Col() != col::clock_in && sheet.hyou.Col() != col::clock_out;
    return goes_on && key_code == key::enter && ends_day && sheet.hyou.Row() >= sheet.month.length();
}

void ent_rovena::set_goes_on(bool on) {
    goes_on = on;
    m_session.tables.設定書込(store::losystem, goes_on_key, digits(on));
}

void ent_rovena::load_switches() {
    goes_on = Val(m_session.tables.設定読込(store::losystem, goes_on_key)) != 0;
    why_shown = Val(m_session.tables.設定読込(store::losystem, why_key)) != 0;
}

void ent_rovena::set_why_shown(bool shown) {
    why_shown = shown;
    m_session.tables.設定書込(store::losystem, why_key, digits(shown));
    hyou_Click({sheet.hyou.Row(), sheet.hyou.Col()}); // what is typed in the cell in hand counts
}

} // namespace entry
