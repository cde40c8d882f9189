#include "frame/http_fetch.h"

#include "frame/http_answer.h"

#include <QNetworkProxy>
#include <QTcpSocket>
#include <QTimer>
#include <utility>

namespace frame {

namespace {

constexpr int web_port = 80;
constexpr int redirections = 3;
constexpr qint64 unread_bytes = 64 * 1024; ///< how far the server may run ahead

bool on_same_server(const QUrl& one, const QUrl& other) {
    return one.scheme() == other.scheme() && one.host() == other.host() && one.port(web_port) == other.port(web_port);
}

QByteArray request_for(const QUrl& address) {
    const QByteArray place = address.toEncoded(QUrl::RemoveScheme | QUrl::RemoveAuthority | QUrl::RemoveFragment);
    // Bytes stay as they are sent: nothing small unfolds into something huge.
    return "GET " + (place.startsWith('/') ? place : '/' + place) +
           " HTTP/1.1\r\nHost: " + address.authority(QUrl::FullyEncoded).toLatin1() +
           "\r\nUser-Agent: rovena\r\nAccept-Encoding: identity\r\nConnection: close\r\n\r\n";
}

/// One file on its way. It deletes itself when it has ended.
class Transfer : public QObject {
public:
    Transfer(const QUrl& address, const FetchLimits& limits, Fetch::Done done)
        : m_address(address), m_most(limits.bytes), m_answer(limits.bytes), m_done(std::move(done)) {
        m_socket.setProxy(QNetworkProxy::NoProxy);
        m_socket.setReadBufferSize(unread_bytes);
        connect(&m_socket, &QTcpSocket::connected, this, [this] { m_socket.write(request_for(m_address)); });
        connect(&m_socket, &QTcpSocket::readyRead, this, [this] { hear(); });
        connect(&m_socket, &QTcpSocket::stateChanged, this, [this](QAbstractSocket::SocketState state) {
            if (state == QAbstractSocket::UnconnectedState)
                lose();
        });
        QTimer::singleShot(limits.time, this, [this] { end(/*whole=*/false); });
        ask();
    }

    ~Transfer() override { m_socket.disconnect(this); }

private:
    void ask() {
        m_answer = HttpAnswer(m_most);
        if (m_address.scheme() == u"http")
            m_socket.connectToHost(m_address.host(QUrl::FullyEncoded), quint16(m_address.port(web_port)));
        else
            end(/*whole=*/false);
    }

    void hear() {
        if (m_answer.state() != HttpAnswer::State::Coming)
            return;
        m_answer.take(m_socket.readAll());
        settle();
    }

    void lose() {
        hear();
        if (m_answer.state() != HttpAnswer::State::Coming)
            return;
        m_answer.ends();
        settle();
    }

    void settle() {
        if (m_answer.state() == HttpAnswer::State::Moved)
            follow();
        else if (m_answer.state() != HttpAnswer::State::Coming)
            end(m_answer.state() == HttpAnswer::State::Whole);
    }

    void follow() {
        const QUrl there = m_address.resolved(QUrl::fromEncoded(m_answer.location()));
        if (!on_same_server(m_address, there) || ++m_redirections > redirections)
            return end(/*whole=*/false);
        m_address = there;
        m_socket.abort();
        QTimer::singleShot(0, this, [this] { ask(); });
    }

    /// Tells the outcome from the event loop, not out of the network's own code. Whoever is told may ask for the next
    /// file at once, which deletes this object.
    void end(bool whole) {
        if (std::exchange(m_ended, true))
            return;
        m_socket.disconnect(this);
        m_socket.abort();
        QTimer::singleShot(0, this, [this, whole] {
            const Fetch::Done done = std::move(m_done);
            const QByteArray file = m_answer.file();
            deleteLater();
            done(whole ? &file : nullptr);
        });
    }

    QUrl m_address;
    qsizetype m_most;
    HttpAnswer m_answer;
    Fetch::Done m_done;
    QTcpSocket m_socket;
    int m_redirections = 0;
    bool m_ended = false;
};

} // namespace

HttpFetch::~HttpFetch() {
    delete m_transfer;
}

void HttpFetch::get(const QUrl& address, const FetchLimits& limits, Done done) {
    stop();
    m_transfer = new Transfer(address, limits, std::move(done));
}

void HttpFetch::stop() {
    delete m_transfer;
}

} // namespace frame
