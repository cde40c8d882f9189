#include "frame/news.h"

#include "base/literals.h"
#include "platform/from_cp932.h"

#include <gtest/gtest.h>

using namespace base;
using frame::read_news;

namespace {

const QByteArray news = "3 http://before.example/\r\n"
                        "1 a.png\r\n2 \xe5\x87\xba\xe5\x8b\xa4\r\n02second\r\n\r\n3 http://a.example/\r\n"
                        "01\r\n2 plain\x1b[31m\r\n";

} // namespace

TEST(News, IsReadByTheNumbersBeforeEachLine) {
    const auto items = read_news(news);
    ASSERT_EQ(items.size(), 2);
    EXPECT_EQ(items[0].picture, u"a.png"_s);
    EXPECT_EQ(items[0].text, u"出勤\r\nsecond"_s);
    EXPECT_EQ(items[0].link, u"http://a.example/"_s) << "the blank line takes nothing away";
    EXPECT_EQ(items[1].picture, QString());
    EXPECT_EQ(items[1].text, u"plain[31m"_s);
    EXPECT_EQ(read_news("1\n \t\n2 x\n")[0].text, u"x"_s);
    EXPECT_TRUE(read_news("<html>\n<body>Please log in</body>\n").isEmpty());
}

TEST(News, IsInCodePage932WhereItIsNotUtf8) {
    const auto items = read_news("1 \x95\xb6.png\n2 \x8f\x6f\x8b\xce\x87\x40\xff!\n"); // ① is the code page's own
    ASSERT_EQ(items.size(), 1);
    EXPECT_EQ(items[0].picture, u"文.png"_s);
    EXPECT_EQ(items[0].text, u"出勤①\uFFFD!"_s);
    EXPECT_EQ(platform::from_cp932(QByteArray(5000, '\xb1')), QString(5000, QChar(0xff71)));
}

TEST(News, IsBounded) {
    const auto items = read_news(QByteArray("1\n").repeated(200) + "2 late\n");
    ASSERT_EQ(items.size(), frame::most_news_items);
    EXPECT_EQ(items.last().text, QString()) << "the line of an item that was left out";
    const auto wordy = read_news("1\n2 " + QByteArray(5000, 'x') + "\n" + QByteArray("2 y\n").repeated(500));
    EXPECT_EQ(wordy[0].text.section(u"\r\n"_s, 0, 0).size(), frame::most_news_characters - 2);
    EXPECT_EQ(wordy[0].text.count(u'\n'), frame::most_news_lines - 1);
}

TEST(News, NamesAndAddressesAreTakenOnlyWhereTheyAreHarmless) {
    const struct {
        std::function<bool(const QString&)> takes;
        QStringList taken, refused;
    } kinds[]{
        {frame::is_picture_name, {u"a.png"_s, u"お知らせ 1.JPG"_s, u"x.y.gif"_s, u"console.bmp"_s},
            {QString(), u"../a.png"_s, u"a/b.png"_s, u"..\\a.png"_s, u"C:a.png"_s, u".a.png"_s, u"a..png"_s,
                u"a.png\n"_s, u"a\u202egnp.png"_s, u"a.svg"_s, u"intinfrov.dat"_s, u"nul.png"_s, u"COM1.x.bmp"_s,
                u"a?.png"_s, u"😀.png"_s, QString(100, u'a') + u".png"_s}},
        {[](const QString& text) { return frame::web_address(text).has_value(); },
            {u"http://a.example/x?y=1#z"_s, u"https://a.example"_s, u"HTTP://a.example/"_s},
            {QString(), u"javascript:alert(1)"_s, u"file:///etc/passwd"_s, u"http:///x"_s, u"//a.example/"_s,
                u"a.example"_s, u"http://bank.example@evil.example/"_s, u"mailto:a@b"_s}},
        {[](const QString& text) { return frame::news_server(text).has_value(); },
            {u" news.example "_s, u"news.example:8080"_s, u"http://news.example/"_s, u"10.0.0.1"_s},
            {QString(), u" "_s, u"ftp://news.example"_s, u"news.example/other"_s, u"news.example?x"_s,
                u"user@news.example"_s, u"file:///etc"_s, u"https://news.example"_s, u"news.example#x"_s}},
    };
    for (const auto& kind : kinds) {
        for (const QString& text : kind.taken)
            EXPECT_TRUE(kind.takes(text)) << text.toStdString();
        for (const QString& text : kind.refused)
            EXPECT_FALSE(kind.takes(text)) << text.toStdString();
    }
    EXPECT_EQ(frame::news_server(u"news.example:8080"_s)->toString(), u"http://news.example:8080/"_s);
}
