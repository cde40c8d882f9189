#include "base/combo_item.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"

#include <gtest/gtest.h>

using namespace base;

TEST(ComboItem, NameAndNumberStandInTheirFields) {
    const QString item = combo_item(master_item, u"残業", {3});
    EXPECT_EQ(item, u"残業"_s + QString(38 + 9, u' ') + u"3"_s);
    EXPECT_EQ(combo_name(master_item, item), u"残業"_s);
    EXPECT_EQ(combo_number(master_item, item), u"3"_s);

    const QString kind = combo_item(day_kind_item, u"公休", {12, 1});
    EXPECT_EQ(kind.size(), 30);
    EXPECT_EQ(combo_number(day_kind_item, kind, 0), u"12"_s);
    EXPECT_EQ(combo_number(day_kind_item, kind, 1), u"1"_s);
    EXPECT_EQ(combo_number(day_kind_item, QString(10, QChar(0x3000)) + u'0', 1), u""_s);
}

TEST(ComboItem, ALongNameIsCutAndItsNumberStands) {
    const QString item = combo_item(master_item, QString(255, u'長'), {7});
    EXPECT_EQ(combo_name(master_item, item), QString(40, u'長'));
    EXPECT_EQ(combo_number(master_item, item), u"7"_s);
    const QString wide = combo_item(master_item, QString(39, u'a') + u"😀"_s, {7});
    EXPECT_EQ(combo_name(master_item, wide), QString(39, u'a')) << "half a character is none";
    EXPECT_EQ(combo_number(master_item, wide), u"7"_s);
    EXPECT_EQ(combo_number(master_item, combo_item(master_item, u"x", {123456789012})), u"123456789012"_s);
}

TEST(Text, AFieldHolds255CharactersAndNoHalfOfOne) {
    EXPECT_EQ(field_text(QString(300, u'名')), QString(255, u'名'));
    EXPECT_EQ(field_text(QString(254, u'名') + u"😀"_s), QString(254, u'名'));
    EXPECT_EQ(field_text(QString(253, u'名') + u"😀"_s), QString(253, u'名') + u"😀"_s);
}

TEST(Numbers, TheLeadingNumberCountsAndNothingIsAnError) {
    const std::pair<QString, qint64> cases[] = {{u""_s, 0}, {u"k3"_s, 0}, {u" -5x"_s, -5}, {u"12 3"_s, 12},
        {u"1.9"_s, 1}, {u"８３０"_s, 0}, {u"99999999999999999999"_s, std::numeric_limits<qint64>::max()}};
    for (const auto& [text, number] : cases)
        EXPECT_EQ(Val(text), number) << text.toStdString();
}

TEST(Numbers, ThousandsAreGroupedAndZeroIsBlank) {
    EXPECT_EQ(grouped(0) + grouped(999), u"999"_s);
    EXPECT_EQ(grouped(1234567) + grouped(-123456), u"1,234,567-123,456"_s);
}

TEST(Text, FixedFieldsArePaddedOrCutAndIdeographicSpacesStay) {
    EXPECT_EQ(left_justified(u"公休", 4), u"公休  "_s);
    EXPECT_EQ(right_justified(u"12345", 3), u"123"_s);
    EXPECT_EQ(Trim(u"  \u3000名 "), u"\u3000名"_s);
    EXPECT_EQ(last_four(u"-30"), u"0-30"_s);
}
