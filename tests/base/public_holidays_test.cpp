#include "base/literals.h"
#include "base/public_holidays.h"

#include <QFile>
#include <gtest/gtest.h>

using namespace base;

namespace {

/// The published list has no names for the days that follow from others, and for those of 2019.
QString published_name(const QString& name) {
    if (name == u"振替休日" || name == u"国民の休日")
        return u"休日"_s;
    return name.startsWith(u"天皇の即位") || name.startsWith(u"即位礼") ? u"休日（祝日扱い）"_s : name;
}

} // namespace

TEST(PublicHolidays, OfTheYears2000To2030AreThoseThatTheCabinetOfficePublished) {
    QFile published(QStringLiteral(ROVENA_HOLIDAYS));
    ASSERT_TRUE(published.open(QIODevice::ReadOnly));
    QString reckoned;
    for (QDate day(1999, 1, 1); day.year() <= 2030; day = day.addDays(1))
        if (const QString name = public_holiday(day); !name.isEmpty())
            reckoned += day.toString(u"yyyy/M/d,"_s) + published_name(name) + u'\n';
    EXPECT_EQ(reckoned.split(u'\n'), QString::fromUtf8(published.readAll()).split(u'\n'));
}

TEST(PublicHolidays, TheCompanysOwnDaysStandBesideThem) {
    const OwnHolidays own{{101, u"年末年始"_s}, {102, u"年末年始"_s}, {20261230, u"棚卸"_s}, {1230, u"年末年始"_s}};
    EXPECT_EQ(holiday_name({2027, 1, 1}, own), u"元日・年末年始"_s);
    EXPECT_EQ(holiday_name({2031, 1, 2}, own), u"年末年始"_s);
    EXPECT_EQ(holiday_name({2026, 12, 30}, own), u"年末年始・棚卸"_s);
    EXPECT_EQ(holiday_name({2027, 12, 31}, own), QString());
    EXPECT_EQ(public_holiday({2099, 9, 22}), u"国民の休日"_s) << "between a Monday and the equinox";
    EXPECT_EQ(public_holiday({2100, 1, 1}), QString()) << "beyond what is reckoned";
}
