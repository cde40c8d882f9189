#include "entry/company.h"
#include "entry/waiting_days.h"
#include "frame/exchange_files.h"
#include "frame/kept_files.h"
#include "store/server_place.h"
#include "support/stored.h"

#include <gtest/gtest.h>

using namespace entry;
using namespace std::chrono_literals;
using platform::Answer;

namespace {

/// One row of every kind, as a save of employee 1 posts it.
const std::pair<const char*, std::string_view> rows_of_yamada[] = {
    {"51", R"(insert into jyusin ("2","3","4","7","10") values ('51','0','2','1','20041005'))"},
    {"52", R"(insert into jyusin ("2","3","4","5") values ('52','20041005','1','2'))"},
    {"53", R"(insert into jyusin ("2","3","4","5") values ('53','200410','1','2'))"},
    {"54", R"(insert into jyusin ("2","3","4","5") values ('54','20041005','1','2'))"},
};

class WaitingDays : public testing::Test {
protected:
    WaitingDays() {
        form.Form_Load();
        form.msglab_changed = [this] { reported << form.msglab; };
        company.host.on_yield = [this] {
            EXPECT_TRUE(form.waiting);
            company.host.clock = company.host.clock.addMSecs(-50); // no wait grows longer for that
            if (company.host.steady >= applied_at)
                apply();
        };
    }

    void choose(int row) { form.hyou_syain_Click(row); }

    void post(std::string_view row) const { company.exchange().exec(row); }

    /// The manager's work, as far as the screen can tell.
    void apply() const {
        company.exec("delete from rovmei; insert into rovmei values (1, 20041005, 815, 1730, 0, 915, '')");
        company.exchange().exec("delete from jyusin");
        QDir(frame::kept_folder(company.tree.settings)).removeRecursively();
    }
    qint64 waited() const { return (company.host.steady - opened) / 1ms; }

    Company company;
    ent_rovena form{company.session};
    QStringList reported;
    std::chrono::steady_clock::time_point opened = company.host.steady;
    std::chrono::steady_clock::time_point applied_at = opened + 2s;
};

} // namespace

TEST_F(WaitingDays, AnEmployeeWhoseSaveIsStillPostedIsOpenedWhenItIsInTheTables) {
    for (const auto& [kind, row] : rows_of_yamada) {
        applied_at = (opened = company.host.steady) + 2s;
        reported.clear();
        post(row);
        choose(1);
        EXPECT_EQ(form.sheet.hyou(5, 2), u"8:15"_s) << kind;
        EXPECT_EQ(reported, QStringList({u"登録完了を待っています"_s, u"データー抽出中"_s, u"抽出終了"_s}));
        EXPECT_EQ(waited(), 2000) << kind;
    }
    post(rows_of_yamada[0].second);
    applied_at = company.host.steady + 2s;
    form.ym_Click(0, 1);
    EXPECT_EQ(form.sheet.hyou(5, 2), u"8:15"_s) << "another month comes the same way";
    EXPECT_TRUE(company.host.shown.empty());
}

TEST_F(WaitingDays, RowsOfAFileThatWasRemadeCountToo) {
    post(rows_of_yamada[0].second);
    frame::交換ファイル作成(company.tree.settings, company.host.clock, [](const QString&) {});
    choose(1);
    EXPECT_EQ(form.sheet.hyou(5, 2), u"8:15"_s);
    EXPECT_EQ(waited(), 2000);
}

TEST_F(WaitingDays, OfSeveralThoseWithRowsWaitAndAllWhileAFileCantBeLookedInto) {
    const base::Settings& settings = company.tree.settings;
    const QSet<qint64> all{1, 2, 3};
    EXPECT_EQ(those_waiting(settings, all), QSet<qint64>());
    post(rows_of_yamada[0].second);
    frame::交換ファイル作成(settings, company.host.clock, [](const QString&) {});
    post(R"(insert into jyusin ("2","3","4","5") values ('54','20041005','2','1'))");
    EXPECT_EQ(those_waiting(settings, all), (QSet<qint64>{1, 2})) << "in a kept file and in the one in use";
    auto other = store::Database::open(frame::kept_files(settings).first(), store::Kind::Exchange);
    const store::Transaction writing(other, store::Transaction::Lock::Exclusive);
    EXPECT_EQ(those_waiting(settings, all), all);
}

TEST_F(WaitingDays, NothingElseDelays) {
    const auto opens_at_once = [this](const char* why) {
        choose(2);
        EXPECT_EQ(waited(), 0) << why;
        EXPECT_EQ(form.msglab, u"抽出終了"_s) << why;
    };
    for (const auto& [kind, row] : rows_of_yamada)
        post(row);
    post(R"(insert into jyusin ("2","3","4","7","10") values ('51','0','2','11','20041002'))");
    opens_at_once("rows of others, with the employee's number in other fields");
    company.host.running.insert(u"jyusinkanri"_s);
    opens_at_once("a manager at work for others");
    const QString kept = frame::kept_folder(company.tree.settings);
    QDir().mkpath(kept);
    QFile::rename(store::exchange_path(company.tree.settings, 1), kept + u"/hanjyusin01.mdb.kowareta"_s);
    opens_at_once("no exchange file, and one put aside for a person to look at");
    support::put_bytes(store::exchange_path(company.tree.settings, 1), "torn");
    opens_at_once("a file that the manager can't read either");
    const store::ServerPlace away{"host=127.0.0.1 port=1", u"jyusin"_s};
    support::put_bytes(store::exchange_path(company.tree.settings, 1), bytes_of(away));
    EXPECT_THROW(choose(2), store::Error);
    EXPECT_EQ(waited(), 0) << "who isn't reached is told at once";
    EXPECT_TRUE(company.host.started.isEmpty());
}

TEST_F(WaitingDays, AFileHeldByAnotherProgramIsLookedAtAgain) {
    std::optional<store::Database> other = company.exchange();
    std::optional<store::Transaction> writing(std::in_place, *other, store::Transaction::Lock::Exclusive);
    company.host.on_yield = [&] { writing.reset(); };
    choose(2);
    EXPECT_EQ(waited(), 100);
    EXPECT_EQ(form.msglab, u"抽出終了"_s);
}

TEST_F(WaitingDays, After15SecondsThePersonDecides) {
    post(rows_of_yamada[0].second);
    applied_at = opened + 24h;
    company.host.answers = {Answer::No, Answer::Yes};
    choose(1);
    EXPECT_EQ(waited(), 15'000);
    EXPECT_EQ(form.syainsyscd + form.syalab + form.msglab, u""_s) << "nobody is chosen";
    choose(1);
    EXPECT_EQ(form.syalab + form.msglab, u"20:山田:太郎抽出終了"_s);
    ASSERT_EQ(company.host.shown.size(), 2u);
    EXPECT_EQ(company.host.shown[0].title, u"登録待ち"_s);
    EXPECT_EQ(company.host.shown[0].buttons, platform::Buttons::YesNo);
}

TEST_F(WaitingDays, TheMainPcStartsAManagerThatIsntRunningAndAgainIfItEndsWithRowsLeft) {
    struct Case {
        int use_class;
        bool running;
        qsizetype started;
    };
    for (const Case& c : {Case{0, false, 3}, Case{0, true, 0}, Case{1, false, 0}, Case{2, false, 0}}) {
        company.tree.settings.use_class = c.use_class;
        company.host.running = c.running ? std::set{u"jyusinkanri"_s} : std::set<QString>{};
        company.host.started.clear();
        post(rows_of_yamada[0].second);
        applied_at = company.host.steady + 12s;
        choose(1);
        EXPECT_EQ(company.host.started.size(), c.started) << c.use_class << c.running;
        EXPECT_EQ(company.host.started.filter(u"/comdata/exe/exe/jyusinkanri"_s).size(), c.started);
    }
}

TEST_F(WaitingDays, WhileAnEmployeeIsWaitedForNoOtherIsChosenAndNothingSaved) {
    post(rows_of_yamada[0].second);
    company.host.on_yield = [this] {
        form.hyou_syain_Click(2);
        form.ym_Click(1, 0);
        form.sheet.mark(3) = u"1"_s;
        form.botan_Click(1);
        EXPECT_EQ(company.posted().size(), 1);
        form.sheet.mark(3).clear();
        apply();
    };
    choose(1);
    EXPECT_EQ(form.syainsyscd + form.ym[1].text + form.sheet.hyou(5, 2), u"1108:15"_s);
}
