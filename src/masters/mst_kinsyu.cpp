#include "masters/mst_kinsyu.h"

#include "base/columns.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "masters/lists.h"
#include "store/numbering.h"

namespace masters {

using namespace base;

namespace {

constexpr Column columns[] = {{u"", 0}, {u"勤務種類名称", 4800}, {u"", 0}};
constexpr ListCell list_cells[] = {{ListCell::Number, mst_kinsyu::number_col}, {ListCell::Text, mst_kinsyu::name_col}};
constexpr int name_column[] = {mst_kinsyu::name_col};
constexpr CellRoutes routes{name_column, name_column};

void write_category(store::Database& rovdata, qint64 number, const QString& name) {
    store::Transaction transaction(rovdata);
    rovdata.prepare("update kinsyu set 種類名=? where rowid=(select min(rowid) from kinsyu where システム番号=?)")
        .bind(name, number)
        .run();
    if (rovdata.changes() == 0)
        rovdata.prepare("insert into kinsyu (システム番号, 種類名) values (?, ?)").bind(number, name).run();
    transaction.commit();
}

Deletion delete_category(store::Database& rovdata, qint64 number, const QString& name) {
    store::Transaction transaction(rovdata);
    Deletion deletion{.what = u"勤務種類 "_s + short_name(name),
        .hanging = hanging_on(number, rovdata, "select count(*) from kintype where 時間種類=?",
            u"勤務タイプの時間帯 %1件に残っています"_s),
        .rows = {take_rows(rovdata, u"kinsyu"_s, number)}};
    transaction.commit();
    return deletion;
}

/// A name was typed and has no number yet.
bool is_new(const Sheet& hyou, int row) {
    return hyou(row, mst_kinsyu::number_col).isEmpty() && !hyou(row, mst_kinsyu::name_col).isEmpty();
}

QStringList new_names(const Sheet& hyou) {
    QStringList names;
    for (int row = hyou.FixedRows(); row < hyou.Rows(); ++row)
        if (is_new(hyou, row))
            names << hyou(row, mst_kinsyu::name_col);
    return names;
}

} // namespace

mst_kinsyu::mst_kinsyu(frame::Session& session) : EditorScreen(session, routes) {}

void mst_kinsyu::書式設定() {
    lay_out(hyou, columns, 2);
}

void mst_kinsyu::マスター呼出() {
    notice.reset();
    auto rovdata = open_rovdata();
    fill_list(
        hyou, rovdata.prepare("select システム番号, 種類名 from kinsyu order by システム番号 asc, rowid"), list_cells);
    hyou.SetRows(hyou.Rows() + 1);
}

void mst_kinsyu::入力フォーム() {
    if (hyou.Col() == name_col && hyou.Row() >= hyou.FixedRows())
        place_atai(hyou(hyou.Row(), name_col), InputMethod::On);
}

void mst_kinsyu::マスター登録(int row) {
    if (hyou(row, mark_col).isEmpty())
        return;
    if (hyou(row, number_col).isEmpty())
        hyou(row, number_col) = digits(store::採番(m_session.settings, u"勤務種類"_s));
    auto rovdata = open_rovdata();
    write_category(rovdata, Val(hyou(row, number_col)), Trim(hyou(row, name_col)));
    // Only now: a row that couldn't be written is tried again.
    hyou(row, mark_col).clear();
}

void mst_kinsyu::マスター削除() {
    const int row = hyou.Row();
    if (row == 0)
        return;
    const qint64 number = Val(hyou(row, number_col));
    const QString name = hyou(row, name_col);
    if (number == 0 && name.isEmpty())
        return;
    if (m_session.host.ask(u"『"_s + name + u"』を削除します"_s, u"削除"_s, platform::Buttons::YesNo) !=
        platform::Answer::Yes)
        return;
    auto rovdata = open_rovdata();
    deletions.add(delete_category(rovdata, number, name));
    マスター呼出();
}

bool mst_kinsyu::mark_unregistered() {
    bool any = false;
    for (int row = hyou.FixedRows(); row < hyou.Rows(); ++row) {
        const bool marked = is_new(hyou, row) || !hyou(row, mark_col).isEmpty();
        hyou.SetCellDot(row, name_col, marked);
        any |= marked;
    }
    return any;
}

void mst_kinsyu::Form_Load() {
    書式設定();
    マスター呼出();
}

void mst_kinsyu::Form_Activate() {
    hyou.SetCursor({1, name_col});
    入力フォーム();
    atai.hide();
}

void mst_kinsyu::atai_Change(const QString& text) {
    if (!atai.active)
        return;
    notice.reset();
    atai.text = field_text(text);
    const QString name = Trim(atai.text);
    const int row = atai.cell.row;
    const QString before = hyou(row, name_col);
    if (row == hyou.Rows() - 1 && !before.isEmpty())
        hyou.SetRows(hyou.Rows() + 1);
    if (!before.isEmpty() && before != name)
        hyou(row, mark_col) = u"1"_s;
    hyou(row, name_col) = name;
}

/// A name that couldn't be saved stays in the box with the keyboard.
void mst_kinsyu::leave_cell() {
    if (!atai.active)
        return;
    notice.reset();
    try {
        マスター登録(atai.cell.row);
    } catch (...) {
        hyou.SetCursor(atai.cell);
        入力フォーム();
        throw;
    }
    say_if_not_saved(atai.cell.row);
    atai.close();
}

/// The table read afresh knows nothing of names without a number.
void mst_kinsyu::rows_are_back() {
    const QStringList typed = new_names(hyou);
    マスター呼出();
    for (const QString& name : typed) {
        hyou(hyou.Rows() - 1, name_col) = name;
        hyou.SetRows(hyou.Rows() + 1);
    }
}

/// A row that was ever saved has a number.
void mst_kinsyu::say_if_not_saved(int row) {
    const QString& name = hyou(row, name_col);
    if (!name.isEmpty() && hyou(row, number_col).isEmpty())
        notice = {{row, name_col}, u"「%1」はまだ登録されていません（1文字足して消すと登録されます）"_s.arg(name)};
}

void mst_kinsyu::press(int element) {
    if (element == 2)
        マスター削除();
}

} // namespace masters
