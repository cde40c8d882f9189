#include "ui/pages/info_page.h"

#include "base/literals.h"
#include "frame/error_list.h"
#include "frame/news.h"
#include "support/http_server.h"
#include "support/stored.h"
#include "ui/install_tree.h"
#include "ui/pages/news_list.h"
#include "ui/pages/news_picture.h"
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

/// The program with a news server.
struct InfoPage : ::testing::Test, InstallTree {
    InfoPage() {
        tables.設定書込(u"kihon"_s, u"情報サーバー"_s, server.host());
        tables.設定書込(u"losystem"_s, u"ネット情報"_s, u"1"_s);
    }

    ui::info_page& start() {
        EXPECT_EQ(program.start(), 0);
        return dynamic_cast<ui::info_page&>(*program.window().pages().page(Page::info));
    }

    template <typename Control>
    static Control& control(QWidget& in, const QString& text) {
        for (Control* found : in.findChildren<Control*>())
            if (found->text() == text)
                return *found;
        throw std::out_of_range(text.toStdString());
    }

    support::HttpServer server;
    ui::Program program{host, programs};
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
    const QString cut = programs + u"/data/trn/info/cut.png"_s;
    EXPECT_TRUE(support::wait_until([&] { return page.form().hyou(2, 0).isEmpty() && !QFile::exists(cut); }));
    EXPECT_FALSE(rows[1]->has_picture());
    EXPECT_EQ(control<QLabel>(*rows[0], u"news\n<b>plain</b>"_s).textFormat(), Qt::PlainText);

    QTest::mouseClick(rows[1], Qt::LeftButton);
    EXPECT_TRUE(host.opened.isEmpty());
    QTest::mouseClick(rows[0], Qt::LeftButton);
    QTest::keyClick(rows[0], Qt::Key_Return);
    EXPECT_EQ(host.opened, QStringList({u"http://a.example/"_s, u"http://a.example/"_s}));
}

TEST_F(InfoPage, TheTickHidesTheNews) {
    ui::info_page& page = start();
    auto& tick = control<QCheckBox>(page, u"インターネットから情報を受信する"_s);
    const auto& osirase = control<QPushButton>(page, u"お知らせを表示"_s);
    for (const bool ticked : {true, false, true}) {
        tick.setChecked(ticked);
        EXPECT_EQ(osirase.isVisible(), ticked);
    }
}

TEST_F(InfoPage, ALineLeadsToTheMessagesOfTheExchangeSide) {
    QDir().mkpath(QFileInfo(frame::error_file_path(settings)).path());
    support::put_bytes(frame::error_file_path(settings), "\"a\"\n\"b\"\n");
    ui::info_page& page = start();
    ASSERT_TRUE(support::wait_until([&] { return page.form().import_errors > 0; }));
    QTest::mouseClick(&control<QPushButton>(page, u"取込エラーがあります（2件）"_s), Qt::LeftButton);
    EXPECT_TRUE(program.window().pages().is_open(Page::errform));
}

TEST(NewsPicture, IsDecodedOnlyIfItIsOneOfFourKindsAndNoGiant) {
    const QTemporaryDir folder;
    const auto read = [path = folder.filePath(u"a.png"_s)](const QByteArray& bytes) {
        support::put_bytes(path, bytes);
        return ui::read_news_picture(path, QSize(100, 100)).size();
    };
    EXPECT_EQ(read(picture(QSize(400, 200), "PNG")), QSize(100, 50));
    EXPECT_EQ(read(picture(QSize(400, 200), "JPG")), QSize(100, 50)) << "whatever it is called";
    EXPECT_EQ(read(picture(QSize(40, 20), "BMP")), QSize(40, 20));
    EXPECT_EQ(read(picture(QSize(40, 20), "PPM")), QSize(0, 0));
    EXPECT_EQ(read(picture(QSize(400, 200), "PNG").first(60)), QSize(0, 0));
    EXPECT_EQ(read(picture(QSize(7000, 10), "PNG")), QSize(0, 0));
    EXPECT_EQ(read(picture(QSize(4100, 4100), "PNG")), QSize(0, 0));
}
