#include "masters/mst_kyuka.h"

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

enum ListColumn { name_col, standard_col, class_col, key_col };

constexpr Column columns[] = {{u"名　称", 2100}, {u"標準", 1200}, {u"休暇・出勤", 1200}, {u"", 0}};
constexpr ListCell list_cells[] = {{ListCell::Text, name_col}, {ListCell::Number, standard_col},
    {ListCell::Number, class_col}, {ListCell::Number, key_col}};

constexpr QStringView standard_label = u"通常";
constexpr QStringView leave_label = u"休暇";
constexpr QStringView attendance_label = u"出勤";

void replace_by_labels(Sheet& hyou, int row) {
    hyou(row, standard_col) = hyou(row, standard_col) == u"0" ? QString() : standard_label.toString();
    hyou(row, class_col) = (hyou(row, class_col) == u"0" ? leave_label : attendance_label).toString();
}

/// `通常` of a class, as far as a mark is set: 1 for leave, 2 for attendance.
qint64 mark_of(qint64 day_class) {
    return day_class == 0 ? 1 : 2;
}

/// "休暇 有休": a kind as it is in the table, whatever stands in the boxes.
QString stored_name(store::Database& rovdata, qint64 number) {
    auto query = rovdata.prepare("select 休出, 休暇名 from kyutype where システム番号=? order by rowid");
    if (!query.bind(number).step())
        return {};
    const QStringView day_class = query.row().number(0) == 0 ? leave_label : attendance_label;
    return day_class.toString() + u' ' + short_name(Trim(query.row().text(1)));
}

} // namespace

void mst_kyuka::書式設定_休暇リスト() {
    lay_out(hyou, columns, 1);
}

void mst_kyuka::休暇マスターリスト表示() {
    auto rovdata = open_rovdata();
    fill_list(hyou,
        rovdata.prepare("select 休暇名, 通常, 休出, システム番号 from kyutype"
                        " order by 休出 desc,通常 desc,システム番号 asc, rowid"),
        list_cells);
    for (int row = hyou.FixedRows(); row < hyou.Rows(); ++row)
        replace_by_labels(hyou, row);
}

void mst_kyuka::休暇リスト転記() {
    const int row = hyou.Row();
    if (row < hyou.FixedRows())
        return;
    const qint64 day_class = hyou(row, class_col) == leave_label ? 0 : 1;
    const qint64 mark = hyou(row, standard_col) == standard_label ? mark_of(day_class) : 0;
    atai[key_field] = hyou(row, key_col);
    atai[name_field] = hyou(row, name_col);
    atai[class_field] = digits(day_class);
    atai[mark_field] = digits(mark);
    ch_hyou = mark != 0;
    Op_kyusyu = static_cast<int>(day_class);
    hold_as_registered();
}

void mst_kyuka::休暇リスト登録(int mode) {
    if (complete(mode)) {
        mode == Save ? save() : delete_row();
        start_new_row();
        休暇マスターリスト表示();
    }
    to_atai(name_field);
}

/// Whether there is something to save or delete; the person is told of a missing name.
bool mst_kyuka::complete(int mode) {
    if (mode != Save)
        return !atai[key_field].isEmpty();
    const bool named = !Trim(atai[name_field]).isEmpty();
    if (!named)
        m_session.host.tell(u"休暇名を入力してください"_s, u"休暇名未入力"_s);
    return named;
}

void mst_kyuka::save() {
    if (atai[key_field].isEmpty())
        atai[key_field] = digits(store::採番(m_session.settings, u"休暇種類"_s));
    const qint64 number = Val(atai[key_field]);
    const qint64 day_class = Val(atai[class_field]);
    const qint64 mark = Val(atai[mark_field]) == 0 ? 0 : mark_of(day_class);
    auto rovdata = open_rovdata();
    store::Transaction transaction(rovdata);
    rovdata.prepare("delete from kyutype where システム番号=?").bind(number).run();
    // A mark that isn't set is stored as no value.
    rovdata.prepare("insert into kyutype (システム番号, 休暇名, 通常, 休出) values (?, ?, nullif(?, 0), ?)")
        .bind(number, Trim(atai[name_field]), mark, day_class)
        .run();
    transaction.commit();
}

void mst_kyuka::delete_row() {
    const qint64 number = Val(atai[key_field]);
    auto rovdata = open_rovdata();
    store::Transaction transaction(rovdata);
    Deletion deletion{.what = stored_name(rovdata, number),
        .hanging = hanging_on(
            number, rovdata, "select count(*) from kyumei where システム番号=?", u"登録済みの %1日に残っています"_s),
        .rows = {take_rows(rovdata, u"kyutype"_s, number)}};
    transaction.commit();
    deletions.add(std::move(deletion));
}

void mst_kyuka::rows_are_back() {
    休暇マスターリスト表示();
    to_atai(name_field);
}

/// The day class stays, so that the next new kind starts from the last one chosen.
void mst_kyuka::start_new_row() {
    for (const Field field : {key_field, name_field, mark_field})
        atai[field].clear();
    ch_hyou = false;
    hold_as_registered();
}

void mst_kyuka::Form_Load() {
    書式設定_休暇リスト();
    休暇マスターリスト表示();
}

void mst_kyuka::hyou_Click(int row) {
    hyou.SetRow(row);
    休暇リスト転記();
}

void mst_kyuka::ch_hyou_Click(bool ticked) {
    ch_hyou = ticked;
    atai[mark_field] = ticked ? u"1"_s : u"0"_s;
}

void mst_kyuka::Op_kyusyu_Click(int element) {
    Op_kyusyu = element;
    atai[class_field] = digits(element);
}

bool mst_kyuka::atai_KeyDown(int key_code) {
    if (key_code != key::enter)
        return false;
    to_toubotan();
    return true;
}

bool mst_kyuka::toubotan_KeyDown(int key_code) {
    if (key_code != key::enter)
        return false;
    botan_Click(1);
    return true;
}

void mst_kyuka::press(int element) {
    休暇リスト登録(element == 1 ? Save : Delete);
}

} // namespace masters
