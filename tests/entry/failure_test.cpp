#include "entry/company.h"
#include "store/error.h"

#include <gtest/gtest.h>

using namespace entry;

TEST(EntryAtRisk, ALoadThatFailsLeavesNobodyChosenSoThatNoEmptyMonthIsSavedOverAStoredOne) {
    Company company;
    ent_rovena form{company.session};
    form.Form_Load();
    form.hyou_syain_Click(1);
    ASSERT_GT(form.sheet.hyou.Cols(), col::first_category);
    const QString data = store::rovdata_path(company.tree.settings);
    ASSERT_TRUE(QFile::rename(data, data + u".away"_s));
    EXPECT_THROW(form.hyou_syain_Click(2), store::Error);
    EXPECT_EQ(form.syainsyscd + form.syalab, u""_s);
    EXPECT_EQ(form.sheet.hyou.Cols(), col::first_category);
    ASSERT_TRUE(QFile::rename(data + u".away"_s, data));
    form.hyou_Click({1, col::clock_in});
    form.botan_Click(1);
    EXPECT_EQ(company.posted(), QStringList());
}

TEST(EntryAtRisk, AKindChosenForADayStillToBeCalculatedStandsBesideItsHours) {
    Company company;
    ent_rovena form{company.session};
    form.Form_Load();
    form.hyou_syain_Click(1);
    form.hyou_Click({4, col::clock_in});
    type(form, u"830"_s);
    form.atai_KeyDown(13);
    type(form, u"1730"_s);
    form.hyou_Click({4, col::kind});
    form.kyucom_Click(1);
    const QString chosen = form.sheet.hyou(4, col::kind);
    form.hyou_Click({9, col::clock_in});
    EXPECT_EQ(form.sheet.hyou(4, col::first_category), u"9:00"_s);
    EXPECT_EQ(form.sheet.hyou(4, col::kind), chosen);
    EXPECT_EQ(chosen, u"有休"_s);
}
