#include "frame/turn_link.h"

#include "base/literals.h"

#include <QHostAddress>
#include <QNetworkProxy>

namespace frame {

using namespace base;
using namespace std::chrono_literals;

namespace {

constexpr int reply_length = 4;
constexpr qint64 most_unread = 1024; ///< whatever takes itself for the service
constexpr auto patience = 10s;
constexpr auto pause = 20ms;

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
    if (m_settings.use_class == 0)
        return true;
    show(u"●"_s);
    m_link_state = LinkState::Idle;
    m_socket.abort();
    m_socket.connectToHost(m_settings.server_name, m_port);
    const bool granted = wait_for(LinkState::Granted);
    if (!granted) {
        // First of all: a turn granted while the box stands open would be held by nobody.
        hang_up();
        m_host.tell(u"サーバーにアクセスできません。もう一度登録処理してください"_s, u"サーバー未接続"_s);
    }
    show(u"◎"_s);
    return granted;
}

void TurnLink::サーバー接続終了() {
    if (m_settings.use_class == 0 || m_link_state != LinkState::Granted)
        return;
    show(u"○"_s);
    m_link_state = LinkState::Releasing;
    send_for_state();
    if (!wait_for(LinkState::Idle))
        hang_up();
    show(QString());
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
    const auto limit = m_host.steady_now() + patience;
    const auto connected = [this] { return m_socket.state() != QAbstractSocket::UnconnectedState; };
    while (m_link_state != state && connected() && m_host.steady_now() < limit)
        m_host.wait(pause);
    return m_link_state == state;
}

void TurnLink::hang_up() {
    // A turn that the service granted later would be held by nobody.
    m_link_state = LinkState::Idle;
    m_socket.abort();
}

void TurnLink::show(const QString& mark) {
    if (m_show)
        m_show(mark);
}

} // namespace frame
