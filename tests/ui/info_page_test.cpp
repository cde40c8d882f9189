#include "ui/info_page.h"

#include "base/literals.h"
#include "frame/error_list.h"
#include "frame/news.h"
#include "support/fake_host.h"
#include "support/http_server.h"
#include "ui/install_tree.h"
#include "ui/news_list.h"
#include "ui/news_picture.h"
#include "ui/program.h"

#include <QBuffer>
#include <QCheckBox>
#include <QImageReader>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace base;
using frame::Page;

namespace {

QByteArray picture(QSize size, const char* format) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::darkCyan);
    QByteArray bytes;
    QBuffer file(&bytes);
    file.open(QIODevice::WriteOnly);
    image.save(&file, format);
    return bytes;
}

QString put_file(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error(path.toStdString());
    return path;
}

/// The program with a news server.
class InfoPage : public ::testing::Test {
protected:
    InfoPage() {
        store::SettingTables tables(tree.settings);
        tables.設定書込(u"kihon"_s, u"情報サーバー"_s, server.host());
        tables.設定書込(u"losystem"_s, u"ネット情報"_s, u"1"_s);
    }

    ui::info_page& start() {
        EXPECT_EQ(program.start(), 0);
        auto* page = qobject_cast<ui::info_page*>(program.window().pages().page(Page::info));
        if (page == nullptr)
            throw std::logic_error("the landing page isn't there");
        return *page;
    }

    template <typename Control>
    static Control& control(QWidget& in, const QString& text) {
        for (Control* found : in.findChildren<Control*>())
            if (found->text() == text)
                return *found;
        throw std::out_of_range(text.toStdString());
    }

    InstallTree tree;
    support::HttpServer server;
    support::FakeHost host;
    ui::Program program{host, tree.programs};
};

} // namespace

TEST_F(InfoPage, IsThereAtTheStartAndAsksTheServerOnlyOnceItIsPainted) {
    server.put(u"/mr/info/intinfrov.dat"_s,
        "1 good.png\r\n2 news\r\n2 <b>plain</b>\r\n3 http://a.example/\r\n1 cut.png\r\n2 other\r\n3 javascript:x\r\n");
    server.put(u"/mr/info/good.png"_s, picture(QSize(300, 300), "PNG"));
    server.put(u"/mr/info/cut.png"_s, picture(QSize(300, 300), "PNG").first(100));
    ui::info_page& page = start();
    EXPECT_EQ(page.windowTitle(), u"インフォメーション"_s);
    EXPECT_TRUE(server.asked.isEmpty());
    EXPECT_NO_THROW(control<QLabel>(page, u"R240-03"_s));
    ASSERT_TRUE(support::wait_until([&] { return page.hyou().rows().size() == 2 && server.asked.size() == 3; }));
    const auto rows = page.hyou().rows();
    ASSERT_TRUE(support::wait_until([&] { return rows[0]->has_picture(); }));
    const QString cut = tree.programs + u"/data/trn/info/cut.png"_s;
    EXPECT_TRUE(support::wait_until([&] { return page.form().hyou(2, 0).isEmpty() && !QFile::exists(cut); }));
    EXPECT_FALSE(rows[1]->has_picture());
    EXPECT_EQ(control<QLabel>(*rows[0], u"news\n<b>plain</b>"_s).textFormat(), Qt::PlainText);

    QTest::mouseClick(rows[1], Qt::LeftButton);
    EXPECT_TRUE(host.opened.isEmpty());
    QTest::mouseClick(rows[0], Qt::LeftButton);
    QTest::keyClick(rows[0], Qt::Key_Return);
    EXPECT_EQ(host.opened, QStringList({u"http://a.example/"_s, u"http://a.example/"_s}));
}

TEST_F(InfoPage, TheTickHidesTheNewsAndIsKept) {
    ui::info_page& page = start();
    QCheckBox& tick = control<QCheckBox>(page, u"インターネットから情報を受信する"_s);
    QPushButton& osirase = control<QPushButton>(page, u"お知らせを表示"_s);
    EXPECT_TRUE(tick.isChecked() && osirase.isVisible());
    tick.click();
    EXPECT_FALSE(osirase.isVisible());
    EXPECT_EQ(store::SettingTables(tree.settings).設定読込(u"losystem"_s, u"ネット情報"_s), u"0"_s);
    tick.click();
    EXPECT_TRUE(osirase.isVisible());
    EXPECT_TRUE(host.shown.empty());
}

TEST_F(InfoPage, ALineLeadsToTheMessagesOfTheExchangeSide) {
    put_file(frame::error_file_path(tree.settings), "\"a\"\n\"b\"\n");
    frame::Settings settings = tree.settings;
    store::SettingTables tables(settings);
    frame::TurnLink link(settings, host);
    frame::Session session{settings, host, tables, link};
    int shown = 0;
    ui::info_page page(session, [&] { ++shown; });
    page.resize(1280, 600);
    page.show();
    const QString text = u"取込エラーがあります（2件）"_s;
    const auto stands = [&] {
        const auto buttons = page.findChildren<QPushButton*>();
        return std::ranges::any_of(buttons, [&](auto* b) { return b->text() == text && b->isVisible(); });
    };
    ASSERT_TRUE(support::wait_until(stands));
    control<QPushButton>(page, text).click();
    EXPECT_EQ(shown, 1);
}

TEST(NewsPicture, IsDecodedOnlyIfItIsOneOfFourKindsAndNoGiant) {
    const QTemporaryDir folder;
    const auto read = [&](const QByteArray& bytes) {
        return ui::read_news_picture(put_file(folder.filePath(u"a.png"_s), bytes), QSize(100, 100)).size();
    };
    EXPECT_EQ(read(picture(QSize(400, 200), "PNG")), QSize(100, 50));
    EXPECT_EQ(read(picture(QSize(400, 200), "JPG")), QSize(100, 50)) << "whatever it is called";
    EXPECT_EQ(read(picture(QSize(40, 20), "BMP")), QSize(40, 20));
    EXPECT_EQ(read(picture(QSize(40, 20), "PPM")), QSize(0, 0));
    EXPECT_EQ(read(picture(QSize(400, 200), "PNG").first(60)), QSize(0, 0));
    EXPECT_EQ(read(picture(QSize(7000, 10), "PNG")), QSize(0, 0));
    EXPECT_EQ(read(picture(QSize(4100, 4100), "PNG")), QSize(0, 0));
}
