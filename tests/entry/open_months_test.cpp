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
    const auto opened_there = [&](EmployeeKey employee, const CompanyMonth& month) {
        there.open(employee, month);
        there.words(); // on a server it is said with the look
    };
    { // there each takes a connection that waits
        const auto first = company.rovdata(), second = company.rovdata();
    }
    here.open(yamada, october);
    EXPECT_EQ(here.words(), QString()) << "its own word";
    opened_there(yamada, october);
    EXPECT_EQ(here.words(), u"この月は 経理2 でも開かれています"_s);
    opened_there(tanaka, october);
    EXPECT_EQ(here.words(), QString());
    opened_there(yamada, november);
    EXPECT_EQ(here.words(), QString());
    opened_there(yamada, october);
    there.close();
    EXPECT_EQ(there.words(), QString());
    EXPECT_EQ(here.words(), QString());
}
