#include "base/literals.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QHostAddress>
#include <QProcess>
#include <QRegularExpression>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QThread>
#include <QTimer>
#include <functional>
#include <memory>

using namespace base;

namespace {

/// Lets events happen until the condition holds; false after a time that only a broken service needs.
bool happens(const std::function<bool()>& condition) {
    QElapsedTimer time;
    for (time.start(); !condition() && time.elapsed() < 240'000;) {
        // Waiting for an event alone would sleep through what happens in files.
        QCoreApplication::processEvents();
        QThread::msleep(1);
    }
    return condition();
}

QByteArray content(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The program jyunban on a free port, with a manager that writes down its runs and is seen while it runs.
class TurnService : public testing::Test {
protected:
    void start(const QStringList& more = {}) {
        QDir(folder.path()).mkpath(u"comdata/data"_s);
        const QString manager = in(u"manager"_s);
        QFile script(manager);
        ASSERT_TRUE(script.open(QIODevice::WriteOnly));
        script.write("#!/bin/sh\ncd '" + folder.path().toUtf8() +
                     "'\nmkdir running || echo together >> faults\necho \"$@\" >> runs\nrmdir running\n");
        script.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        script.close();
        service.setStandardErrorFile(in(u"stderr"_s));
        service.start(qEnvironmentVariable("ROVENA_BIN") + u"/jyunban"_s,
            QStringList{u"--port"_s, u"0"_s, u"--bind"_s, u"127.0.0.1"_s, u"--root"_s, folder.path(), u"--manager"_s,
                manager, u"--log"_s, in(u"log"_s)} +
                more);
        static const QRegularExpression opened(u"受付を開始しました 127\\.0\\.0\\.1:(\\d+)"_s);
        ASSERT_TRUE(happens([this] { return opened.match(log()).hasMatch(); })) << content(in(u"stderr"_s)).constData();
        port = opened.match(log()).captured(1).toUShort();
    }

    void TearDown() override {
        if (service.state() == QProcess::NotRunning)
            return;
        service.kill();
        service.waitForFinished();
    }

    QString in(const QString& name) const { return folder.filePath(name); }
    QString log() const { return QString::fromUtf8(content(in(u"log"_s))); }
    qsizetype manager_runs() const { return content(in(u"runs"_s)).count('\n'); }

    QTemporaryDir folder;
    QProcess service;
    quint16 port = 0;
};

/// A client as the desktop program has it: it says its next message when the answer has come.
struct Client {
    explicit Client(quint16 service_port) : port(service_port) {
        QObject::connect(&socket, &QTcpSocket::connected, &socket, [this] { socket.write("##127.0.0.1"); });
        QObject::connect(&socket, &QTcpSocket::readyRead, &socket, [this] { answer(socket.readAll().left(4)); });
        QObject::connect(&socket, &QTcpSocket::disconnected, &socket, [this] { again(); });
        QObject::connect(&socket, &QTcpSocket::errorOccurred, &socket, [this] { again(); });
        retry.setSingleShot(true);
        retry.callOnTimeout(&socket, [this] {
            socket.abort();
            connect();
        });
        connect();
    }
    ~Client() { socket.disconnect(); }

    void connect() { socket.connectToHost(QHostAddress(QHostAddress::LocalHost), port); }

    /// One that is refused comes again, as a person presses the button again.
    void again() {
        if (!done && !retry.isActive())
            retry.start(50);
    }

    void answer(const QByteArray& reply) {
        if (reply == "your" || reply == "stok")
            socket.write("st");
        else if (reply == "st-1")
            socket.write("so");
        else if (reply == "so-1") {
            on_hold(true);
            QTimer::singleShot(1, &socket, [this] {
                on_hold(false);
                socket.write("en");
            });
        } else if (reply == "en-1")
            socket.write("eo");
        else if (reply == "eo-1")
            done = true;
    }

    quint16 port;
    QTcpSocket socket;
    QTimer retry;
    bool done = false;
    std::function<void(bool)> on_hold = [](bool) {};
};

/// A client that says its piece, message by message, whatever the service answers, and then goes or stays silent.
struct RudeClient {
    RudeClient(quint16 port, QList<QByteArray> texts, bool goes) : pieces(std::move(texts)), leaves(goes) {
        QObject::connect(&socket, &QTcpSocket::connected, &socket, [this] { next(); });
        QObject::connect(&socket, &QTcpSocket::readyRead, &socket, [this] { next(); });
        QObject::connect(&socket, &QTcpSocket::disconnected, &socket, [this] { done = true; });
        QObject::connect(&socket, &QTcpSocket::errorOccurred, &socket, [this] { done = true; });
        socket.connectToHost(QHostAddress(QHostAddress::LocalHost), port);
    }
    ~RudeClient() { socket.disconnect(); }

    void next() {
        socket.readAll();
        if (!pieces.isEmpty())
            socket.write(pieces.takeFirst());
        else if (leaves)
            socket.abort();
    }

    QTcpSocket socket;
    QList<QByteArray> pieces;
    bool leaves;
    bool done = false;
};

const std::vector<std::pair<QList<QByteArray>, bool>> rudeness{
    {{"GET / HTTP/1.1\r\n\r\n"}, false},
    {{QByteArray(100'000, '\xff')}, false},
    {{"##" + QByteArray(100'000, 'a')}, false},
    {{"##127.0.0.1", QByteArray("st").repeated(10'000)}, false},
    {{"##127.0.0.1", "so"}, false},
    {{}, false},
    {{}, true},
    {{"##127.0.0.1", "st", "so"}, true},
};

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
    const auto all_done = [](const auto& clients) {
        return std::ranges::all_of(clients, [](const auto& client) { return client->done; });
    };
    EXPECT_TRUE(happens([&] { return all_done(polite) && all_done(rude); }));
    EXPECT_EQ(most_holders, 1);
    EXPECT_EQ(held_while_applying, 0);
    EXPECT_TRUE(happens([&] { return manager_runs() >= 100; }));
    EXPECT_EQ(content(in(u"faults"_s)), "");
    EXPECT_EQ(service.state(), QProcess::Running);
}

TEST_F(TurnService, WithoutAManagerTurnsAreStillGranted) {
    start({u"--manager"_s, in(u"nothing"_s)});
    for (int turn = 0; turn < 2; ++turn) {
        Client client(port);
        EXPECT_TRUE(happens([&] { return client.done; }));
    }
    EXPECT_TRUE(log().contains(u"jyusinkanri: 開始できません"_s));
}

TEST_F(TurnService, ASilentHolderLosesTheTurnAndATermSignalEndsTheServiceCleanly) {
    start({u"--turn-seconds"_s, u"1"_s});
    RudeClient silent(port, {"##127.0.0.1", "st", "so"}, false);
    ASSERT_TRUE(happens([&] { return log().contains(u"順番を受け取りました"_s); }));
    Client next(port);
    EXPECT_TRUE(happens([&] { return next.done && manager_runs() == 2; }));
    EXPECT_EQ(content(in(u"runs"_s)), ("--root " + folder.path().toUtf8() + "\n").repeated(2));
    RudeClient holder(port, {"##127.0.0.1", "st", "so"}, false);
    ASSERT_TRUE(happens([&] { return log().count(u"順番を受け取りました"_s) == 3; }));
    service.terminate();
    EXPECT_TRUE(happens([&] { return service.state() == QProcess::NotRunning; }));
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
