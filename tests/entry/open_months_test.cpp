#include "entry/company.h"
#include "entry/open_months.h"

using namespace entry;
using namespace base;

TEST(OpenMonths, AreSaidToWhoeverHasTheSameOneOpenUntilTheyAreLeft) {
    const Company company;
    const EmployeeKey yamada(1), tanaka(2);
    const CompanyMonth october = CompanyMonth::of(QDate(2004, 10, 4), 1),
                       november = CompanyMonth::of(QDate(2004, 11, 4), 1);
    OpenMonths here(company.tree.settings, u"経理1"_s), there(company.tree.settings, u"経理2"_s);
    here.open(yamada, october);
    EXPECT_EQ(here.words(), QString()) << "its own word";
    there.open(yamada, october);
    EXPECT_EQ(here.words(), u"この月は 経理2 でも開かれています"_s);
    there.open(tanaka, october);
    EXPECT_EQ(here.words(), QString());
    there.open(yamada, november);
    EXPECT_EQ(here.words(), QString());
    there.open(yamada, october);
    there.close();
    EXPECT_EQ(here.words() + there.words(), QString());
}
