#include "base/literals.h"
#include "base/numbers.h"
#include "e2e/desk.h"
#include "e2e/road/clerk.h"
#include "e2e/road/tables.h"
#include "store/files.h"
#include "support/person.h"
#include "ui/program.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace {

using namespace base;

const QString leave = u"有休"_s;
const QString sunday_work = u"日曜出勤"_s;
const QDate day_of_saving(2026, 10, 5);
constexpr int sample_month = 9; ///< the last one with attendance
constexpr int empty_month = 10;

/// One company for all tests; each works on an employee of its own.
class Road : public testing::Test {
protected:
    static void SetUpTestSuite() {
        drive = std::make_unique<QTemporaryDir>();
        const QString bin = qEnvironmentVariable("ROVENA_BIN", QCoreApplication::applicationDirPath());
        QProcess install;
        install.start(bin + u"/rovena-install"_s, {drive->path(), u"--assets"_s, bin + u"/../artwork"_s, u"--sample"_s,
                                                      u"8"_s, u"1"_s, u"--until"_s, u"202609"_s});
        ASSERT_TRUE(install.waitForFinished(-1));
        ASSERT_EQ(install.exitCode(), 0) << install.readAllStandardError().toStdString();
    }
    static void TearDownTestSuite() { drive.reset(); }

    void SetUp() override {
        host.shown.clear();
        host.started.clear();
        host.clock = QDateTime(day_of_saving, QTime(9, 0));
        ASSERT_EQ(program.start(), 0);
        program.window().resize(1366, 768);
        clerk.emplace(program.window());
        QApplication::setActiveWindow(&program.window());
    }
    void open(int month, int employee_row) {
        clerk->press_button(u"出勤入力"_s);
        clerk->choose_month(day_of_saving.year(), month);
        clerk->choose_employee(employee_row);
    }
    const entry::MonthSheet& sheet() { return clerk->entry().form().sheet; }
    const base::Settings& settings() { return program.session().settings; }
    qint64 employee() { return Val(clerk->entry().form().syainsyscd); }
    void type_first_day(const QString& in, const QString& out) {
        support::click_cell(*clerk->entry().controls().hyou, 1, entry::col::clock_in);
        support::type(in + u" Enter "_s + out + u" Enter"_s);
    }

    inline static std::unique_ptr<QTemporaryDir> drive;
    e2e::Desk& host = e2e::desk();
    ui::Program program{host, drive->path()};
    std::optional<e2e::Clerk> clerk;
};

} // namespace

TEST_F(Road, AMonthThatWasTypedStandsInTheTablesAndIsReadBack) {
    open(empty_month, 1);
    const QList<e2e::TypedDay> days = e2e::plan_month(sheet().hyou, leave, sunday_work);
    clerk->type_days(days);
    clerk->type_remarks(days);
    clerk->choose_kinds(days);
    clerk->type_count(entry::strip::first_kind, u"3"_s);
    const entry::MonthSheet saved = sheet();
    clerk->press_button(u"登録"_s);
    EXPECT_EQ(e2e::rows_waiting(settings()), 0);
    EXPECT_EQ(e2e::missing_in_tables(settings(), employee(), saved.month, days), QStringList());

    open(empty_month, 1);
    EXPECT_EQ(e2e::missing_on_sheet(sheet().hyou, days), QStringList());
    EXPECT_EQ(e2e::differences(u"hyou"_s, saved.hyou, sheet().hyou, entry::row::total + 1), QStringList());
    EXPECT_EQ(e2e::differences(u"hyou_day"_s, saved.hyou_day, sheet().hyou_day, 3), QStringList());
    EXPECT_TRUE(host.shown.empty());
}

TEST_F(Road, ACorrectedDayReplacesTheSavedOneAndTheOthersStand) {
    open(sample_month, 2);
    const base::Sheet before = sheet().hyou;
    type_first_day(u"700"_s, u"1200"_s);
    clerk->press_button(u"登録"_s);

    open(sample_month, 2);
    const QStringList changed = e2e::differences(u"hyou"_s, before, sheet().hyou, entry::row::last_day + 1);
    EXPECT_EQ(changed.filter(u"row 1,"_s), changed);
    EXPECT_EQ(sheet().hyou(1, entry::col::clock_in) + sheet().hyou(1, entry::col::clock_out), u"7:0012:00"_s);
}

TEST_F(Road, SavingTwiceCountsOnce) {
    open(empty_month, 3);
    type_first_day(u"830"_s, u"1715"_s);
    QStringList stored;
    for (int save = 0; save < 2; ++save) {
        clerk->press_button(u"登録"_s);
        stored << e2e::dump_tables(settings(), employee(), sheet().month);
    }
    EXPECT_EQ(host.started.size(), 2);
    EXPECT_EQ(stored[0], stored[1]);
}

TEST_F(Road, ATopButtonLeavesWithoutSavingAndWhatWasTypedIsThereOnComingBack) {
    open(empty_month, 4);
    type_first_day(u"830"_s, u"1715"_s);
    clerk->press_button(u"集計表"_s);
    open(empty_month, 4);
    EXPECT_EQ(sheet().hyou(1, entry::col::clock_in), u"8:30"_s);
    EXPECT_TRUE(host.started.isEmpty() && host.shown.empty());
}

TEST_F(Road, ASaveThatFailsKeepsTheSheetAndCanBeTriedAgain) {
    open(empty_month, 5);
    type_first_day(u"830"_s, u"1715"_s);
    const QString exchange = store::exchange_path(settings(), 1);
    ASSERT_TRUE(QFile::rename(exchange, exchange + u".away"_s));
    clerk->press_button(u"登録"_s);
    EXPECT_EQ(sheet().hyou(1, entry::col::clock_out), u"17:15"_s);
    ASSERT_EQ(host.shown.size(), 1u);
    EXPECT_TRUE(host.shown[0].text.contains(u"hanjyusin01.mdb"_s)) << host.shown[0].text.toStdString();

    ASSERT_TRUE(QFile::rename(exchange + u".away"_s, exchange));
    clerk->press_button(u"登録"_s);
    open(empty_month, 5);
    EXPECT_EQ(sheet().hyou(1, entry::col::clock_out), u"17:15"_s);
}
