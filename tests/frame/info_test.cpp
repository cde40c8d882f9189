#include "frame/info.h"

#include "base/literals.h"
#include "frame/drive_tree.h"
#include "frame/http_fetch.h"
#include "frame/news.h"
#include "platform/paths.h"
#include "support/fake_host.h"
#include "support/http_server.h"
#include "support/stored.h"

#include <gtest/gtest.h>

using namespace base;
using namespace std::chrono_literals;

const QString news_place = u"/mr/info/intinfrov.dat"_s;
constexpr qint64 megabyte = 1024 * 1024;
const QByteArray png = "\x89PNG\r\n\x1a\nrest";

/// Fetches for real, and tells whether it is done.
class WatchedFetch : public frame::Fetch {
public:
    void get(const QUrl& address, const frame::FetchLimits& limits, Done done) override {
        m_busy = true;
        m_http.get(address, limits, [this, done](const QByteArray* file) {
            m_busy = false;
            done(file);
        });
    }
    void stop() override {
        m_busy = false;
        m_http.stop();
    }
    bool busy() const { return m_busy; }

private:
    frame::HttpFetch m_http;
    bool m_busy = false;
};

class Info : public ::testing::Test {
protected:
    Info() {
        settings.net_info = 1;
        settings.info_server = server.host();
    }

    frame::info& begin_visit(frame::FetchTimes times = {}) {
        form = std::make_unique<frame::info>(frame::Session{settings, host, tables, link}, fetch, times);
        form->Form_Load();
        form->Shown();
        return *form;
    }
    /// A visit to the page, up to the end of what it fetches.
    frame::info& visit(frame::FetchTimes times = {}) {
        begin_visit(times);
        EXPECT_TRUE(support::wait_until([&] { return !fetch.busy(); }));
        return *form;
    }
    void put_file(const QString& name, const QByteArray& bytes) {
        const QString path = QDir::cleanPath(folder + name);
        QDir().mkpath(QFileInfo(path).path());
        support::put_bytes(path, bytes);
    }

    DriveTree tree;
    base::Settings& settings = tree.settings;
    const QString folder = platform::portable(settings.local_root) + u"/rovena100/data/trn/info/"_s;
    const QString news_file = folder + u"intinfrov.dat"_s;
    support::FakeHost host;
    store::SettingTables tables{settings};
    frame::TurnLink link{settings, host};
    support::HttpServer server;
    WatchedFetch fetch;
    std::unique_ptr<frame::info> form;
};

TEST_F(Info, ShowsTheNewsWithItsPicturesAndReadsItAgainOnTheNextVisit) {
    server.put(news_place, "1 お知らせ.png\r\n2 first\r\n2 second\r\n3 http://a.example/\r\n1\r\n2 plain\r\n");
    server.put(u"/mr/info/お知らせ.png"_s, png);
    const Sheet& hyou = visit().hyou;
    ASSERT_EQ(hyou.Rows(), 3);
    EXPECT_EQ(hyou(0, frame::news_picture), folder + u"お知らせ.png"_s);
    EXPECT_EQ(hyou(0, frame::news_text), u"first\r\nsecond"_s);
    EXPECT_EQ(hyou(0, frame::news_link), u"http://a.example/"_s);
    EXPECT_EQ(hyou.RowHeight(1), 300) << "between two items";
    EXPECT_EQ(hyou(2, frame::news_text), u"plain"_s);
    EXPECT_EQ(hyou(2, frame::news_picture), QString());
    EXPECT_EQ(tables.設定読込(u"rov_kihon"_s, u"ネット情報"_s), u"0"_s);
    const QStringList once{news_place, u"/mr/info/お知らせ.png"_s};
    EXPECT_EQ(server.asked, once);

    EXPECT_EQ(visit().hyou.Rows(), 3);
    form->osirase_Click();
    EXPECT_EQ(form->hyou.Rows(), 3);
    EXPECT_FALSE(fetch.busy());
    EXPECT_EQ(server.asked, once);
    QFile::remove(news_file); // as the next start does
    EXPECT_FALSE(visit().hyou(0, frame::news_picture).isEmpty());
    EXPECT_EQ(server.asked, once + QStringList{news_place}) << "the picture stays on this PC";
}

TEST_F(Info, AsksNobodyWhereNewsIsNotWantedOrNoServerIsSet) {
    server.put(news_place, "1\n2 news\n");
    settings.net_info = 0;
    EXPECT_EQ(visit().hyou.Rows(), 0);
    EXPECT_FALSE(form->osirase || form->pic_info || form->intjyuflg);
    EXPECT_TRUE(form->down);
    settings.net_info = 1;
    settings.info_server.clear();
    EXPECT_EQ(visit().hyou.Rows(), 0);
    EXPECT_TRUE(form->osirase && form->pic_info && form->intjyuflg);
    EXPECT_FALSE(form->down);
    form->down_Click();
    EXPECT_TRUE(server.asked.isEmpty() && host.opened.isEmpty());
}

TEST_F(Info, ARudeServerLeavesNoNewsAndNobodyIsTold) {
    support::HttpServer elsewhere;
    elsewhere.put(u"/news"_s, "1\n2 not ours\n");
    const QByteArray ok = "HTTP/1.1 200 OK\r\n", item = "1\n2 news\n", chunked = "Transfer-Encoding: chunked\r\n\r\n";
    const QList<QByteArray> flood(32, QByteArray(megabyte, '2'));
    const std::pair<const char*, QList<QByteArray>> cases[]{
        {"silent", {}},
        {"hangs up", {""}},
        {"stops in the middle", {ok + "Content-Length: 500\r\n\r\n" + item}},
        {"too much", {ok + "\r\n" + item, QByteArray(frame::most_news_bytes, '2')}},
        {"a chunk of any size", QList{ok + chunked + "7fffffff\r\n" + item} + flood},
        {"asks for a password",
            QList<QByteArray>{"HTTP/1.1 401 No\r\nWWW-Authenticate: Basic realm=a\r\n\r\n"} + flood},
        {"a head without end", QList{ok + "X: "} + flood},
        {"a chunk below none", {ok + chunked + "ffffffffffffffff\r\n" + item}},
        {"a chunk that doesn't end where it should", {ok + chunked + "2\r\n1\n2 news\r\n0\r\n\r\n"}},
        {"less than nothing", {ok + "Content-Length: -5\r\n\r\n" + item}},
        {"half a chunk", {ok + chunked + "ff\r\n" + item}},
        {"another page", {ok + "\r\n<html><body>Please log in</body></html>"}},
        {"an error with a body", {"HTTP/1.1 500 Oh\r\n\r\n" + item}},
        {"no HTTP", {"220 smtp.example ready\r\n", item}},
        {"redirects elsewhere",
            {"HTTP/1.1 302 Found\r\nLocation: http://" + elsewhere.host().toLatin1() + "/news\r\n\r\n"}},
        {"redirects to another name", {"HTTP/1.1 302 Found\r\nLocation: http://other.invalid/\r\n\r\n"}},
        {"redirects to another scheme",
            {"HTTP/1.1 302 Found\r\nLocation: https://" + server.host().toLatin1() + "/\r\n\r\n"}},
        {"redirects in circles", {"HTTP/1.1 302 Found\r\nLocation: " + news_place.toLatin1() + "\r\n\r\n"}},
    };
    for (const auto& [name, answer] : cases) {
        server.pieces[news_place] = answer;
        server.asked.clear();
        server.sent = 0;
        EXPECT_EQ(visit(answer.isEmpty() ? frame::FetchTimes{50ms, 10s} : frame::FetchTimes{}).hyou.Rows(), 0) << name;
        EXPECT_FALSE(QFileInfo::exists(news_file)) << name;
        EXPECT_FALSE(server.asked.isEmpty()) << name;
        EXPECT_LT(server.sent, 16 * megabyte) << name << ": what the system holds between the two, and no more";
    }
    server.close();
    EXPECT_EQ(visit().hyou.Rows(), 0) << "refused";
    EXPECT_TRUE(elsewhere.asked.isEmpty());
    EXPECT_TRUE(host.shown.empty());
}

TEST_F(Info, TakesAnAnswerThatComesInPiecesOrByAWayOnTheSameServer) {
    server.pieces[news_place] = {"HTTP/1.1 302 Found\r\nLocation: /moved\r\nContent-Length: 0\r\n\r\n"};
    server.pieces[u"/moved"_s] = {"HTTP/1.1 20", "0 OK\r\n\r", "\n1\n2 ne", "ws\n"};
    ASSERT_EQ(visit().hyou.Rows(), 1);
    EXPECT_EQ(form->hyou(0, frame::news_text), u"news"_s);
    QFile::remove(news_file);
    server.pieces[u"/moved"_s] = {"HTTP/1.1 103 Early Hints\r\n\r\nHTTP/1.1 200 OK\r\ntransfer-encoding: Chunked\r\n",
        "\r\n4;a=b\r\n1\n2 \r", "\n8\r\nin piece", "\r\n2\r\ns\n\r\n0\r\n\r\n"};
    ASSERT_EQ(visit().hyou.Rows(), 1);
    EXPECT_EQ(form->hyou(0, frame::news_text), u"in pieces"_s);
}

TEST_F(Info, APictureThatDoesNotComeTakesNothingElseAway) {
    server.put(
        news_place, "1 ../../evil.png\n2 a\n1 page.png\n2 b\n1 big.png\n2 c\n1 mute.png\n2 d\n1 good.png\n2 e\n");
    server.put(u"/mr/info/page.png"_s, "<html>");
    server.put(u"/mr/info/big.png"_s, png + QByteArray(frame::most_picture_bytes, 'x'));
    server.pieces[u"/mr/info/mute.png"_s] = {};
    server.put(u"/mr/info/good.png"_s, png);
    const Sheet& hyou = visit({500ms, 10s}).hyou;
    ASSERT_EQ(hyou.Rows(), 9);
    for (int row = 0; row < 8; ++row)
        EXPECT_EQ(hyou(row, frame::news_picture), QString()) << row;
    EXPECT_EQ(hyou(8, frame::news_picture), folder + u"good.png"_s);
    EXPECT_EQ(hyou(0, frame::news_text), u"a"_s);
    EXPECT_EQ(QDir(folder).entryList(QDir::Files), QStringList({u"good.png"_s, u"intinfrov.dat"_s}));
    EXPECT_FALSE(server.asked.join(u' ').contains(u"evil"_s));
    for (const int without : {-1, 0, 9})
        form->drop_picture(without);
    EXPECT_TRUE(QFileInfo::exists(folder + u"good.png"_s));
    form->drop_picture(8);
    EXPECT_FALSE(QFileInfo::exists(folder + u"good.png"_s));
    EXPECT_EQ(hyou(8, frame::news_picture), QString());
}

TEST_F(Info, WhereNothingCanBeKeptThereIsNoNewsAndNobodyIsTold) {
    server.put(news_place, "1\n2 news\n");
    QDir(folder).removeRecursively();
    put_file(u"../info"_s, "in the folder's place");
    EXPECT_EQ(visit().hyou.Rows(), 0);
    EXPECT_EQ(server.asked, QStringList{news_place});
    EXPECT_TRUE(host.shown.empty());
}

TEST_F(Info, NoFurtherPictureIsAskedForWhenTheWholeTimeIsOver) {
    put_file(u"intinfrov.dat"_s, "1 a.png\n1 b.png\n");
    server.put(u"/mr/info/a.png"_s, png);
    server.put(u"/mr/info/b.png"_s, png);
    begin_visit();
    host.steady += 11s;
    EXPECT_TRUE(support::wait_until([&] { return !fetch.busy(); }));
    EXPECT_EQ(server.asked, QStringList{u"/mr/info/a.png"_s});
}

TEST_F(Info, OpensOnlyLinksOfTheWebAndTheMakersPage) {
    put_file(u"intinfrov.dat"_s, "1\n3 javascript:alert(1)\n1\n3 https://a.example/?q=出勤\n1\n2 no link\n");
    visit();
    for (const int row : {-1, 0, 1, 2, 3, 4, 5})
        form->hyou_Click(row);
    form->down_Click();
    EXPECT_EQ(host.opened,
        QStringList({u"https://a.example/?q=%E5%87%BA%E5%8B%A4"_s, u"http://%1/mr/"_s.arg(server.host())}));
}

TEST_F(Info, TheTickIsKeptAndTakingItAwayOrLeavingEndsTheFetch) {
    settings.net_info = 0;
    visit();
    form->intjyuflg_Click(true);
    EXPECT_TRUE(form->pic_info && form->osirase);
    EXPECT_EQ(tables.設定読込(u"losystem"_s, u"ネット情報"_s), u"1"_s);
    EXPECT_FALSE(fetch.busy()) << "the button fetches, not the tick";
    server.pieces[news_place] = {};
    form->osirase_Click();
    EXPECT_TRUE(fetch.busy());
    form->intjyuflg_Click(false);
    EXPECT_FALSE(form->pic_info || fetch.busy());
    EXPECT_EQ(settings.net_info, 0);
    EXPECT_EQ(tables.設定読込(u"losystem"_s, u"ネット情報"_s), u"0"_s);

    settings.net_info = 1;
    begin_visit();
    EXPECT_TRUE(fetch.busy());
    form.reset();
    EXPECT_FALSE(fetch.busy());
}

TEST_F(Info, CountsTheMessagesOfTheExchangeSide) {
    EXPECT_EQ(visit().import_errors, 0);
    put_file(u"../errmsg.txt"_s, "\"a\"\n\"b\"\n\n");
    EXPECT_EQ(visit().import_errors, 2);
}
