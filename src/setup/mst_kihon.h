#pragma once

// mst_kihon, "基本情報": the form of the settings: how dates are shown, the first day of the company month, this PC's
// printer with its offsets, and the news. A row of the screen is a box `atai`, whose `Tag` is the key it is kept under.
//
// What all PCs share lies in `kihon`, the rest in this PC's `losystem`. The first day is stored in `kihon` but read
// from `losystem`, which as a rule has no such key: the box then shows 1, and a save stores 1, whatever stood there.
// This is how the screen works, not a slip.

#include "base/notice.h"
#include "frame/screen.h"
#include "setup/printer_list.h"

#include <array>

namespace setup {

class mst_kihon : public frame::Screen {
public:
    static constexpr QStringView caption = u"基本情報";
    static constexpr QStringView waseireki_captions[] = {u"西暦", u"和暦"};
    static constexpr QStringView ck_caption = u"受信する";
    static constexpr QStringView offset_label = u"印刷位置調整(mm)";
    static constexpr QStringView first_day_notes[] = {
        u"←毎月何日から出勤計算を始めるか。", u"１日からならば、「１」、10日なら「10」と入力してください。"};

    static constexpr QStringView offset_note = u"プラスの数は上と左へ、マイナスの数は下と右へ動かします。";

    /// Elements of `atai`. `date_style`, `printer` and `net_info` are hidden mirrors of the option pair, the list and
    /// the check box; nothing reads or writes `system_number`.
    enum Element { system_number, date_style, printer, offset_y, offset_x, net_info, first_day, element_count };
    static constexpr QStringView Tag[element_count] = {u"システム番号", u"和西暦表示", u"プリンター１",
        u"プリンター１Ｙ", u"プリンター１Ｘ", u"ネット情報", u"月初日付"};

    explicit mst_kihon(frame::Session& session) : Screen(session) {}

    std::array<QString, element_count> atai;
    int waseireki = 0; ///< the option chosen: 0 Western years, 1 Japanese eras
    bool ck = false;
    PrinterList prconb; ///< none selected where the stored printer isn't on this PC
    QString msglab;
    std::optional<base::Notice<int>> notice; ///< of an element of `atai`: what was dropped or turned there

    /// How the first day in `kihon` stands to that of the box and to the one that this run began with, in words; empty
    /// where all three are one.
    QString first_day_notice() const;

    // Operations.

    void 基本マスター呼出();          ///< from the tables to the screen
    void 基本情報マスター登録_転記(); ///< the mirrors; a first day that no month has becomes 1
    void 基本情報マスター登録();      ///< from the screen to the tables

    // Acts of the person.

    void Form_Load();

    void waseireki_Click(int element);
    void ck_Click(bool ticked);
    void prconb_Click(int item);

    void atai_Change(int element, const QString& typed); ///< digits and "-" only
    bool atai_KeyDown(int element, int key_code);        ///< Enter leads from one offset to the other; whether it did

private:
    void say(int element, const QString& words);
    void press(
        int element) override; ///< 1 saves; the display of dates changes at once, the first day at the next start
    void load_shared();
    void load_of_this_pc();
    void write_shared();
    void write_of_this_pc();
    int first_day_in_kihon();

    int m_stored_day = 1;   ///< in `kihon`, when anything was typed, chosen or written last: another PC may store one
    int m_replaced_day = 1; ///< what the last save found there; the stored one if there was no save
};

} // namespace setup
