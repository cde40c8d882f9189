#include "masters/mst_syain.h"

#include "base/columns.h"
#include "base/keys.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "masters/lists.h"
#include "store/numbering.h"

namespace masters {

using namespace base;

namespace {

constexpr Column columns[] = {{u"社員番号", 1030}, {u"社　員　名", 3000}, {u"", 0}};
enum ListColumn { number_col, name_col, key_col };

/// The fields that the person sees, by element of `atai`.
constexpr QStringView field_names[] = {u"システム番号", u"社員番号", u"社員名", u"フリガナ"};

constexpr int never_given = 9999;

int draw_number(const base::Settings& settings) {
    const int number = store::採番(settings, u"社員番号"_s);
    return number == never_given ? store::採番(settings, u"社員番号"_s) : number;
}

/// The `社員番号` as it is in the table, whatever stands in the boxes.
QString stored_number(store::Database& rovdata, qint64 number) {
    auto query = rovdata.prepare("select 社員番号 from syain where システム番号=? order by rowid");
    return query.bind(number).step() ? Trim(query.row().text(0)) : QString();
}

/// How many other employees have the same `社員番号`, which nothing keeps unique.
qint64 others_with(store::Database& rovdata, qint64 number, const QString& shown) {
    auto query = rovdata.prepare("select count(*) from syain where 社員番号=? and システム番号<>?");
    return query.bind(shown, number).step() ? query.row().number(0) : 0;
}

/// The row on screen, the text boxes overruling the fields that they show.
QList<FieldText> row_of(const Sheet& hyou_syain, const std::array<QString, 4>& atai) {
    QList<FieldText> row;
    for (int r = 0; r < hyou_syain.Rows(); ++r) {
        const QString& name = hyou_syain(r, 0);
        const auto shown = std::ranges::find(field_names, name) - std::begin(field_names);
        row << FieldText{name, shown < std::ssize(field_names) ? Trim(atai[shown]) : hyou_syain(r, 1)};
    }
    return row;
}

} // namespace

void mst_syain::書式設定_社員リスト() {
    lay_out(hyou, columns, 1);
}

void mst_syain::社員マスター全呼出() {
    auto rovdata = open_rovdata();
    list_employees(hyou, rovdata, key_col, common::EmployeeOrder(sortlist));
    hyou.SetCursor({0, hyou.Cols() - 1});
}

/// An employee that another PC has deleted meanwhile leaves the screen in the state for a new one.
void mst_syain::社員表示処理(qint64 number) {
    if (number == 0)
        return;
    画面クリア();
    hyou_syain.SetRows(0);
    auto rovdata = open_rovdata();
    auto query = rovdata.prepare("select * from syain where システム番号=? order by rowid");
    if (!query.bind(number).step())
        return;
    const store::Row row = query.row();
    hyou_syain.SetRows(row.columns());
    for (int i = 0; i < row.columns(); ++i) {
        hyou_syain(i, 0) = row.name(i);
        hyou_syain(i, 1) = row.text(i);
        show_field({row.name(i), row.text(i)});
    }
    hold_as_registered();
}

void mst_syain::show_field(const FieldText& field) {
    const auto element = std::ranges::find(field_names, field.name) - std::begin(field_names);
    if (element < std::ssize(field_names))
        atai[element] = field.text;
}

void mst_syain::画面クリア() {
    for (QString& text : atai)
        text.clear();
    hold_as_registered();
}

void mst_syain::全体マスター変更処理(int mode) {
    if (Val(atai[key_field]) == 0 && !prepare_new_row())
        return;
    const qint64 number = Val(atai[key_field]);
    if (mode == Delete)
        delete_employee(number);
    else
        replace_in_every_copy(m_session.settings, number, row_of(hyou_syain, atai));
    画面クリア();
    社員マスター全呼出();
}

void mst_syain::delete_employee(qint64 number) {
    auto rovdata = open_rovdata();
    const QString shown = stored_number(rovdata, number);
    const qint64 others = others_with(rovdata, number, shown);
    Deletion deletion{.what = u"社員 "_s + shown,
        .hanging = hanging_on(number, rovdata,
            "select count(distinct 出社日) from rovmei where 社員システム番号=? and 出社日 % 100 <> 32",
            u"勤怠 %1日が残っています"_s),
        .rows = replace_in_every_copy(m_session.settings, number, {}),
        .obstacle = [this, number, shown, others] {
            auto now = open_rovdata();
            const bool taken = others_with(now, number, shown) > others;
            return taken ? u"社員番号 %1 は別の社員が使っています。"_s.arg(shown) : QString();
        }};
    deletions.add(std::move(deletion));
}

void mst_syain::rows_are_back() {
    社員マスター全呼出();
    to_atai(number_field);
}

/// Draws the number of a new employee and lays its row out. False, and the person told, if the name is missing.
bool mst_syain::prepare_new_row() {
    if (Trim(atai[name_field]).isEmpty()) {
        m_session.host.tell(u"項目を入力してださい"_s, u"未入力"_s);
        return false;
    }
    atai[key_field] = digits(draw_number(m_session.settings));
    hyou_syain = Sheet(int(std::size(field_names)), 2);
    for (int r = 0; r < hyou_syain.Rows(); ++r)
        hyou_syain(r, 0) = field_names[r].toString();
    return true;
}

void mst_syain::Form_Load() {
    sortlist = int(common::employee_order(m_session.tables));
    書式設定_社員リスト();
    社員マスター全呼出();
}

void mst_syain::hyou_Click(int row) {
    notice.clear();
    if (hyou.Contains(row, key_col)) {
        hyou.SetRow(row);
        社員表示処理(Val(hyou(row, key_col)));
    }
    to_atai(number_field);
}

void mst_syain::Command1_Click() {
    書式設定_社員リスト();
    社員マスター全呼出();
    to_atai(number_field);
}

void mst_syain::sortlist_Click(int element) {
    sortlist = element;
    common::keep_employee_order(m_session.tables, common::EmployeeOrder(element));
}

void mst_syain::atai_Change(int element, const QString& text) {
    notice.clear();
    FieldScreen::atai_Change(element, text);
}

/// A number twice is stored as it is typed; it is told.
void mst_syain::atai_LostFocus(int element) {
    const QString number = Trim(atai[number_field]);
    if (element != number_field || number.isEmpty())
        return;
    for (int r = hyou.FixedRows(); r < hyou.Rows(); ++r)
        if (hyou(r, number_col) == number && Val(hyou(r, key_col)) != Val(atai[key_field]))
            notice = u"社員番号 %1 は %2 さんも使っています"_s.arg(number, hyou(r, name_col));
}

bool mst_syain::atai_KeyDown(int element, int key_code) {
    notice.clear();
    if (key_code == key::enter && element == reading_field)
        to_toubotan();
    else if (key_code == key::enter && element >= number_field)
        to_atai(element + 1);
    else if (key_code == key::up && element >= name_field)
        to_atai(element - 1);
    else
        return false;
    return true;
}

bool mst_syain::toubotan_KeyDown(int key_code) {
    if (key_code == key::enter) {
        全体マスター変更処理(SaveByEnter);
        to_atai(number_field);
    } else if (key_code == key::up)
        to_atai(reading_field);
    else
        return false;
    return true;
}

void mst_syain::press(int element) {
    全体マスター変更処理(element == 1 ? Save : Delete);
    to_atai(number_field);
}

} // namespace masters
