#include "entry/company.h"
#include "entry/saving.h"
#include "frame/kept_files.h"
#include "platform/whole_file.h"
#include "store/error.h"
#include "support/wait_until.h"

#include <QFile>
#include <gtest/gtest.h>
#include <thread>

using namespace entry;

namespace {

const PostedEmployee yamada{u"20"_s, u"山田"_s, 1};
const QString stamp = u"20041005090000"_s;

QStringList lines(const QList<ExchangeRow>& rows, const QString& kind = {}) {
    QStringList made;
    for (const ExchangeRow& row : rows)
        if (kind.isEmpty() || row[0] == kind)
            made << row.join(u' ');
    return made;
}

class Saving : public OpenForm {
protected:
    void work_on_the_fourth() { type_day(4, u"815"_s, u"1900"_s); }

    /// That nothing was posted and nobody told to apply it.
    void expect_nothing_done() {
        EXPECT_EQ(company.posted() + company.host.started, QStringList());
        EXPECT_FALSE(form->saving);
        EXPECT_EQ(form->sheet.hyou(4, col::clock_out) + form->sheet.mark(4), u"19:001"_s) << "the sheet is kept";
    }
};

} // namespace

TEST(ExchangeRows, NothingChangedIsNothingToPost) {
    MonthSheet sheet = month_sheet({11});
    sheet.mark(32) = u"1"_s;
    EXPECT_TRUE(rows_to_post(sheet, yamada, stamp).isEmpty());
}

TEST(ExchangeRows, AChangedDayIsPostedWithTheMonthsTotalInTheOrderOfTheKinds) {
    MonthSheet sheet = month_sheet({11, 12}, 3);
    lay(sheet.hyou, {2, col::clock_in}, u"21:50|1:30|0:30|3:10| 直行 |||3:40"_s);
    lay(sheet.hyou_system, {2, 0}, u"3|出勤||1"_s);
    sheet.mark(2) = u"1"_s;
    lay(sheet.hyou, {row::total, col::clock_in}, u"9:00|||103:10"_s);
    lay(sheet.hyou_day, {strip::count, 0}, u"1|30|1,234||2|0||1"_s);
    EXPECT_EQ(lines(rows_to_post(sheet, yamada, stamp)),
        QStringList({
            u"51 0 20041005090000 20041005090000 20 1 山田 0 20040302 2150 20040302 2530 30 310 直行"_s,
            u"51 0 20041005090000 20041005090000 20 1 山田 0 20040332 0 20040332 0 0 10310 "_s,
            u"52 20040302 1 11 0 8"_s,
            u"52 20040302 1 12 340 9"_s,
            u"52 20040332 1 11 0 8"_s,
            u"52 20040332 1 12 0 9"_s,
            u"53 200403 1 -1 0 1 0 0"_s,
            u"53 200403 1 -2 0 30 0 0"_s,
            u"53 200403 1 3 2 1234 0 0"_s,
            u"53 200403 1 1 1 2 0 0"_s,
            u"53 200403 1 12 0 1 0 0"_s,
            u"54 20040302 1 3 出勤 1"_s,
        }));
}

TEST(ExchangeRows, ClockOutsPassMidnightOnlyWhenBelowTheClockIn) {
    const std::tuple<QString, QString, QString> cases[] = {{u"8:30"_s, u"17:15"_s, u"1715"_s},
        {u"8:00"_s, u""_s, u"2400"_s}, {u""_s, u""_s, u"0"_s}, {u""_s, u"9:00"_s, u"900"_s},
        {u"9:00"_s, u"9:00"_s, u"900"_s}, {u"22:00"_s, u"21:59"_s, u"4559"_s}};
    for (const auto& [in, out, posted] : cases) {
        MonthSheet sheet = month_sheet({});
        lay(sheet.hyou, {1, col::clock_in}, in + u'|' + out);
        sheet.mark(1) = u"2"_s;
        EXPECT_EQ(rows_to_post(sheet, yamada, stamp)[0][11], posted) << in.toStdString() << " to " << out.toStdString();
    }
}

TEST(ExchangeRows, DaysArePostedUnderTheirDateAndJanuaryOfACrossedYearUnderItsBareDay) {
    struct Case {
        int month, start_day, row, key;
    };
    const Case cases[] = {{3, 1, 1, 20040301}, {3, 1, 31, 20040331}, {3, 21, 11, 20040331}, {3, 21, 16, 20040405},
        {12, 21, 11, 20041231}, {12, 21, 16, 8805}, {2, 31, 1, 20040301}, {3, 31, 31, 20040430}, {4, 31, 1, 20040501},
        {11, 31, 30, 20041230}, {12, 31, 31, 8830}};
    for (const Case& c : cases) {
        MonthSheet sheet = month_sheet({}, c.month, c.start_day);
        sheet.mark(c.row) = u"1"_s;
        const auto days = changed_days(sheet);
        ASSERT_EQ(days.size(), 2) << c.key;
        EXPECT_EQ(days[0].date_key, c.key);
        EXPECT_EQ(days[1].row, 32);
        EXPECT_EQ(days[1].date_key, (200400 + c.month) * 100 + 32);
    }
}

TEST(ExchangeRows, ARowPastThePeriodIsNoDayAndAWholeMonthGoesThrough) {
    MonthSheet sheet = month_sheet({}, 4);
    sheet.mark(31) = u"1"_s;
    EXPECT_TRUE(changed_days(sheet).isEmpty());
    for (int r = 1; r <= 32; ++r)
        sheet.mark(r) = u"1"_s;
    const auto rows = rows_to_post(sheet, yamada, stamp);
    EXPECT_EQ(lines(rows, u"51"_s).size(), 31);
    EXPECT_EQ(lines(rows, u"54"_s).size(), 30) << "the total has no kind, whatever was typed over it";
}

TEST(ExchangeRows, TheEmployeesNumberEndsAtTheFirstColon) {
    const PostedEmployee employee = posted_employee(u"20:山田:太郎"_s, u"7"_s);
    EXPECT_EQ(employee.number + u'|' + employee.name, u"20|山田:太郎"_s);
    EXPECT_EQ(employee.key, 7);
}

TEST_F(Saving, AMonthWithoutChangeOrEmployeeTouchesNothing) {
    QFile::remove(store::exchange_path(company.tree.settings, 1));
    form->botan_Click(1);
    form->syainsyscd.clear();
    form->sheet.mark(1) = u"1"_s;
    form->保存処理();
    EXPECT_TRUE(company.host.started.isEmpty());
}

TEST_F(Saving, TheSheetIsPostedAndTheManagerStarted) {
    work_on_the_fourth();
    form->botan_Click(1);
    const QStringList posted = company.posted();
    EXPECT_EQ(posted.first(), u"51 0 20041005090000 20041005090000 20 1 山田:太郎 0 20041001 0 20041001 0 0 0 "_s);
    EXPECT_EQ(posted[3], u"51 0 20041005090000 20041005090000 20 1 山田:太郎 0 20041004 815 20041004 1900 100 945 "_s);
    EXPECT_EQ(posted.filter(u"52 "_s).size(), 2 * 32);
    EXPECT_EQ(posted.last(), u"54 20041031 1 2 公休 "_s);
    ASSERT_EQ(company.host.started.size(), 1);
    EXPECT_TRUE(company.host.started[0].contains(u"/comdata/exe/exe/jyusinkanri"_s));
    form->botan_Click(1);
    EXPECT_EQ(company.posted().size(), 2 * posted.size()) << "the marks stay: a second save posts the same days";
}

TEST_F(Saving, AManagerStillAtWorkAfter15SecondsOrATurnThatIsNotHadStopsTheSave) {
    work_on_the_fourth();
    company.host.running.insert(u"jyusinkanri"_s);
    form->botan_Click(1);
    EXPECT_EQ(company.host.shown, std::vector({support::Shown{u"もう一度、ボタンを押してください"_s,
                                      u"プログラム使用中"_s, platform::Buttons::Ok}}));
    expect_nothing_done();
    company.host.running.clear();
    company.tree.settings.use_class = 1;
    company.tree.settings.server_name = u"127.0.0.1"_s;
    form->botan_Click(1);
    ASSERT_EQ(company.host.shown.size(), 2u);
    EXPECT_EQ(company.host.shown[1].title, u"サーバー未接続"_s);
    expect_nothing_done();
}

TEST_F(Saving, ASaveInHandTakesNoSecondPress) {
    work_on_the_fourth();
    company.host.on_yield = [this] {
        EXPECT_TRUE(form->saving);
        form->botan_Click(1);
    };
    form->botan_Click(1);
    EXPECT_FALSE(form->saving);
    EXPECT_EQ(company.posted().filter(u" 20041004 815 "_s).size(), 1);
}

TEST_F(Saving, AFailedSavePostsNothingAndKeepsTheSheet) {
    work_on_the_fourth();
    company.exchange().exec("create trigger half after insert on jyusin when new.\"2\" = '54' begin"
                            " select raise(abort, 'half way'); end");
    EXPECT_THROW(form->botan_Click(1), store::Error);
    expect_nothing_done();
}

#ifdef Q_OS_LINUX
/// How many handles this program has on the file of that name.
int handles_on(const QString& path) {
    int count = 0;
    for (const QFileInfo& handle : QDir(u"/proc/self/fd"_s).entryInfoList(QDir::Files | QDir::System))
        count += handle.symLinkTarget() == path;
    return count;
}

TEST_F(Saving, AFileThatIsReplacedBeforeTheRowsGoInIsOpenedOnceMore) {
    const QString path = store::exchange_path(company.tree.settings, 1);
    std::jthread save;
    {
        store::Database other = store::Database::open(path, store::Kind::Exchange);
        const store::Transaction in_the_way(other, store::Transaction::Lock::Exclusive);
        save = std::jthread([&] { post_rows(company.tree.settings, {{u"54"_s, u"20041001"_s}}); });
        while (handles_on(path) < 2)
            std::this_thread::yield();
        ASSERT_FALSE(platform::replace_file(
            path, store::empty_database_image(store::Kind::Exchange), platform::Durability::Cache));
    }
    save.join();
    EXPECT_EQ(company.posted(), QStringList(u"54 20041001"_s));
}
#endif

TEST_F(Saving, NobodyPostsBetweenItsLookAtWhatIsStoredAndItsRows) {
    const QString posting = store::exchange_path(company.tree.settings, posting_file);
    const QString kept = frame::new_kept_path(company.tree.settings, posting, company.host.clock);
    QDir().mkpath(frame::kept_folder(company.tree.settings));
    auto older = store::Database::create(kept, store::Kind::Exchange);
    std::optional<store::Transaction> looked_at(std::in_place, older, store::Transaction::Lock::Exclusive);
    QList<UnaskedMonth> months{{form->sheet, month_as_read(form->sheet), yamada, {}, {}}};
    months[0].sheet.mark(4) = u"1"_s;
    const auto is_held = [&] {
        auto exchange = store::Database::open(posting, store::Kind::Exchange, std::chrono::milliseconds(1));
        EXPECT_EQ(exchange.prepare("select 1 from jyusin").step(), false) << "posted before it could look";
        try {
            const store::Transaction nothing(exchange);
            return false;
        } catch (const store::Error&) {
            return true;
        }
    };
    std::jthread other([&] {
        EXPECT_TRUE(support::wait_until(is_held));
        looked_at.reset();
    });
    EXPECT_EQ(post_months(company.session, months), Saved::Posted);
}

TEST_F(Saving, ALoadThatFailsLeavesNobodyChosenSoThatNoEmptyMonthIsSavedOverAStoredOne) {
    const QString data = store::rovdata_path(company.tree.settings);
    ASSERT_TRUE(QFile::rename(data, data + u".away"_s));
    EXPECT_THROW(form->hyou_syain_Click(2), store::Error);
    EXPECT_EQ(form->syainsyscd + form->syalab, u""_s);
    EXPECT_EQ(form->sheet.hyou.Cols(), col::first_category);
    ASSERT_TRUE(QFile::rename(data + u".away"_s, data));
    form->hyou_Click({1, col::clock_in});
    form->botan_Click(1);
    EXPECT_EQ(company.posted(), QStringList());
}
