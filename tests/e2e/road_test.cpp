// Every road, walked without pictures over a company of its own.

#include "e2e/road/files.h"
#include "e2e/road/walker.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace base;

namespace {

struct Road : testing::Test {
    void walk(const QString& road, const QStringList& company) {
        const QString artwork = qEnvironmentVariable("ROVENA_BIN") + u"/../artwork"_s;
        e2e::install(QStringList{drive.filePath(u"main"_s), u"--assets"_s, artwork} + company);
        e2e::Pictures none(e2e::Taken::No, QDir(drive.path()));
        EXPECT_NO_THROW(e2e::Walker(e2e::desk(), none, drive.filePath(u"main"_s)).walk(road));
    }
    void walk_sample(const QString& road) { walk(road, {u"--sample"_s, u"12"_s, u"3"_s, u"--until"_s, u"202609"_s}); }
    const QTemporaryDir drive;
};

} // namespace

TEST_F(Road, ANewCompanyIsSetUpTypedAMonthPrintedAndRestoredFromItsBackup) {
    walk(u"new-company"_s, {});
}

TEST_F(Road, ACompanyTypesAMonthThatIsReadBackAndPrintsEveryReport) {
    walk_sample(u"company"_s);
}

TEST_F(Road, ACorrectedDayReplacesTheSavedOneAndTheOthersStand) {
    walk_sample(u"corrected-day"_s);
}

TEST_F(Road, SavingTwiceCountsOnce) {
    walk_sample(u"saved-twice"_s);
}

TEST_F(Road, ATopButtonLeavesWithoutSavingAndWhatWasTypedIsThereOnComingBack) {
    walk_sample(u"top-button"_s);
}

TEST_F(Road, WhatStandsInTheCellInHandIsThereAfterAButtonAndAfterAnEnd) {
    walk_sample(u"left-in-the-middle"_s);
}

TEST_F(Road, TheOrderOfTheListAndTheBreakHandlingAreKeptForTheNextTime) {
    walk_sample(u"as-left"_s);
}

TEST_F(Road, AnEmployeeIsSearchedByClickAndByKeyOrTheSearchIsLeft) {
    walk_sample(u"search"_s);
}

TEST_F(Road, ASaveThatFailsKeepsTheSheetAndCanBeTriedAgain) {
    walk_sample(u"failed-save"_s);
}
