#include "masters/mst_kinjikan.h"

#include "base/columns.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "masters/day_strip.h"
#include "masters/lists.h"
#include "masters/work_type_load.h"
#include "masters/work_type_save.h"
#include "store/numbering.h"

namespace masters {

using namespace base;

namespace {

constexpr Rgb white{255, 255, 255};
constexpr Rgb chosen_back{255, 220, 220};

constexpr Column hyou_columns[] = {
    {u"", 500},
    {u"開始時間", 1200},
    {u"終了時間", 1200},
    {u"勤務種類", 1900},
    {u"", 0},
    {u"時間計算", 2400},
    {u"", 0},
    {u"対象勤務1", 1200},
    {u"加算休時1", 1200},
    {u"対象勤務2", 1200},
    {u"加算休時2", 1200},
    {u"対象勤務3", 1200},
    {u"加算休時3", 1200},
};

constexpr Column list_columns[] = {{u"勤務タイプ名", 2400}, {u"", 0}};
constexpr ListCell list_cells[] = {{ListCell::Text, 0}, {ListCell::Number, 1}};

constexpr Column strip_columns[] = {
    {u"日", 790, Alignment::Center},
    {u"月", 790, Alignment::Center},
    {u"火", 790, Alignment::Center},
    {u"水", 790, Alignment::Center},
    {u"木", 790, Alignment::Center},
    {u"金", 790, Alignment::Center},
    {u"土", 790, Alignment::Center},
    {u"毎日", 790, Alignment::Center},
    {u"月-土", 790, Alignment::Center},
    {u"月-金", 790, Alignment::Center},
    {u"", 0},
};
constexpr int strip_days = 10;

/// What the strip's columns from 7 on stand for.
struct DaySet {
    int first;
    int last;
    QStringView question;
};
constexpr DaySet day_sets[] = {
    {0, 6, u"毎日、この設定で変更しますか？"},
    {1, 6, u"月曜～土曜まで、この設定で変更しますか？"},
    {1, 5, u"月曜～金曜まで、この設定で変更しますか？"},
};

constexpr int arrow_cols[] = {band_col::start, band_col::end, band_col::first_rule, band_col::first_rule + 1,
    band_col::first_rule + 2, band_col::first_rule + 3, band_col::first_rule + 4, band_col::last_rule};
constexpr int enter_cols[] = {band_col::start, band_col::end};
constexpr CellRoutes routes{arrow_cols, enter_cols};

QString note_of(const QList<ForeignRow>& foreign) {
    constexpr qsizetype told = 3;
    if (foreign.isEmpty())
        return {};
    QStringList rows;
    for (qsizetype i = 0; i < foreign.size() && i < told; ++i)
        rows << u"曜日 %1 連番 %2"_s.arg(foreign[i].weekday).arg(foreign[i].band);
    if (foreign.size() > told)
        rows << u"ほか %1 行"_s.arg(foreign.size() - told);
    return u"この画面で扱えない行があります（"_s + rows.join(u"、"_s) + u"）。登録すると消えます。"_s;
}

} // namespace

mst_kinjikan::mst_kinjikan(frame::Session& session) : EditorScreen(session, routes) {}

void mst_kinjikan::書式設定() {
    lay_out(hyou, hyou_columns, 1 + band_count, 1);
    for (int row = 1; row <= band_count; ++row)
        hyou(row, band_col::row_number) = digits(row);
}

void mst_kinjikan::書式設定_曜日() {
    lay_out(hyou_youbi, strip_columns, 1);
    hyou_youbi.SetFixed(0, 0);
    choose_day(monday);
}

void mst_kinjikan::表初期設リスト() {
    lay_out(hyoulist, list_columns, 3);
}

void mst_kinjikan::勤務種類リスト設定() {
    auto rovdata = open_rovdata();
    fill_combo(atai_com[0], rovdata.prepare("select 種類名, システム番号 from kinsyu order by システム番号, rowid"));
    atai_com[1].items = {combo_item(master_item, u"通常", {0}), combo_item(master_item, u"この時間が勤務開始", {1})};
}

void mst_kinjikan::勤務タイプリスト表示() {
    auto rovdata = open_rovdata();
    fill_list(hyoulist, work_types(rovdata), list_cells);
    hyoulist.SetCursor({0, 1});
}

void mst_kinjikan::勤務タイプ表示() {
    const qint64 number = Val(hyoulist(hyoulist.Row(), 1));
    if (number == 0)
        return;
    tell_progress(u"抽出中"_s, u"抽出終了"_s, [&] { take_in_hand(number); });
}

/// A type that can't be read leaves all as it was: its number must not come to stand over the bands of another one.
void mst_kinjikan::take_in_hand(qint64 number) {
    WeekBuffer week;
    auto rovdata = open_rovdata();
    notelab = note_of(load_work_type(rovdata, number, NameTable(atai_com[0]), NameTable(atai_com[1]), week));
    m_week = week;
    kinjikanmei = Trim(hyoulist(hyoulist.Row(), 0));
    kinjino = digits(number);
    hold_as_registered(week, kinjikanmei);
    m_week.show_day(hyou, monday);
    choose_day(monday);
}

void mst_kinjikan::仮データー処理(int previous, int next) {
    if (!is_day_set(previous)) {
        m_week.take_day(hyou, previous);
    } else {
        const DaySet& set = day_sets[previous - weekday_count];
        if (m_session.host.ask(set.question.toString(), u"変更処理"_s, platform::Buttons::YesNo) ==
            platform::Answer::Yes)
            m_week.take_day_set(hyou, set.first, set.last);
    }
    m_week.show_day(hyou, day_shown(next));
    choose_day(next);
}

void mst_kinjikan::登録削除処理(int mode) {
    仮データー処理(hyou_youbi_tag, hyou_youbi_tag);
    const QString name = Trim(kinjikanmei);
    if (!confirmed(mode, name))
        return;
    const QString action = mode == Register ? u"保存処理"_s : u"削除処理"_s;
    tell_progress(action + u"中"_s, action + u"終了"_s, [&] { write(mode, name); });
}

bool mst_kinjikan::confirmed(int mode, const QString& name) {
    if (name.isEmpty()) {
        if (mode == Register)
            m_session.host.tell(u"勤務時間名を入力してください"_s, u"名称未入力"_s);
        return false;
    }
    const bool registers = mode == Register;
    const QString question = name + (registers ? u"を登録します"_s : u"を削除します"_s);
    return m_session.host.ask(question, registers ? u"登録"_s : u"削除"_s, platform::Buttons::YesNo) ==
           platform::Answer::Yes;
}

/// A type without a number draws one, to be deleted too: the number is lost then.
void mst_kinjikan::write(int mode, const QString& name) {
    qint64 number = Val(kinjino);
    if (number == 0)
        number = store::採番(m_session.settings, u"勤務時間"_s);
    auto rovdata = open_rovdata();
    if (mode == Register) {
        replace_work_type(rovdata, number, name, m_week);
        hold_as_registered(m_week, name);
    } else {
        deletions.add(delete_work_type(rovdata, number));
        hold_as_registered({}, {});
    }
    notelab.clear();
}

void mst_kinjikan::Form_Load() {
    書式設定();
    書式設定_曜日();
    表初期設リスト();
    勤務種類リスト設定();
    勤務タイプリスト表示();
}

void mst_kinjikan::hyoulist_Click(int row) {
    if (busy || row < hyoulist.FixedRows() || row >= hyoulist.Rows())
        return;
    leave_cell();
    hyoulist.SetRow(row);
    const Sheet before = hyou;
    書式設定();
    try {
        勤務タイプ表示();
    } catch (...) {
        hyou = before;
        throw;
    }
}

void mst_kinjikan::hyou_youbi_Click(int column) {
    if (busy || column < 0 || column >= strip_days)
        return;
    leave_cell();
    const int previous = hyou_youbi_tag;
    hyou_youbi_tag = column;
    仮データー処理(previous, column);
}

void mst_kinjikan::kinjikanmei_Change(const QString& text) {
    kinjikanmei = field_text(text);
}

void mst_kinjikan::press(int element) {
    登録削除処理(element);
}

void mst_kinjikan::tell_progress(const QString& during, const QString& after, const std::function<void()>& work) {
    const Busy busy_until_done(*this);
    say(during);
    try {
        work();
    } catch (...) {
        msglab.clear();
        throw;
    }
    say(after);
}

void mst_kinjikan::say(const QString& progress) {
    msglab = progress;
    if (msglab_changed)
        msglab_changed();
    m_session.host.yield();
}

void mst_kinjikan::choose_day(int column) {
    for (int c = 0; c < hyou_youbi.Cols(); ++c)
        hyou_youbi.SetCellBack(0, c, c == column ? chosen_back : white);
    hyou_youbi.SetCol(column);
    hyou_youbi_tag = column;
}

} // namespace masters
