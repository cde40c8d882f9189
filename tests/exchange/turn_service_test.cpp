#include "base/literals.h"
#include "exchange/event_log.h"
#include "support/stored.h"
#include "support/wait_until.h"

#include <QDir>
#include <QHostAddress>
#include <QProcess>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTimer>
#include <memory>

using namespace base;
using support::bytes_of, support::wait_until;

namespace {

/// The program jyunban on a free port, with a manager that writes down its runs and is seen while it runs.
class TurnService : public testing::Test {
protected:
    /// `first` is what the shell does before it becomes the service.
    void start(const QStringList& more = {}, [[maybe_unused]] const QString& first = u":"_s) {
        QDir(folder.path()).mkpath(u"comdata/data"_s);
        const QString manager = make_manager();
        service.setStandardErrorFile(in(u"stderr"_s));
        const QStringList command =
            QStringList{qEnvironmentVariable("ROVENA_BIN") + u"/jyunban"_s, u"--port"_s, u"0"_s, u"--bind"_s,
                u"127.0.0.1"_s, u"--root"_s, folder.path(), u"--manager"_s, manager, u"--log"_s, in(u"log"_s)} +
            more;
#ifdef Q_OS_WIN
        service.start(command.first(), command.sliced(1));
#else
        service.start(u"/bin/sh"_s, QStringList{u"-c"_s, first + u"; exec \"$0\" \"$@\""_s} + command);
#endif
        static const QRegularExpression opened(u"受付を開始しました 127\\.0\\.0\\.1:(\\d+)"_s);
        ASSERT_TRUE(wait_until([this] { return opened.match(log()).hasMatch(); }))
            << bytes_of(in(u"stderr"_s)).constData();
        port = opened.match(log()).captured(1).toUShort();
    }

    QString make_manager() const {
#ifdef Q_OS_WIN
        const QString manager = in(u"manager.cmd"_s);
        support::put_bytes(
            manager, "@cd /d \"" + QDir::toNativeSeparators(folder.path()).toUtf8() +
                         "\"\r\n@if exist running echo together>>faults\r\n@mkdir running\r\n@echo %*>>runs\r\n"
                         "@rmdir running\r\n");
#else
        const QString manager = in(u"manager"_s);
        support::put_bytes(
            manager, "#!/bin/sh\ncd '" + folder.path().toUtf8() +
                         "'\nmkdir running || echo together >> faults\necho \"$@\" >> runs\nrmdir running\n");
        QFile::setPermissions(manager, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
#endif
        return manager;
    }

    void TearDown() override {
        service.kill();
        service.waitForFinished();
    }

    QString in(const QString& name) const {
        return folder.filePath(name);
    }
    QString log() const {
        return QString::fromUtf8(bytes_of(in(u"log"_s)));
    }
    qsizetype manager_runs() const {
        return bytes_of(in(u"runs"_s)).count('\n');
    }

    QTemporaryDir folder;
    QProcess service;
    quint16 port = 0;
};

struct Peer {
    explicit Peer(quint16 service_port) : port(service_port) {
        QObject::connect(&socket, &QTcpSocket::connected, &socket, [this] { hears({}); });
        QObject::connect(&socket, &QTcpSocket::readyRead, &socket, [this] { hears(socket.readAll().left(4)); });
        QObject::connect(&socket, &QTcpSocket::disconnected, &socket, [this] { is_closed(); });
        QObject::connect(&socket, &QTcpSocket::errorOccurred, &socket, [this] { is_closed(); });
        comes();
    }
    virtual ~Peer() { socket.disconnect(); }
    virtual void hears(const QByteArray& reply) = 0; ///< nothing: it is connected
    virtual void is_closed() = 0;
    void comes() { socket.connectToHost(QHostAddress(QHostAddress::LocalHost), port); }

    quint16 port;
    QTcpSocket socket;
    bool done = false;
};

/// A client as the desktop program has it: it says its next message when the answer has come. One that is refused comes
/// again, as a person presses the button again.
struct Client : Peer {
    using Peer::Peer;
    void is_closed() override {
        QTimer::singleShot(50, &socket, [this] {
            if (!done && socket.state() == QAbstractSocket::UnconnectedState)
                comes();
        });
    }
    void hears(const QByteArray& reply) override {
        static const QMap<QByteArray, QByteArray> next{
            {"", "##127.0.0.1"}, {"your", "st"}, {"stok", "st"}, {"st-1", "so"}, {"en-1", "eo"}};
        socket.write(next.value(reply));
        done = reply == "eo-1";
        if (reply != "so-1")
            return;
        on_hold(true);
        QTimer::singleShot(1, &socket, [this] {
            on_hold(false);
            socket.write("en");
        });
    }

    std::function<void(bool)> on_hold = [](bool) {};
};

/// A client that says its piece, message by message, whatever the service answers, and then goes or stays silent.
struct RudeClient : Peer {
    RudeClient(quint16 service_port, QByteArrayList texts, bool goes = false)
        : Peer(service_port), pieces(std::move(texts)), leaves(goes) {}
    void is_closed() override { done = true; }
    void hears(const QByteArray&) override {
        if (!pieces.isEmpty())
            socket.write(pieces.takeFirst());
        else if (leaves)
            socket.abort();
    }

    QByteArrayList pieces;
    bool leaves;
};

const QByteArrayList takes_the_turn{"##127.0.0.1", "st", "so"};

const std::vector<std::pair<QByteArrayList, bool>> rudeness{{{"GET / HTTP/1.1\r\n\r\n"}, false},
    {{QByteArray(100'000, '\xff')}, false}, {{"##" + QByteArray(100'000, 'a')}, false},
    {{"##127.0.0.1", QByteArray("st").repeated(10'000)}, false}, {{"##127.0.0.1", "so"}, false}, {{}, false},
    {{}, true}, {takes_the_turn, true}};

} // namespace

TEST_F(TurnService, HundredPolitePCsGetTheirTurnsAmongHundredRudeOnes) {
    start();
    std::vector<std::unique_ptr<Client>> polite;
    std::vector<std::unique_ptr<RudeClient>> rude;
    int holders = 0, most_holders = 0, held_while_applying = 0;
    for (size_t i = 0; i < 100; ++i) {
        const auto& [texts, goes] = rudeness[i % rudeness.size()];
        rude.push_back(std::make_unique<RudeClient>(port, texts, goes));
        polite.push_back(std::make_unique<Client>(port));
        polite.back()->on_hold = [&](bool begins) {
            holders += begins ? 1 : -1;
            most_holders = std::max(most_holders, holders);
            held_while_applying += QDir(in(u"running"_s)).exists();
        };
    }
    EXPECT_TRUE(
        wait_until([&] { return std::ranges::all_of(polite, [](const auto& client) { return client->done; }); }));
    const auto parted_from = [this] { return log().count(u"切断します"_s) + log().count(u"切断されました"_s); };
    EXPECT_TRUE(wait_until([&] { return parted_from() >= 100; })) << "Windows doesn't tell all of the rude ones";
    EXPECT_EQ(most_holders, 1);
    EXPECT_EQ(held_while_applying, 0);
    EXPECT_TRUE(wait_until([&] { return manager_runs() >= 100; }));
    EXPECT_EQ(bytes_of(in(u"faults"_s)), "");
    EXPECT_EQ(service.state(), QProcess::Running);
}

TEST_F(TurnService, ClientsBeyondTheOpenFilesOfTheSystemLeaveItListeningAndAbleToApply) {
    start({}, u"ulimit -n 60"_s);
    std::vector<std::unique_ptr<RudeClient>> silent;
    for (int i = 0; i < 100; ++i)
        silent.push_back(std::make_unique<RudeClient>(port, QByteArrayList()));
    EXPECT_TRUE(wait_until([&] { return std::ranges::all_of(silent, &RudeClient::done); }));
    Client client(port);
    EXPECT_TRUE(wait_until([&] { return client.done && manager_runs() == 1; }));
}

TEST(EventLog, AFloodFromOutsideIsToldByItsNumber) {
    const QTemporaryDir folder;
    exchange::EventLog log(folder.filePath(u"log"_s));
    for (int i = 0; i < 10'000; ++i)
        log.line_from_outside(u"refused"_s);
    log.line(u"stopped"_s);
    const QByteArray text = bytes_of(folder.filePath(u"log"_s));
    EXPECT_GE(text.count("refused"), 1'000) << "a company that comes all at once is told line by line";
    EXPECT_LT(text.count("refused"), 9'000);
    EXPECT_TRUE(text.contains("行省きました"));
    EXPECT_TRUE(text.endsWith("stopped\n"));
}

TEST(EventLog, GoesToTheScreenWhereItsFileCantBeOpenedAndSaysWhy) {
    testing::internal::CaptureStderr();
    exchange::EventLog(u"/none/log"_s).line(u"開始"_s);
    const QString told = QString::fromStdString(testing::internal::GetCapturedStderr());
    EXPECT_TRUE(told.contains(u"記録ファイル /none/log を開けません"_s) && told.contains(u"開始"_s))
        << told.toStdString();
}

TEST_F(TurnService, TellsAnAdministratorWhoHasTheTurn) {
    start();
    const auto asked = [this](int asked_port) {
        QProcess program;
        program.start(qEnvironmentVariable("ROVENA_BIN") + u"/jyunban"_s,
            {u"--status"_s, u"--bind"_s, u"127.0.0.1"_s, u"--port"_s, QString::number(asked_port)});
        EXPECT_TRUE(wait_until([&] { return program.state() == QProcess::NotRunning; }));
        return std::pair(program.exitCode(), QString::fromUtf8(program.readAllStandardOutput()).trimmed());
    };
    EXPECT_EQ(asked(port), std::pair(0, u"順番は空いています。"_s));
    const RudeClient holder(port, takes_the_turn);
    ASSERT_TRUE(wait_until([&] { return log().contains(u"順番を受け取りました"_s); }));
    EXPECT_TRUE(asked(port).second.startsWith(u"127.0.0.1 が登録しています（"_s));
    QTcpServer silent_door;
    ASSERT_TRUE(silent_door.listen(QHostAddress(QHostAddress::LocalHost)));
    silent_door.close();
    EXPECT_EQ(asked(silent_door.serverPort()), std::pair(1, QString()));
}

TEST_F(TurnService, WithoutAManagerTurnsAreStillGranted) {
    start({u"--manager"_s, in(u"nothing"_s)});
    for (int turn = 0; turn < 2; ++turn) {
        Client client(port);
        EXPECT_TRUE(wait_until([&] { return client.done; }));
    }
    EXPECT_TRUE(log().contains(u"jyusinkanri: 開始できません"_s));
}

TEST_F(TurnService, ASilentHolderLosesTheTurnAndATermSignalEndsTheServiceCleanly) {
    start({u"--turn-seconds"_s, u"1"_s});
    const RudeClient silent(port, takes_the_turn);
    ASSERT_TRUE(wait_until([&] { return log().contains(u"順番を受け取りました"_s); }));
    Client next(port);
    EXPECT_TRUE(wait_until([&] { return next.done && manager_runs() == 2; }));
    EXPECT_EQ(bytes_of(in(u"runs"_s)).replace("\r\n", "\n"), ("--root " + folder.path().toUtf8() + "\n").repeated(2));
    const RudeClient holder(port, takes_the_turn);
    ASSERT_TRUE(wait_until([&] { return log().count(u"順番を受け取りました"_s) == 3; }));
    service.terminate();
    EXPECT_TRUE(wait_until([&] { return service.state() == QProcess::NotRunning; }));
    EXPECT_EQ(service.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(service.exitCode(), 0);
    EXPECT_EQ(manager_runs(), 3) << "the holder may have posted";
}

TEST_F(TurnService, WhatCannotBeListenedOnIsSaid) {
    QTcpServer other;
    ASSERT_TRUE(other.listen(QHostAddress(QHostAddress::LocalHost)));
    const std::pair<QString, int> cases[] = {
        {u"--bind 127.0.0.1 --root / --port "_s + QString::number(other.serverPort()), 1},
        {u"--port 65536 --root /"_s, 2}, {u"--bind nowhere --root /"_s, 2}, {u"--port 0"_s, 2}};
    for (const auto& [arguments, status] : cases) {
        QProcess program;
        program.start(qEnvironmentVariable("ROVENA_BIN") + u"/jyunban"_s, arguments.split(u' '));
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitCode(), status) << arguments.toStdString();
        EXPECT_NE(program.readAllStandardError(), "") << arguments.toStdString();
    }
}
