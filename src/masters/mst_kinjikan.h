#pragma once

// mst_kinjikan, "勤務時間設定": the form of the work types. The band grid `hyou` shows one weekday of the week in hand;
// the strip `hyou_youbi` chooses the day. Its last three columns are day sets: ways of copying the grid onto several
// days, asked for when the set is left. Nothing reaches the store before 登録削除処理.
//
// The list of types is filled on opening only, a number drawn for a new type isn't put into `kinjino`, and a delete
// leaves the rows in hand: so registering twice makes two types, and registering after a delete brings the type back.

#include "common/day_picture.h"
#include "masters/combo_box.h"
#include "masters/grid_screen.h"
#include "masters/week_buffer.h"

#include <array>
#include <functional>

namespace masters {

class mst_kinjikan : public EditorScreen {
public:
    static constexpr QStringView caption = u"勤務時間設定";

    /// Mode of 登録削除処理.
    enum Mode { Register = 1, Delete = 2 };

    explicit mst_kinjikan(frame::Session& session);

    base::Sheet hyoulist;             ///< types: name, number (hidden)
    base::Sheet hyou_youbi;           ///< the day strip
    int hyou_youbi_tag = 1;           ///< the column whose day is in the grid
    std::array<ComboBox, 2> atai_com; ///< categories, and modes of `時間計算`
    QString kinjino;                  ///< number of the type in hand; empty for a new one
    QString kinjikanmei;              ///< its name
    QString msglab;                   ///< how the work stands
    QString notelab;                  ///< rows of the type that a registration takes away unseen; empty if none

    /// Called when `msglab` has changed and the work behind it goes on: a page paints it at once.
    std::function<void()> msglab_changed;

    // Operations.

    void 書式設定();             ///< the empty grid; the week in hand stays
    void 書式設定_曜日();        ///< the strip, Monday chosen
    void 表初期設リスト();       ///< the empty list of types
    void 勤務種類リスト設定();   ///< both lists over the cells
    void 勤務タイプリスト表示(); ///< the types, by number
    void 勤務タイプ表示(); ///< takes the type under the list's cursor in hand, Monday in the grid; nothing without one
    /// From one column of the strip to another: folds the grid into the week, asking first where the column left is a
    /// day set, and shows the next day, Monday for a set.
    void 仮データー処理(int previous, int next);
    void 入力フォーム() override;
    /// Folds the grid in, asks, and registers or deletes the type in hand. A missing name is told when registering;
    /// deleting without a name does nothing. A type without a number draws one, also to be deleted.
    void 登録削除処理(int mode);

    /// The picture of the day in the grid, with what is typed in the open cell as it would be committed now.
    common::DayPicture picture() const;

    /// What is to be said of break rules that were typed under a day set and would be registered as their hour alone on
    /// days that weren't shown since; empty if there are none.
    QString rules_line() const;

    bool mark_unregistered() override;

    // Acts of the person.

    void Form_Load();

    /// The button beside the line of the rules: they reach every day of their set. Nothing is registered by that.
    void give_rules_to_all_days();

    void hyoulist_Click(int row);
    void hyou_youbi_Click(int column);
    void kinjikanmei_Change(const QString& text);

    void atai_Change(const QString& text);
    static bool atai_KeyPress(int character);        ///< whether the key stands; otherwise it is dropped
    static QString atai_Insert(const QString& text); ///< text in one piece (clipboard, input method): what stands of it

    void atai_com_Click(int element, int item);
    bool atai_com_KeyPress(int element, int character); ///< Backspace takes the choice back; whether it was that
    void atai_com_LostFocus(int element) { atai_com[element].close(); }

private:
    void leave_cell() override;
    void follow(int view_width, int view_height) override;
    void press(int element) override;
    /// Takes no input until the work is done or has failed; then nothing is told.
    void tell_progress(const QString& during, const QString& after, const std::function<void()>& work);
    void say(const QString& progress);
    void take_in_hand(qint64 number);
    void rows_are_back() override;
    QList<int> days_cut_short() const;
    void hold_as_registered(const WeekBuffer& week, const QString& name);
    bool differs(const WeekBuffer& week, int weekday, int band) const;
    bool confirmed(int mode, const QString& name);
    void write(int mode, const QString& name);
    void choose_day(int column);
    void set_choice(int element, int row, const Choice& choice);

    WeekBuffer m_week;
    WeekBuffer m_registered; ///< the type in hand as it is in the table; empty for a new one
    QString m_registered_name;
};

} // namespace masters
