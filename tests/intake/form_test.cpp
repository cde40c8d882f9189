// The form of the import, and what becomes of accepted days that can't go into the tables.

#include "common/closed_months.h"
#include "entry/company.h"
#include "entry/draft_store.h"
#include "intake/ent_torikomi.h"
#include "store/files.h"
#include "support/stored.h"

using namespace intake;
using namespace base;

namespace {

class Import : public testing::Test {
protected:
    Import() {
        company.host.clock = QDateTime(QDate(2026, 11, 26), QTime(9, 0));
        form.Form_Load();
    }

    /// Opens a file that holds the text.
    void open(const QByteArray& text) {
        support::put_bytes(path, text);
        company.host.paths = {path};
        form.open_file();
    }

    /// Opens a file of one day of 山田, and accepts it.
    QString accepted(const QByteArray& day = "2", Into into = Into::Tables) {
        open("社員番号,日付,出社,退社\n20,2026/11/" + day + ",8:30,17:30\n");
        form.accept(into);
        const QString reason = form.taken.days.isEmpty() ? QString() : form.taken.days.first().reason;
        return form.msglab + reason;
    }

    entry::Company company;
    const QString path = company.tree.folder.filePath(u"recorder.csv"_s);
    frame::WorkLine work{company.host};
    ent_torikomi form{company.session, work};
};

} // namespace

TEST_F(Import, TheColumnsAreAssignedOnceAndServeTheNextFile) {
    form.open_file();
    form.read_again();
    EXPECT_EQ(form.path + form.msglab, u""_s) << "no file was chosen";
    open("20,830,1730,2026/11/2\n3,900,1800,2026/11/2\n");
    EXPECT_EQ(form.msglab, u"社員番号の列を決めてください"_s);
    EXPECT_FALSE(form.can_accept());
    form.assign(1, Role::Employee);
    form.assign(4, Role::Date);
    form.assign(2, Role::Out);
    form.assign(2, Role::In);
    form.assign(3, Role::Out);
    EXPECT_EQ(form.msglab, u"新しい 2行、同じ 0行、違う 0行、読めない 0行。"_s);
    EXPECT_EQ(form.chosen, (QSet<int>{0, 1}));
    form.assign(4, std::nullopt);
    EXPECT_EQ(form.role_of(4), std::nullopt);
    EXPECT_EQ(form.preview.lines[0].reason, u"日付がありません"_s);
    form.assign(4, Role::Date);
    form.set_heading_lines(1);
    EXPECT_EQ(form.preview.lines.size(), 1);
    form.set_words(u"着"_s, u"帰"_s);

    EXPECT_TRUE(form.profile_changed());
    form.keep_profile(u"  "_s);
    EXPECT_TRUE(form.profile_changed() && form.names.isEmpty()) << "without a name nothing is kept";
    for (int time = 1; time <= 2; ++time)
        form.keep_profile(u" 表 "_s);
    EXPECT_FALSE(form.profile_changed());
    ent_torikomi again(company.session, work);
    again.Form_Load();
    EXPECT_EQ(again.names, QStringList(u"表"_s));
    EXPECT_TRUE(again.profile == form.profile) << "the one that was used last";
    form.choose_profile(u"none"_s);
    EXPECT_EQ(form.preview.refused, u"社員番号の列を決めてください"_s);
    form.choose_profile(u"表"_s);
    EXPECT_EQ(form.chosen, QSet<int>{0});
}

TEST_F(Import, DifferentDaysAreTakenWhenThePersonChoosesThemAndNothingTwice) {
    company.exec("insert into rovmei values (1, 20261102, 830, 1700, 100, 730, ''),"
                 " (1, 20261103, 830, 1700, 100, 730, '')");
    open("社員番号,日付,出社,退社\n20,2026/11/2,8:30,17:30\n20,2026/11/3,8:30,17:30\n20,2026/11/4,8:30,17:30\n"
         "20,2026/11/5,8:30,8:30\n");
    EXPECT_EQ(form.chosen, QSet<int>{2});
    form.choose_different(true);
    form.choose(0, false);
    form.choose(3, true);
    EXPECT_EQ(form.chosen, (QSet<int>{1, 2})) << "what isn't understood can't be chosen";
    EXPECT_FALSE(form.may_choose(-1));
    company.host.on_yield = [this] {
        if (form.busy)
            form.botan_Click(0), form.botan_Click(1), form.read_again();
    };
    form.botan_Click(1);
    EXPECT_EQ(form.msglab, u"2日を登録しました。"_s);
    EXPECT_FALSE(form.close_wanted || form.can_accept() || form.may_choose(0));
    const QStringList posted = company.posted();
    form.botan_Click(1);
    EXPECT_EQ(company.posted(), posted);
    form.botan_Click(0);
    EXPECT_TRUE(form.close_wanted);
}

TEST_F(Import, AFileThatCantBeReadIsTold) {
    company.host.paths = {company.tree.folder.filePath(u"none.csv"_s)};
    form.open_file();
    ASSERT_EQ(company.host.shown.size(), 1U);
    EXPECT_TRUE(company.host.shown[0].text.startsWith(u"ファイルを開けません。"_s));
    EXPECT_EQ(form.msglab, u"ファイルに行がありません"_s);
}

TEST_F(Import, DaysThatCantGoIntoTheTablesAreLeftOutOrDraftedAndSaidWhy) {
    EXPECT_EQ(accepted("2", Into::Draft), u"1日を下書きに入れました。"_s);
    EXPECT_EQ(accepted("3"), u"1日を下書きに入れました。この月の下書きがあるため、下書きに入れました"_s);
    EXPECT_EQ(entry::drafts_waiting(company.tree.settings).months, 1);

    company.exec("insert into rovmei values (1, 20261103, 900, 1700, 0, 800, '')");
    EXPECT_EQ(accepted("3"), u"新しい 0行、同じ 0行、違う 0行、読めない 1行。"_s);
    EXPECT_EQ(form.preview.lines[0].reason, u"下書きの後に別のＰＣで登録されています。出勤入力で選んでください"_s);

    EXPECT_TRUE(common::close_month(company.tree.settings, 202611, {company.host.clock, u"受付"_s}, {}));
    EXPECT_EQ(accepted("4"), u"1日は取り込みませんでした。2026年11月は締められています（2026/11/26 09:00 受付）"_s);
    EXPECT_EQ(company.posted(), QStringList());
}

TEST_F(Import, ADayThatAnotherPcSavesWhileTheTurnIsWaitedForIsLeftOut) {
    EXPECT_EQ(accepted("2"), u"1日を登録しました。"_s);
    company.apply();
    const std::pair<std::string_view, QString> cases[] = {
        {"insert into rovmei select 1, 20261103, 出社時間, 退社時間, 休憩時間, 勤務時間, 備考 from rovmei"
         " where 出社日 = 20261102; delete from kyumei where 年月日 = 20261103;"
         " insert into kyumei select 1, 20261103, システム番号, 休暇名, 休出 from kyumei where 年月日 = 20261102",
            u"同じ内容がすでに登録されています"_s},
        {"insert into rovmei values (1, 20261104, 930, 1730, 0, 800, '')",
            u"確認した後に、その日の内容が変わりました"_s},
    };
    for (int day = 3; const auto& [saved, reason] : cases) {
        company.host.running.insert(store::manager_program.toString());
        company.host.on_yield = [&, begun = company.host.steady] {
            if (company.host.steady > begun && company.host.running.erase(store::manager_program.toString()) > 0)
                company.exec(saved);
        };
        EXPECT_EQ(accepted(QByteArray::number(day++)), u"1日は取り込みませんでした。"_s + reason);
        EXPECT_EQ(company.posted(), QStringList());
    }
}

TEST_F(Import, DaysOfAnEmployeeWhoseSaveIsOnItsWayWait) {
    const QString waits = u"登録した内容の反映を待っています"_s;
    open("社員番号,日付,出社,退社\n20,2026/11/2,8:30,17:30\n3,2026/11/2,9:00,18:00\n");
    company.exchange().exec(R"(insert into jyusin ("2","3","4","5") values ('54','20261002','1','2'))");
    form.accept(Into::Tables);
    EXPECT_EQ(form.msglab, u"1日を登録しました。1日は取り込みませんでした。"_s);
    EXPECT_EQ(form.taken.days.value(0).reason, waits);
    form.read_again();
    EXPECT_EQ(form.preview.lines[0].reason, waits);
    company.host.on_yield = [this] { company.exchange().exec("delete from jyusin"); };
    form.read_again();
    EXPECT_EQ(form.preview.lines[0].state, State::New);
}
