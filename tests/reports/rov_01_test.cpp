#include "reports/rov_01.h"

#include "base/keys.h"
#include "reports/company.h"
#include "support/fake_pages.h"
#include "support/recording_shop.h"

#include <QDir>
#include <QFile>

namespace reports {

/// The report screen over the small company, on 2004/10/5.
struct Rov01 : Company {
    support::FakePages pages;
    frame::mainform frame{session, pages};
    support::RecordingShop shop;
    std::optional<std::pair<int, int>> searched; ///< mode and element
    int previews = 0;
    std::optional<rov_01> form;

    Rov01() {
        store::Database::open(store::comsys_path(tree.settings), store::Kind::Comsys)
            .exec("insert into syain (システム番号, 社員番号, 社員名) values"
                  " (1, 9, '山田'), (2, 10, '田中'), (4, 100, '木村')");
        tables.設定書込(u"losystem"_s, u"プリンター１"_s, u"PDF"_s);
    }
    rov_01& open(int number) {
        frame.report_no = number;
        const auto search = [this](int mode, int element) { searched = {mode, element}; };
        form.emplace(session, frame, shop, rov_01::Windows{search, [this](const Report&) { ++previews; }});
        form->Form_Load();
        form->Form_Activate();
        return *form;
    }
    std::optional<Wish> wish() { return std::exchange(form->focus, std::nullopt); }
    void type_employee(int element, const QString& number) {
        form->tancd_GotFocus(element);
        form->tancd_Change(element, number);
        form->tancd_LostFocus(element);
    }
    /// Number, system number and name of an employee of the conditions.
    QString employee(size_t element) const {
        const Conditions& c = form->report.conditions;
        return c.tancd[element] + u' ' + c.systancd[element] + u' ' + c.ntancd[element];
    }
    void leave_date(int element, const QString& typed) {
        form->ymd_GotFocus(element);
        form->ymd_Change(element, typed);
        form->ymd_LostFocus(element);
    }
    void leave_month(int element, const QString& typed) {
        form->yyyymm_GotFocus(element);
        form->yyyymm_Change(element, typed);
        form->yyyymm_LostFocus(element);
    }
    void work_in_october(int employee) {
        exec("insert into rovmei (社員システム番号, 出社日, 出社時間, 退社時間, 勤務時間) values (" +
             std::to_string(employee) + ", 20041001, 830, 1730, 800)");
    }
};

constexpr Wish extract_stop{ReportControl::botabox, 0};

TEST_F(Rov01, EachReportHasItsConditionsAndItsFirstBox) {
    const struct {
        int number;
        QString title;
        Panels panels;
        std::array<QString, 2> ymd;
        Wish first;
    } cases[] = {
        {1, u"社員一覧表"_s, {.pic_tantou = true}, {u"2004/10/1"_s, u"2004/10/31"_s}, {ReportControl::tancd, 0}},
        {2, u"勤務種類一覧表"_s, {}, {u"2004/10/5"_s, u"2004/10/5"_s}, extract_stop},
        {3, u"勤務タイプ一覧表"_s, {}, {u"2004/10/5"_s, u"2004/10/5"_s}, extract_stop},
        {4, u"出勤明細一覧表"_s, {.Pic_yyyymm = true, .pic_tantou = true, .print_zero = true, .print_flg = true}, {},
            {ReportControl::yyyymm, 0}},
        {5, u"勤務時間一覧表"_s, {.pic_ymd_t1 = true, .pic_tantou = true}, {u"2004/10/1"_s, u"2004/10/31"_s},
            {ReportControl::ymd, 0}},
        {6, u"休暇出勤一覧表"_s, {}, {}, extract_stop},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.number);
        rov_01& screen = open(c.number);
        EXPECT_EQ(screen.report.midasi[0], c.title);
        EXPECT_EQ(screen.panels(), c.panels);
        EXPECT_EQ(screen.report.conditions.ymd, c.ymd);
        EXPECT_EQ(wish(), c.first);
        const Wish afterwards = c.first == extract_stop ? Wish{ReportControl::karibotan, 0} : c.first;
        screen.botan_Click(1);
        EXPECT_EQ(wish(), afterwards);
        EXPECT_GT(screen.report.hyou.Rows(), 1);
        const size_t jobs = shop.jobs.size();
        screen.botan_Click(2);
        EXPECT_EQ(wish(), afterwards);
        EXPECT_EQ(shop.jobs.size(), jobs + 1);
        screen.preview_Click();
        EXPECT_EQ(wish(), afterwards);
    }
    EXPECT_EQ(previews, 6);
}

TEST_F(Rov01, ANumberThatIsNoReportsLeavesTheScreenEmpty) {
    rov_01& screen = open(7);
    EXPECT_EQ(screen.panels(), Panels());
    for (const int element : {1, 2})
        screen.botan_Click(element);
    EXPECT_EQ(screen.report.midasi[0], QString());
    EXPECT_TRUE(shop.jobs.empty());
    EXPECT_TRUE(host.shown.empty());
    screen.botan_Click(0);
    EXPECT_TRUE(screen.close_wanted);
}

TEST_F(Rov01, TheYearsAroundThisOneAreOfferedAsTheyAreShownAndWithoutAnEraInForceAsWesternOnes) {
    const QString western = u"2001 2002 2003 2004 2005 2006 2007"_s;
    EXPECT_EQ(open(4).yyyymm[0].items.join(u' '), western);
    EXPECT_EQ(form->yyyymm[1].items.size(), 12);
    EXPECT_EQ(form->report.conditions.yyyymm, (std::array{u"2004"_s, u"10"_s}));
    EXPECT_EQ(form->report.hyou(31, 0), u"31"_s);
    show_eras();
    EXPECT_EQ(open(4).yyyymm[0].items.join(u' '), u"13 14 15 16 17 18 19"_s);
    EXPECT_EQ(open(5).report.conditions.ymd[0], u"16/10/1"_s);
    tree.settings.era_end[0] = 20041004;
    EXPECT_EQ(open(4).yyyymm[0].items.join(u' '), western);
    EXPECT_EQ(form->report.hyou(31, 0), u"31"_s) << "the days of October";
    leave_date(0, u"20040923"_s);
    EXPECT_EQ(form->report.conditions.ymd[0], u"20040923"_s);
}

TEST_F(Rov01, AnEmployeeNumberBringsItsNameAndAnotherOneTakesItAwayAndF1FindsOne) {
    open(1);
    type_employee(0, u"10"_s);
    EXPECT_EQ(employee(0), u"10 2 田中"_s);
    form->tancd_Change(0, u"1"_s);
    EXPECT_EQ(employee(0), u"1  "_s) << "a number of before is never used";
    form->tancd_LostFocus(0);
    EXPECT_EQ(employee(0), u"  "_s) << "nobody has this number";
    EXPECT_EQ(form->notice->text, u"社員番号 1 は登録されていません"_s);
    EXPECT_EQ(form->notice->place, (Wish{ReportControl::tancd, 0}));
    form->botan_Click(1);
    EXPECT_TRUE(form->notice) << "the whole company was extracted: it is still told why";
    form->tancd_KeyDown(1, key::down);
    EXPECT_FALSE(form->notice);
    form->tancd_GotFocus(1);
    EXPECT_FALSE(form->ntancd_enabled[1]);
    form->tancd_LostFocus(1);
    EXPECT_TRUE(form->ntancd_enabled[1]);
    form->ntancd_GotFocus(1);
    EXPECT_EQ(wish(), (Wish{ReportControl::tancd, 1}));

    EXPECT_TRUE(form->tancd_KeyDown(1, key::f1));
    EXPECT_EQ(searched, std::pair(3, 1));
    form->search_ended(1, u"100"_s);
    EXPECT_EQ(employee(1), u"100 4 木村"_s);
    form->search_ended(1, std::nullopt);
    EXPECT_EQ(employee(1), u"100 4 木村"_s) << "closed without a choice";
    form->search_ended(1, QString());
    EXPECT_EQ(employee(1), u"  "_s) << "the whole company";
}

TEST_F(Rov01, KeysMoveFromBoxToBox) {
    open(5);
    const auto moves = [this](bool moved, std::optional<Wish> to) {
        EXPECT_EQ(moved, to.has_value());
        EXPECT_EQ(wish(), to);
    };
    wish();
    moves(form->ymd_KeyDown(0, key::enter, false), Wish{ReportControl::ymd, 1});
    moves(form->ymd_KeyDown(1, key::enter, false), Wish{ReportControl::tancd, 0});
    moves(form->ymd_KeyDown(1, key::left, true), Wish{ReportControl::ymd, 0});
    moves(form->ymd_KeyDown(1, key::left, false), {});
    moves(form->ymd_KeyDown(0, key::left, true), {});
    moves(form->tancd_KeyDown(0, key::enter), Wish{ReportControl::tancd, 1});
    moves(form->tancd_KeyDown(1, key::enter), Wish{ReportControl::toubotan, 0});
    moves(form->tancd_KeyDown(1, key::left), Wish{ReportControl::tancd, 0});
    moves(form->tancd_KeyDown(0, key::left), Wish{ReportControl::ymd, 1});
    moves(form->yyyymm_KeyDown(0, key::enter), Wish{ReportControl::yyyymm, 1});
    moves(form->yyyymm_KeyDown(1, key::enter), Wish{ReportControl::tancd, 0});
    for (const char c : {'0', '9', '\b'})
        EXPECT_TRUE(rov_01::ymd_KeyPress(c) && rov_01::yyyymm_KeyPress(c));
    EXPECT_TRUE(rov_01::yyyymm_KeyPress('-'));
    EXPECT_FALSE(rov_01::ymd_KeyPress('-') || rov_01::ymd_KeyPress('/') || rov_01::yyyymm_KeyPress('a'));
}

TEST_F(Rov01, ADateIsTypedInDigitsAndShownAsADate) {
    const Conditions& c = open(5).report.conditions;
    form->ymd_GotFocus(0);
    EXPECT_EQ(c.ymd[0], u"20041001"_s);
    for (const auto& [typed, shown] : {std::pair(u"20040923"_s, u"2004/9/23"_s), {u"1103"_s, u"2004/11/3"_s},
             {u"1399"_s, u"2004/11/3"_s}, {QString(), u"2004/11/3"_s}}) {
        leave_date(0, typed);
        EXPECT_EQ(c.ymd[0], shown) << typed.toStdString();
    }
    leave_date(1, u"1332"_s);
    EXPECT_EQ(form->notice->text, u"1332 は日付になりません（10月3日は 1003）"_s);
    EXPECT_EQ(c.ymd[1], u"2004/10/31"_s) << "a slip puts back what the box held, not what another one took";
    open(5);
    leave_date(1, QString());
    EXPECT_EQ(form->report.conditions.ymd[1], u"2004/11/3"_s) << "the last date counts on the next screen too";
    show_eras();
    open(5).ymd_GotFocus(1);
    EXPECT_EQ(form->report.conditions.ymd[1], u"161031"_s);
}

TEST_F(Rov01, AnotherMonthChosenOrTypedShowsItsDays) {
    work_in_october(1);
    const Sheet& days = open(4).report.hyou;
    for (const int element : {0, 1})
        type_employee(element, u"9"_s);
    form->botan_Click(1);
    leave_month(0, u"2004"_s);
    EXPECT_EQ(days(1, 2), u"8:30"_s) << "a month left as it was keeps what was extracted";
    form->yyyymm_Click(1, 8);
    EXPECT_EQ(days(30, 0) + u'|' + days(31, 0), u"30|"_s);
    form->yyyymm_GotFocus(1);
    form->yyyymm_Change(1, u"8"_s);
    leave_month(1, u"8"_s); // a message in between gave the box the keyboard once more
    EXPECT_EQ(days(31, 0), u"31"_s);
    wish();
    leave_month(1, u"13"_s);
    EXPECT_EQ(wish(), (Wish{ReportControl::yyyymm, 1}));
    EXPECT_EQ(days(31, 0), u"31"_s) << "the old sheet stays";
    form->report.hyou(1, 2) = u"8:30"_s;
    form->botan_Click(1);
    EXPECT_EQ(wish(), (Wish{ReportControl::yyyymm, 1}));
    EXPECT_EQ(days(1, 2), u"8:30"_s) << "and nothing is extracted";
    leave_month(1, u"8"_s);
    leave_month(0, u"0"_s);
    EXPECT_EQ(wish(), (Wish{ReportControl::yyyymm, 0}));
}

TEST_F(Rov01, TheHeadingPictureShowsTheHeadingsOnTheEleventhClick) {
    EXPECT_EQ(open(3).Image1, QString());
    const QString picture = frame::picture_folder(tree.settings) + u"mida_chou_003.bmp"_s;
    QDir().mkpath(QFileInfo(picture).path());
    QFile(picture).open(QIODevice::WriteOnly);
    EXPECT_EQ(open(4).Image1, QString());
    EXPECT_EQ(open(3).Image1, picture);
    for (int click = 1; click <= 11; ++click) {
        form->Image1_Click();
        EXPECT_EQ(form->pic_msg, click == 11) << click;
    }
    EXPECT_FALSE(open(3).pic_msg);
}

TEST_F(Rov01, TheKeyboardExtractsByEnterAndTheSheetIsWrittenAsAFile) {
    open(2);
    form->botabox_GotFocus();
    EXPECT_TRUE(form->extract_lit);
    EXPECT_FALSE(form->botabox_KeyDown(key::left));
    EXPECT_TRUE(form->botabox_KeyDown(key::enter));
    EXPECT_EQ(form->report.hyou(1, 1), u"普通"_s);
    form->botabox_LostFocus();
    EXPECT_FALSE(form->extract_lit);
    host.paths = {tree.folder.filePath(u"list.csv"_s)};
    form->csvex_Click();
    EXPECT_EQ(form->jyoulab, u"出力終了"_s);
    EXPECT_TRUE(QFile::exists(tree.folder.filePath(u"list.csv"_s)));
    form->botan_Click(2);
    EXPECT_EQ(form->jyoulab, QString());
}

TEST_F(Rov01, CancellingContinuousPrintingStopsItAndTakesNoOtherInput) {
    work_in_october(2);
    open(4);
    form->print_zero_Click(true);
    form->print_flg_Click(true);
    frame.work.take_input = [this] {
        EXPECT_TRUE(frame.work.running() && form->busy);
        EXPECT_EQ(frame.work.what(), u"集計中"_s);
        form->botan_Click(2); // held back while the work runs
        form->botan_Click(0);
        frame.work.cancel();
    };
    form->botan_Click(1);
    EXPECT_TRUE(shop.jobs.empty());
    EXPECT_EQ(form->msg_tai, u"中止しました"_s);
    EXPECT_FALSE(frame.work.running() || form->busy || form->close_wanted);

    frame.work.take_input = {};
    form->botan_Click(1);
    EXPECT_EQ(shop.jobs.size(), 3U);
    EXPECT_EQ(form->msg_tai, QString());
    EXPECT_TRUE(host.shown.empty());

    shop.printers.clear();
    form->botan_Click(1);
    EXPECT_EQ(host.shown.size(), 1U) << "a printer that is gone is told once";
    EXPECT_EQ(form->msg_tai, u"中止しました"_s);
}

TEST_F(Rov01, PrintingNothingSaysSo) {
    const QString nothing = u"印刷するページがありません。"_s;
    open(1).botan_Click(2);
    EXPECT_EQ(form->msg_tai, QString()) << "the form's empty row is printed";
    exec("delete from syain");
    form->botan_Click(1);
    form->botan_Click(2);
    EXPECT_EQ(form->msg_tai, nothing);

    exec("insert into syain (システム番号, 社員番号, 社員名) values (1, 9, '山田')");
    open(4).botan_Click(1);
    EXPECT_EQ(form->msg_tai, QString()) << "nothing was to be printed";
    form->print_flg_Click(true);
    form->botan_Click(1);
    EXPECT_EQ(form->msg_tai, nothing) << "nobody has worked in October";
    form->print_zero_Click(true);
    form->botan_Click(1);
    EXPECT_EQ(form->msg_tai, QString());
}

} // namespace reports
