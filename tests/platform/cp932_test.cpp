#include "base/literals.h"
#include "platform/cp932.h"

#include <gtest/gtest.h>

namespace platform {

using namespace base;

TEST(Cp932, WritesUsualCharactersForThoseThatItLacks) {
    const std::tuple<QString, QByteArray, Fit> cases[] = {
        {u"aｱあ漢①㈱髙﨑纊"_s, "a\xb1\x82\xa0\x8a\xbf\x87\x40\x87\x8a\xfb\xfc\xfa\xb1\xfa\x5c", Fit::Whole},
        {u"〜～−－‖∥—―‾￣"_s, "\x81\x60\x81\x60\x81\x7c\x81\x7c\x81\x61\x81\x61\x81\x5c\x81\x5c\x81\x50\x81\x50",
            Fit::Whole},
        {u"¥¢£¬"_s, "\\\x81\x91\x81\x92\x81\xca", Fit::Whole},
        {u"か\u3099ハ\u309a"_s, "\x82\xaa\x83\x70", Fit::Whole},
        {u"é€𠮷x"_s, "???x", Fit::Replaced},
    };
    for (const auto& [text, bytes, fit] : cases) {
        Cp932Text made;
        EXPECT_EQ(made.add(text), fit) << text.toStdString();
        EXPECT_EQ(made.bytes().toByteArray().toHex().toStdString(), bytes.toHex().toStdString()) << text.toStdString();
    }
}

} // namespace platform
