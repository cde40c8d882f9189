#include "frame/turn_link.h"

#include "base/literals.h"
#include "store/files.h"

#include <QHostAddress>
#include <QNetworkProxy>
#include <QScopeGuard>
#include <utility>

namespace frame {

using namespace base;
using namespace std::chrono_literals;

namespace {

constexpr int reply_length = 4;
constexpr qint64 most_unread = 1024; ///< whatever takes itself for the service
constexpr auto patience = 10s;
constexpr auto pause = 20ms;
constexpr auto silent_wait = 1s; ///< most turns come before that
constexpr auto between_questions = 2s;
constexpr auto latest_question = 7s; ///< where nobody sees the answer, which costs a connection
constexpr auto longest_way = 120s;   ///< to a data server, whatever its connection's own limits are
constexpr auto last_look = 2s;       ///< whoever answers no question by then isn't waited for either

/// What a reply does, told by the state it arrives in. Any other reply changes nothing.
struct Reply {
    LinkState in;
    QByteArrayView text;
    LinkState next;
};
constexpr Reply replies[]{
    {LinkState::Asking, "your", LinkState::Asking},
    {LinkState::Asking, "stok", LinkState::Asking},
    {LinkState::Asking, "st-1", LinkState::Asked},
    {LinkState::Asked, "so-1", LinkState::Granted},
    {LinkState::Releasing, "en-1", LinkState::Released},
    {LinkState::Released, "eo-1", LinkState::Idle},
};

LinkState after(LinkState state, QByteArrayView reply) {
    for (const Reply& r : replies)
        if (r.in == state && r.text == reply)
            return r.next;
    return state;
}

QByteArray message_in(LinkState state) {
    switch (state) {
    case LinkState::Asking:
        return "st"_ba;
    case LinkState::Asked:
        return "so"_ba;
    case LinkState::Releasing:
        return "en"_ba;
    case LinkState::Released:
        return "eo"_ba;
    default:
        return {};
    }
}

} // namespace

TurnLink::TurnLink(
    const base::Settings& settings, platform::Host& host, std::function<void(const QString&)> show, quint16 port)
    : m_settings(settings), m_host(host), m_show(std::move(show)), m_port(port) {
    m_socket.setProxy(QNetworkProxy::NoProxy);
    m_socket.setReadBufferSize(most_unread);
    QObject::connect(&m_socket, &QTcpSocket::connected, &m_socket, [this] { introduce(); });
    QObject::connect(&m_socket, &QTcpSocket::readyRead, &m_socket, [this] { reply_arrived(); });
}

bool TurnLink::サーバー接続開始() {
    m_on_server = store::server_turn(store::exchange_path(m_settings, store::posting_file), store::TurnFor::Posting);
    if (m_on_server)
        return wait_on_server();
    if (m_settings.use_class == 0)
        return true;
    show(u"●"_s);
    m_link_state = LinkState::Idle;
    m_given_up = false;
    m_status.reset();
    m_question.forget();
    m_next_question = m_host.steady_now();
    m_socket.abort();
    m_socket.connectToHost(m_settings.server_name, m_port);
    const bool granted = wait_for(LinkState::Granted);
    wait_is_over();
    if (!granted) {
        // First of all: a turn granted while the box stands open would be held by nobody.
        hang_up();
        if (m_given_up) {
            show(QString());
            return false;
        }
        m_host.tell(u"サーバーにアクセスできません。もう一度登録処理してください"_s, u"サーバー未接続"_s);
    }
    show(u"◎"_s);
    return granted;
}

void TurnLink::サーバー接続終了() {
    if (std::exchange(m_on_server, {}))
        return show(QString());
    if (m_settings.use_class == 0 || m_link_state != LinkState::Granted)
        return;
    show(u"○"_s);
    m_link_state = LinkState::Releasing;
    send_for_state();
    if (!wait_for(LinkState::Idle))
        hang_up();
    show(QString());
}

bool TurnLink::wait_on_server() {
    show(u"●"_s);
    auto failed = qScopeGuard([this] {
        wait_is_over();
        m_on_server.reset();
        show(QString());
    });
    bool granted = server_grants_in_time();
    wait_is_over();
    if (!granted && !m_given_up)
        granted = is_to_be_had_after_all();
    failed.dismiss();
    if (!granted)
        m_on_server.reset();
    if (!granted && !m_given_up)
        m_host.tell(u"ほかのＰＣの登録が続いています。もう一度登録処理してください"_s, u"登録の順番"_s);
    show(m_given_up ? QString() : u"◎"_s);
    return granted;
}

/// The server is waited for in its own time, a little at once, between which the interface runs. The way to it has
/// limits of its own.
bool TurnLink::server_grants_in_time() {
    using clock = std::chrono::steady_clock;
    const auto since = clock::now();
    auto limit = since + patience;
    m_status.reset();
    m_next_question = since + (on_waiting ? silent_wait : latest_question);
    m_given_up = false;
    while (!m_on_server->take_within(pause)) {
        if (clock::now() >= limit || !goes_on_waiting_on_server(since))
            return false;
        m_host.yield();
        if (!m_on_server->is_asked() && clock::now() < since + longest_way) // the first of two may be silent
            limit = clock::now() + patience;
    }
    return true;
}

/// Throws where it is the server that is silent.
bool TurnLink::is_to_be_had_after_all() {
    return !m_on_server->holder(last_look) && m_on_server->take_within(last_look);
}

bool TurnLink::goes_on_waiting_on_server(std::chrono::steady_clock::time_point since) {
    const auto now = std::chrono::steady_clock::now();
    if (now - since < silent_wait)
        return true;
    if (now >= m_next_question) {
        m_on_server->ask_for_holder();
        m_next_question = now + between_questions;
    }
    m_status = status_on_server();
    if (!on_waiting)
        return true;
    m_given_up = !on_waiting({std::chrono::duration_cast<std::chrono::milliseconds>(now - since), m_status});
    return !m_given_up;
}

std::optional<TurnStatus> TurnLink::status_on_server() {
    const auto holder = m_on_server->last_holder();
    if (!holder)
        return std::nullopt;
    return TurnStatus{TurnStatus::State::Held, holder->pc.toUtf8(), holder->since};
}

void TurnLink::introduce() {
    m_link_state = LinkState::Asking;
    m_socket.write("##"_ba + m_socket.localAddress().toString().toUtf8());
}

void TurnLink::reply_arrived() {
    if (m_socket.bytesAvailable() < reply_length)
        return;
    m_link_state = after(m_link_state, m_socket.readAll().first(reply_length));
    m_host.yield();
    send_for_state();
}

void TurnLink::send_for_state() {
    // What has come in by now still belongs to the reply before: only its first characters count.
    m_socket.readAll();
    if (m_link_state == LinkState::Idle)
        m_socket.disconnectFromHost();
    else if (m_socket.state() == QAbstractSocket::ConnectedState)
        m_socket.write(message_in(m_link_state));
}

bool TurnLink::wait_for(LinkState state) {
    const auto since = m_host.steady_now();
    const auto limit = since + patience;
    const auto connected = [this] { return m_socket.state() != QAbstractSocket::UnconnectedState; };
    while (m_link_state != state && connected() && m_host.steady_now() < limit)
        if (m_host.wait(pause); state == LinkState::Granted && !goes_on_waiting(since))
            break;
    return m_link_state == state;
}

/// Nobody gives up a turn that is there already.
bool TurnLink::goes_on_waiting(std::chrono::steady_clock::time_point since) {
    const auto now = m_host.steady_now();
    if (!on_waiting || m_link_state != LinkState::Asking || now - since < silent_wait)
        return true;
    if (m_question.answered())
        m_status = m_question.answer();
    if (now >= m_next_question) {
        m_question.ask(m_settings.server_name, m_port);
        m_next_question = now + between_questions;
    }
    m_given_up = !on_waiting({std::chrono::duration_cast<std::chrono::milliseconds>(now - since), m_status});
    return !m_given_up;
}

void TurnLink::hang_up() {
    // A turn that the service granted later would be held by nobody.
    m_link_state = LinkState::Idle;
    m_socket.abort();
}

void TurnLink::wait_is_over() {
    if (on_waited)
        on_waited();
}

void TurnLink::show(const QString& mark) {
    if (m_show)
        m_show(mark);
}

} // namespace frame
