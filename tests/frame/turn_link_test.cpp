#include "frame/turn_link.h"

#include "base/literals.h"
#include "support/fake_host.h"

#include <QEventLoop>
#include <QSemaphore>
#include <QTcpServer>
#include <QTcpSocket>
#include <atomic>
#include <gtest/gtest.h>
#include <thread>

using namespace base;
using frame::LinkState;
using frame::TurnLink;

/// A service with a script: each message of the client is answered with the next reply, piece by piece.
class Service {
public:
    using Pieces = QByteArrayList;

    explicit Service(std::deque<Pieces> script) : m_script(std::move(script)) {
        m_server.listen(QHostAddress::LocalHost);
        QObject::connect(&m_server, &QTcpServer::newConnection, &m_server, [this] {
            m_client = m_server.nextPendingConnection();
            m_client->setSocketOption(QAbstractSocket::LowDelayOption, 1);
            QObject::connect(m_client, &QTcpSocket::readyRead, &m_server, [this] { answer(); });
            QObject::connect(m_client, &QTcpSocket::disconnected, &m_server, [this] { disconnected = true; });
            if (m_client->bytesAvailable() > 0) // Windows told of them before anybody listened
                answer();
        });
    }

    quint16 port() const { return m_server.serverPort(); }
    void close() { m_server.close(); }

    /// Sends the pieces that a reply came in, one each time the interface has time.
    void send_next_piece() {
        if (!m_pieces.isEmpty())
            m_client->write(m_pieces.takeFirst());
    }

    QByteArrayList heard;
    bool disconnected = false;

private:
    void answer() {
        heard << m_client->readAll();
        if (m_script.empty())
            return;
        m_pieces = m_script.front();
        m_script.pop_front();
        send_next_piece();
    }

    QTcpServer m_server;
    QTcpSocket* m_client = nullptr;
    std::deque<Pieces> m_script;
    Pieces m_pieces;
};

class TurnLinkTest : public ::testing::Test {
protected:
    TurnLinkTest() {
        settings.use_class = 1;
        settings.server_name = u"127.0.0.1"_s;
    }

    void serve(std::deque<Service::Pieces> script) {
        service.emplace(std::move(script));
        link.emplace(
            settings, host, [this](const QString& mark) { marks << mark; }, service->port());
        host.on_yield = [this] {
            service->send_next_piece();
            host.clock = host.clock.addMSecs(-15); // no wait grows longer because the clock is set back
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
        };
    }

    bool take_turn() {
        const bool granted = link->サーバー接続開始();
        host.yield();
        return granted;
    }

    void expect_hung_up() {
        for (int i = 0; i < 5; ++i)
            host.yield();
        EXPECT_TRUE(service->disconnected);
    }

    double seconds() const { return std::chrono::duration<double>(host.steady - start).count(); }

    base::Settings settings;
    support::FakeHost host;
    const std::chrono::steady_clock::time_point start = host.steady;
    std::optional<Service> service;
    std::optional<TurnLink> link;
    QStringList marks;
    const support::Shown unreachable{
        u"サーバーにアクセスできません。もう一度登録処理してください"_s, u"サーバー未接続"_s, platform::Buttons::Ok};
};

const QByteArrayList greeting{"##127.0.0.1"};

TEST_F(TurnLinkTest, ATurnIsAskedForTakenAndGivenBack) {
    const struct {
        const char* how;
        std::deque<Service::Pieces> replies;
        QByteArrayList asked;
    } cases[]{
        {"after a wait", {{"your"}, {"stok"}, {"stok"}, {"st-1"}, {"so-1"}}, {"st", "st", "st", "so"}},
        {"only four characters count", {{"your turn comes"}, {"st-1 please"}, {"so-1!"}}, {"st", "so"}},
        {"in pieces", {{"yo", "u", "r"}, {"s", "t-1"}, {"so-", "1"}}, {"st", "so"}},
        {"an unknown reply repeats the message", {{"your"}, {"so-1"}, {"st-1"}, {"????"}, {"so-1"}},
            {"st", "st", "so", "so"}},
    };
    for (const auto& [how, replies, asked] : cases) {
        SCOPED_TRACE(how);
        marks.clear();
        auto script = replies;
        script.insert(script.end(), {{"en-1"}, {"eo-1"}});
        serve(script);
        EXPECT_TRUE(take_turn());
        EXPECT_EQ(service->heard, greeting + asked);
        EXPECT_EQ(link->link_state(), LinkState::Granted);
        EXPECT_EQ(marks, QStringList({u"●"_s, u"◎"_s}));
        link->サーバー接続終了();
        EXPECT_EQ(service->heard, greeting + asked + QByteArrayList({"en", "eo"}));
        EXPECT_EQ(link->link_state(), LinkState::Idle);
        EXPECT_EQ(marks.sliced(2), QStringList({u"○"_s, QString()}));
        expect_hung_up();
        EXPECT_TRUE(host.shown.empty());
    }
}

TEST_F(TurnLinkTest, AServiceSilentForTenSecondsOrAbsentFailsTheLinkUntilTheNextTurnIsTaken) {
    serve({{"your"}, {}, {"your"}, {"st-1"}, {"so-1"}});
    EXPECT_FALSE(take_turn());
    EXPECT_GE(seconds(), 10);
    EXPECT_LT(seconds(), 10.1);
    EXPECT_EQ(host.shown, std::vector{unreachable});
    EXPECT_EQ(link->link_state(), LinkState::Idle);
    expect_hung_up(); // a turn granted later would be held by nobody
    EXPECT_TRUE(take_turn());
    EXPECT_EQ(link->link_state(), LinkState::Granted);

    serve({});
    service->close();
    const double before = seconds();
    EXPECT_FALSE(take_turn());
    EXPECT_EQ(host.shown, std::vector(2, unreachable)) << "refused, and told without the wait";
    EXPECT_LT(seconds(), before + 10);
}

/// A service where another PC has the turn. It may be too old to know the question for who that is.
class BusyService {
public:
    explicit BusyService(bool tells) : m_thread([this, tells] { serve(tells); }) { m_listening.acquire(); }
    ~BusyService() {
        QMetaObject::invokeMethod(m_loop, &QEventLoop::quit, Qt::QueuedConnection);
        m_thread.join();
    }
    quint16 port() const { return m_port; }
    std::atomic<int> questions = 0;

private:
    /// In a thread of its own, as a service is a program of its own: what comes and goes there wakes nobody here.
    void serve(bool tells) {
        QEventLoop loop;
        m_loop = &loop;
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        QObject::connect(&server, &QTcpServer::newConnection, &server, [this, &server, tells] {
            QTcpSocket* client = server.nextPendingConnection();
            QObject::connect(
                client, &QTcpSocket::readyRead, &server, [this, client, tells] { answer(*client, tells); });
            if (client->bytesAvailable() > 0) // Windows told of them before anybody listened
                answer(*client, tells);
        });
        m_port = server.serverPort();
        m_listening.release();
        loop.exec();
    }
    void answer(QTcpSocket& client, bool tells) {
        const QByteArray text = client.readAll();
        if (text != "??")
            return void(client.write(text.startsWith("##") ? "your" : "stok"));
        ++questions;
        if (tells)
            client.write("!!held 10.0.0.7 12345 2\n");
        client.disconnectFromHost();
    }

    QEventLoop* m_loop = nullptr;
    quint16 m_port = 0;
    QSemaphore m_listening;
    std::thread m_thread;
};

TEST_F(TurnLinkTest, WhoWaitsIsToldWhoHasTheTurnAndMayGiveUp) {
    for (const bool tells : {true, false}) {
        BusyService busy(tells);
        link.emplace(
            settings, host, [this](const QString& mark) { marks << mark; }, busy.port());
        const double start_of_wait = seconds();
        std::optional<frame::TurnStatus> told;
        host.on_yield = [&] { // time stands still until the first question has been dealt with
            QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
            if (seconds() - start_of_wait > 2 && (busy.questions == 0 || told.has_value() != tells))
                host.steady -= std::chrono::milliseconds(20);
        };
        link->on_waiting = [&](const TurnLink::Waiting& wait) {
            EXPECT_GE(wait.waited, std::chrono::seconds(1)) << "a short wait is none to tell of";
            told = wait.status;
            return wait.waited < std::chrono::seconds(5);
        };
        bool over = false;
        link->on_waited = [&] { over = true; };
        EXPECT_FALSE(take_turn());
        EXPECT_TRUE(over);
        EXPECT_NEAR(seconds() - start_of_wait, 5, 0.1);
        EXPECT_EQ(link->link_state(), LinkState::Idle);
        EXPECT_EQ(marks.last(), QString());
        EXPECT_TRUE(host.shown.empty()) << "who gives up knows it";
        EXPECT_EQ(told.has_value(), tells);
        EXPECT_GE(busy.questions, 1);
        EXPECT_LE(busy.questions, 3);
        EXPECT_EQ(told ? words(*told) : QString(),
            tells ? u"10.0.0.7 が登録しています（12秒前から）。\n2台が順番を待っています。"_s : QString());
    }
}

TEST_F(TurnLinkTest, ASilentReleaseFailsInSilence) {
    serve({{"your"}, {"st-1"}, {"so-1"}, {"en-1"}});
    EXPECT_TRUE(take_turn());
    const double taken = seconds();
    link->サーバー接続終了();
    EXPECT_GE(seconds() - taken, 10);
    EXPECT_EQ(link->link_state(), LinkState::Idle);
    EXPECT_TRUE(host.shown.empty());
    EXPECT_EQ(marks.last(), QString());
}

TEST_F(TurnLinkTest, TheMainPCTakesNoTurnAndOneThatIsNotHeldIsNotGivenBack) {
    serve({{"your"}});
    link->サーバー接続終了();
    settings.use_class = 0;
    EXPECT_TRUE(take_turn()) << "may post without one";
    EXPECT_EQ(link->link_state(), LinkState::Idle);
    EXPECT_TRUE(service->heard.isEmpty());
    EXPECT_TRUE(marks.isEmpty());
    EXPECT_EQ(seconds(), 0);
}
