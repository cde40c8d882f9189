#include "exchange/turn_server.h"

#include "base/literals.h"

#include <QTcpSocket>
#include <algorithm>
#include <array>
#include <utility>

namespace exchange {

using namespace base;

namespace {

// A client that reads none of its four-letter answers is gone in all but name.
constexpr qint64 most_unsent_bytes = 1024;

struct Note {
    QByteArrayView reply;
    QStringView text;
};
constexpr std::array<Note, 3> notes{{
    {"st-1", u"順番を渡しました"},
    {"so-1", u"順番を受け取りました"},
    {"eo-1", u"順番を返しました"},
}};

/// One form for an address, whatever kind of socket it came in by.
QString address_of(const QTcpSocket& socket) {
    bool is_v4 = false;
    const quint32 v4 = socket.peerAddress().toIPv4Address(&is_v4);
    return is_v4 ? QHostAddress(v4).toString() : socket.peerAddress().toString();
}

QString place_of(const QTcpSocket& socket) {
    return u"%1:%2"_s.arg(address_of(socket)).arg(socket.peerPort());
}

} // namespace

TurnServer::TurnServer(TurnServerOptions options, EventLog& log)
    : m_options(std::move(options)), m_log(log), m_turns(m_options.limits) {
    m_clock.start();
    m_deadline.setSingleShot(true);
    m_manager_deadline.setSingleShot(true);
    m_manager.setProcessChannelMode(QProcess::ForwardedChannels);
    m_manager.setStandardInputFile(QProcess::nullDevice());
    // Queued: a crowd at the door is let in a batch at a time, and those inside are heard in between.
    QObject::connect(
        &m_server, &QTcpServer::newConnection, &m_server, [this] { accept(); }, Qt::QueuedConnection);
    QObject::connect(&m_server, &QTcpServer::acceptError, &m_server, [this] { door_stuck(); });
    QObject::connect(&m_deadline, &QTimer::timeout, &m_server, [this] { carry_out(m_turns.time_passed(now())); });
    QObject::connect(&m_manager_deadline, &QTimer::timeout, &m_manager, &QProcess::kill);
    QObject::connect(&m_manager, &QProcess::finished, &m_server, [this](int code, QProcess::ExitStatus status) {
        manager_ended(status == QProcess::NormalExit ? u"終了しました (%1)"_s.arg(code) : u"途中で終わりました"_s);
    });
    QObject::connect(&m_manager, &QProcess::errorOccurred, &m_server, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            manager_ended(u"開始できません: "_s + m_manager.errorString());
    });
}

TurnServer::~TurnServer() {
    for (const auto& [id, socket] : m_sockets)
        socket->disconnect(&m_server);
    m_manager.disconnect(&m_server);
}

bool TurnServer::listen() {
    // Where the queue of the system is full, a client takes itself for connected and the service never hears of it.
    constexpr int backlog = 1024;
    constexpr int batch = 8;
    m_server.setListenBacklogSize(backlog);
    m_server.setMaxPendingConnections(batch);
    const bool open = m_server.listen(m_options.bind, m_options.port);
    const QString place = u"%1:%2"_s.arg(m_options.bind.toString()).arg(open ? port() : m_options.port);
    m_log.line(
        open ? u"受付を開始しました "_s + place : u"受付を開始できません %1: %2"_s.arg(place, m_server.errorString()));
    return open;
}

void TurnServer::stop(std::function<void()> stopped) {
    if (m_stopped)
        return;
    m_stopped = std::move(stopped);
    m_log.line(u"受付を終了します"_s);
    m_server.close();
    for (const auto& [id, socket] : std::exchange(m_sockets, {})) {
        socket->disconnect(&m_server);
        socket->abort();
        carry_out(m_turns.disconnected(id, now()));
    }
    if (m_manager.state() == QProcess::NotRunning)
        m_stopped();
    else
        m_manager_deadline.start(m_options.stop_limit);
}

void TurnServer::accept() {
    while (QTcpSocket* socket = m_server.nextPendingConnection()) {
        const ClientId id = ++m_last_id;
        m_sockets.emplace(id, socket);
        socket->setReadBufferSize(m_options.limits.bytes_kept + 1);
        note(id, u"接続しました"_s);
        QObject::connect(socket, &QTcpSocket::readyRead, &m_server, [this, id] { read(id); });
        QObject::connect(socket, &QTcpSocket::disconnected, &m_server, [this, id] { lost(id); });
        carry_out(m_turns.connected(id, address_of(*socket).toLatin1(), now()));
        hear_what_came_early(id);
    }
}

/// Windows tells of a client's first words, and of its going, before it was let in: nobody listened then.
void TurnServer::hear_what_came_early(ClientId id) {
    if (const auto found = m_sockets.find(id); found != m_sockets.end() && found->second->bytesAvailable() > 0)
        read(id);
    if (const auto found = m_sockets.find(id);
        found != m_sockets.end() && found->second->state() == QAbstractSocket::UnconnectedState)
        lost(id);
}

/// The system had no more to give, an open file most of all; the server then stands still until it is told to go on.
void TurnServer::door_stuck() {
    constexpr std::chrono::milliseconds while_others_leave(100);
    m_log.line_from_outside(u"接続を受け付けられません: "_s + m_server.errorString());
    QTimer::singleShot(while_others_leave, &m_server, [this] {
        if (m_server.isListening())
            m_server.resumeAccepting();
    });
}

void TurnServer::read(ClientId id) {
    if (const auto found = m_sockets.find(id); found != m_sockets.end())
        carry_out(m_turns.received(id, found->second->readAll(), now()));
}

void TurnServer::lost(ClientId id) {
    note(id, u"切断されました"_s);
    m_sockets.at(id)->deleteLater();
    m_sockets.erase(id);
    carry_out(m_turns.disconnected(id, now()));
}

void TurnServer::carry_out(const Actions& actions) {
    for (const Action& action : actions) {
        switch (action.what) {
        case Action::What::Send:
            send(action);
            break;
        case Action::What::Close:
            close(action);
            break;
        case Action::What::StartManager:
            start_manager();
            break;
        }
    }
    arm();
}

void TurnServer::send(const Action& action) {
    const auto found = m_sockets.find(action.client);
    if (found == m_sockets.end())
        return;
    if (const auto told = std::ranges::find(notes, action.reply, &Note::reply); told != notes.end())
        note(action.client, told->text.toString());
    QTcpSocket* socket = found->second;
    socket->write(action.reply);
    if (socket->bytesToWrite() > most_unsent_bytes)
        socket->abort();
}

void TurnServer::close(const Action& action) {
    const auto found = m_sockets.find(action.client);
    if (found == m_sockets.end())
        return;
    if (!action.reason.isEmpty())
        note(action.client, u"切断します: "_s + action.reason);
    QTcpSocket* socket = found->second;
    m_sockets.erase(found);
    socket->disconnect(&m_server);
    socket->flush();
    socket->disconnectFromHost();
    socket->deleteLater();
}

void TurnServer::start_manager() {
    m_log.line_from_outside(u"jyusinkanriを開始します"_s);
    m_manager_deadline.start(m_options.manager_limit);
    m_manager.start(m_options.manager, m_options.manager_arguments);
}

void TurnServer::manager_ended(const QString& how) {
    m_log.line_from_outside(u"jyusinkanri: "_s + how);
    m_manager_deadline.stop();
    carry_out(m_turns.manager_ended(now()));
    if (m_stopped && !m_server.isListening())
        m_stopped();
}

void TurnServer::arm() {
    const auto next = m_turns.next_deadline();
    if (next)
        m_deadline.start(std::max(*next - now(), Time(1)));
    else
        m_deadline.stop();
}

void TurnServer::note(ClientId id, const QString& text) {
    const QByteArray name = m_turns.address(id);
    m_log.line_from_outside(u"%1%2 %3"_s.arg(
        place_of(*m_sockets.at(id)), name.isEmpty() ? QString() : u" (%1)"_s.arg(QString::fromLatin1(name)), text));
}

} // namespace exchange
