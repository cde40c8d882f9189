#include "entry/company.h"
#include "platform/from_cp932.h"
#include "support/stored.h"

#include <gtest/gtest.h>

using namespace entry;

namespace {

class Form : public testing::Test {
protected:
    Form() { form.Form_Load(); }

    void choose(const QString& key) {
        for (int r = 1; r < form.hyou_syain.Rows(); ++r)
            if (form.hyou_syain(r, 2) == key)
                form.hyou_syain_Click(r);
    }

    /// The column of the employees' list.
    QString employees(int column) const {
        QStringList cells;
        for (int r = 0; r < form.hyou_syain.Rows(); ++r)
            cells << form.hyou_syain(r, column);
        return cells.join(u' ');
    }

    QString months() const { return form.ym[0].text + u'/' + form.ym[1].text; }

    Company company;
    ent_rovena form{company.session};
};

} // namespace

TEST_F(Form, OpensOnTheCurrentMonthWithItsListsFilled) {
    EXPECT_EQ(form.ym[0].items.join(u' '), u"2003 2004 2005 2006 2007"_s);
    EXPECT_EQ(months(), u"2004/10"_s);
    EXPECT_EQ(employees(1), u"社員名 山田:太郎 田中"_s);
    EXPECT_EQ(form.editors.kyucom.items.size(), 5);
    EXPECT_EQ(form.syainsyscd, u""_s);
    const base::Sheet& hyou = form.sheet.hyou;
    EXPECT_EQ(hyou(1, 0) + hyou(1, 1) + hyou(31, 0) + hyou(31, 1), u"1金31日"_s);
    EXPECT_EQ(hyou.Look(2, 1).fore, saturday_fore);
    EXPECT_EQ(hyou.Look(3, 1).fore, sunday_fore);
    EXPECT_EQ(hyou.Look(11, 0).tip, u"体育の日"_s);
    EXPECT_EQ(hyou.Look(11, 1).fore, sunday_fore) << "a Monday";
    EXPECT_FALSE(hyou.Look(3, 0).fore) << "a Sunday's date stays black";
}

TEST_F(Form, YearsAreThoseOfTheEraWhereErasAreShown) {
    auto& settings = company.tree.settings;
    settings.date_style = 1;
    settings.era_start[0] = 19890108;
    settings.era_end[0] = 99999999;
    settings.era_offset[0] = 1988;
    settings.month_start_day = 21;
    form.Form_Load();
    EXPECT_EQ(form.ym[0].text, u"16"_s);
    EXPECT_EQ(form.sheet.month.first(), QDate(2004, 10, 21));
    form.syainsyscd = u"1"_s;
    form.ym_Click(0, 0);
    EXPECT_EQ(form.sheet.month.first(), QDate(2003, 10, 21));
    for (const auto& [typed, year] : {std::pair{u"-1"_s, 1987}, {u""_s, 1987}, {u"-"_s, 1987}, {u"2"_s, 1990}}) {
        form.ym_Change(0, typed);
        form.ym_KeyDown(0, key::enter);
        EXPECT_EQ(form.sheet.month.first(), QDate(year, 10, 21)) << typed.toStdString();
    }
}

TEST_F(Form, TheOrderOfTheEmployeesAndTheBreakHandlingAreKeptAndChangeNoFigure) {
    EXPECT_EQ(employees(0), u"社員番号 20 3"_s);
    choose(u"1"_s);
    form.sheet.hyou(1, 8) = u"9:00"_s;
    form.kyuflg_Click(1);
    EXPECT_EQ(form.sheet.hyou(1, 8), u"9:00"_s);
    form.sortlist_Click(1);
    EXPECT_EQ(employees(0), u"社員番号 3 20"_s);
    for (const QString& key : {u"社員MLソート"_s, u"休憩時間処理"_s})
        EXPECT_EQ(company.tables.設定読込(u"losystem"_s, key), u"1"_s);
    ent_rovena again(company.session);
    again.Form_Load();
    EXPECT_EQ(again.hyou_syain(1, 0), u"3"_s);
    EXPECT_EQ(again.sheet.kyuflg, BreakHandling::Deducted);
}

TEST_F(Form, TheWeekdaysToFillAreThoseOfTheWeekUntilOthersAreKept) {
    EXPECT_EQ(form.fill_weekdays().to_string(), "0111110");
    form.set_fill_weekdays(Weekdays(0b1000001));
    EXPECT_EQ(ent_rovena(company.session).fill_weekdays().to_string(), "1000001");
    company.tables.設定書込(store::losystem, u"一括入力曜日"_s, u"x/073"_s);
    EXPECT_EQ(form.fill_weekdays().to_string(), "0001001") << "what is no weekday is none";
}

TEST_F(Form, AnEmployeesWorkTypeBringsItsCategoriesAndKinds) {
    QStringList reported;
    form.msglab_changed = [&] { reported << form.msglab; };
    choose(u"1"_s);
    form.msglab_changed = nullptr;
    EXPECT_EQ((QStringList{form.syalab, form.kintypecd, form.lab2} + reported),
        QStringList({u"20:山田:太郎"_s, u"5"_s, u"標準"_s, u"データー抽出中"_s, u"抽出終了"_s}));
    EXPECT_EQ(cells_from(form.sheet.hyou, 0, 8), u"普通|残業"_s);
    EXPECT_EQ(cells_from(form.sheet.hyou_day, 0, 0), u"出勤|休暇|出勤|休日出勤|公休|有休|普通|残業"_s);
    EXPECT_EQ(cells_from(form.sheet.hyou_day, 1, 0), u"-1|-2|s3|s4|k2|k1|11|12"_s);
    choose(u"2"_s);
    EXPECT_EQ(form.lab2, u"設定なし"_s) << "no work type, and nothing of the employee before";
    EXPECT_EQ(form.sheet.hyou.Cols(), 8);
    EXPECT_EQ(form.sheet.hyou_day.Cols(), 2);
    EXPECT_EQ(form.sheet.band_table[1][1].category, 0);
    company.exec("delete from kintype");
    choose(u"1"_s);
    EXPECT_EQ(form.lab2, u"設定なし"_s) << "a work type without bands, whose employee has kinds to count";
    EXPECT_EQ(form.sheet.hyou_day.Cols(), 6);
}

TEST_F(Form, BandsCrossMidnightAndThoseOfUnknownCategoriesOrSlotsAreNotRead) {
    company.exec(
        R"(delete from kintype; insert into kintype (システム番号, 勤務タイプ名, 曜日, 連番, 開始時間, 終了時間, 時間種類, 時間計算)
        values (5, '夜', 6, 1, 2200, 500, 12, 1), (5, '夜', 6, 3, 0, 500, 11, 0),
               (5, '夜', 6, 4, 800, 900, 99, 0), (5, '夜', 6, 11, 800, 900, 11, 0), (5, '夜', 7, 1, 800, 900, 11, 0))");
    choose(u"1"_s);
    const auto& saturday = form.sheet.band_table[6];
    EXPECT_TRUE(saturday[1].start == minutes(1320) && saturday[1].end == minutes(1740));
    EXPECT_TRUE(saturday[1].counts_from_inside);
    EXPECT_EQ(saturday[4].category, 0);
    EXPECT_EQ(cells_from(form.sheet.hyou, 40, 8), u"12|11"_s) << "in order of first appearance";
}

TEST_F(Form, TypingOrClickingWithoutAnEmployeeIsRefusedWithAMessage) {
    form.hyou_Click({3, 2});
    EXPECT_FALSE(form.atai_KeyPress(u'8'));
    EXPECT_EQ(form.atai_Insert(u"8"_s), u""_s);
    form.kyucom_Click(1);
    EXPECT_EQ(form.fill(FillSource::StandardTimes), 0);
    EXPECT_EQ(form.preview_paste(u"830"_s).refused, u"社員を選択してから入力してください"_s);
    EXPECT_EQ(form.paste({}), 0);
    form.undo();
    form.redo();
    EXPECT_EQ(company.host.shown, std::vector(4, support::Shown{u"社員を選択してから入力してください"_s,
                                                     u"社員未選択"_s, platform::Buttons::Ok}));
    EXPECT_EQ(form.sheet.mark(3), u""_s);
}

TEST_F(Form, AClickBelowTheTotalOrBesideTheLastColumnIsCutBack) {
    choose(u"1"_s);
    form.sheet.hyou.SetColWidth(9, 0);
    form.hyou_Click({38, 9});
    EXPECT_EQ(form.editors.atai.cell, (Cell{32, 8}));
    form.hyou_Click({0, 3});
    EXPECT_FALSE(form.editors.atai.active) << "a heading only takes the box away";
}

TEST_F(Form, ATypedMonthIsLoadedByEnterAloneAndNonsenseGoesBack) {
    form.ym_Change(0, u"1999"_s);
    form.ym_LostFocus();
    EXPECT_EQ(months(), u"2004/10"_s);
    form.ym_Change(0, u"1999"_s);
    choose(u"2"_s);
    EXPECT_EQ(months(), u"2004/10"_s) << "not by choosing an employee either";
    form.ym_Change(0, u"1999"_s);
    EXPECT_TRUE(form.ym_KeyDown(0, key::enter));
    form.ym_Change(1, u"08"_s);
    form.ym_KeyDown(1, key::enter);
    EXPECT_EQ(form.sheet.month.first(), QDate(1999, 8, 1));
    EXPECT_EQ(months(), u"1999/8"_s);
    EXPECT_EQ(form.editors.focus, EntryControl::Toubotan);
    for (const QString& nonsense : {u""_s, u"0"_s, u"-5"_s, u"500"_s, u"99999"_s, u"13"_s, u"7-"_s})
        for (const int element : {0, 1}) {
            form.ym_Change(element, nonsense == u"13"_s && element == 0 ? u"-"_s : nonsense);
            form.ym_KeyDown(element, key::enter);
            EXPECT_EQ(months(), u"1999/8"_s) << nonsense.toStdString();
            EXPECT_EQ(form.sheet.month.month_key(), 199908);
        }
}

TEST_F(Form, TheBoxesOfTheMonthTakeFiguresAloneAndNoOtherKeyThanEnter) {
    for (const auto& [character, stands] : {std::pair(u'0', true), {u'9', true}, {u'-', true}, {u'\b', true},
             {u'/', false}, {u':', false}, {u'年', false}})
        EXPECT_EQ(ent_rovena::ym_KeyPress(character), stands) << int(character);
    form.ym_Change(1, u"8"_s);
    EXPECT_FALSE(form.ym_KeyDown(1, key::right));
    form.ym_Click(1, -1);
    form.ym_Click(1, 12);
    EXPECT_EQ(form.sheet.month.month_key(), 200410);
}

TEST_F(Form, DaysThatCantBeReadBackAreExportedAndAFailureIsTold) {
    company.tree.settings.month_start_day = 21;
    form.Form_Load();
    choose(u"1"_s);
    form.ym_Click(1, 11);
    form.hyou_Click({12, col::clock_in});
    type(form, u"800"_s);
    const QString path = company.tree.folder.filePath(u"a.csv"_s);
    company.host.paths = {std::nullopt, path, path + u"/b.csv"_s};
    EXPECT_EQ(form.export_days_not_read_back(), u""_s) << "cancelled";
    form.atai_LostFocus();
    EXPECT_EQ(form.export_days_not_read_back(), path);
    const QString written = platform::from_cp932(support::bytes_of(path));
    EXPECT_TRUE(written.startsWith(u"登録後に呼び出せない日\r\n"_s)) << written.toStdString();
    EXPECT_TRUE(written.contains(u"20:山田:太郎"_s) && written.contains(u"2005/1/1"_s));
    EXPECT_TRUE(company.host.shown.empty());
    EXPECT_EQ(form.export_days_not_read_back(), u""_s);
    EXPECT_EQ(company.host.shown.size(), 1U);
}

TEST_F(Form, WithNobodyChosenTheSheetIsStillOfTheMonthInTheBoxes) {
    company.tree.settings.month_start_day = 31;
    form.Form_Load();
    form.ym_Click(1, 3);
    form.ym_Change(0, u"2003"_s);
    form.ym_LostFocus();
    EXPECT_EQ(form.ym[1].text, u"4"_s) << "April, wherever its first day lies";
    EXPECT_EQ(form.sheet.month.month_key(), 200404);
    choose(u"1"_s);
    EXPECT_EQ(form.sheet.month.month_key(), 200404);
}
