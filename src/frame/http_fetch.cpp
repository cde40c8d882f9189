#include "frame/http_fetch.h"

#include <QNetworkAccessManager>
#include <QNetworkProxy>
#include <QNetworkReply>
#include <QTimer>
#include <optional>

namespace frame {

namespace {

constexpr int status_ok = 200;
constexpr int redirections = 3;
constexpr qint64 unread_bytes = 64 * 1024; ///< how far the server may run ahead

QNetworkRequest request_for(const QUrl& address) {
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::SameOriginRedirectPolicy);
    request.setMaximumRedirectsAllowed(redirections);
    for (const auto attribute : {QNetworkRequest::CookieLoadControlAttribute,
             QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::AuthenticationReuseAttribute})
        request.setAttribute(attribute, QNetworkRequest::Manual);
    // Bytes stay as they are sent: nothing small unfolds into something huge.
    request.setRawHeader("Accept-Encoding", "identity");
    return request;
}

/// One file on its way. It deletes itself when it has ended.
class Transfer : public QObject {
public:
    Transfer(QNetworkReply* reply, const FetchLimits& limits, Fetch::Done done)
        : m_reply(reply), m_most(limits.bytes), m_done(std::move(done)) {
        m_reply->setParent(this);
        m_reply->setReadBufferSize(unread_bytes);
        connect(m_reply, &QIODevice::readyRead, this, [this] { take(); });
        connect(m_reply, &QNetworkReply::finished, this, [this] {
            take();
            end(came_whole());
        });
        QTimer::singleShot(limits.time, this, [this] { end(/*whole=*/false); });
    }

    ~Transfer() override { m_reply->disconnect(this); }

private:
    void take() {
        if (m_ended)
            return;
        m_file += m_reply->read(m_most - m_file.size() + 1);
        if (m_file.size() > m_most)
            end(/*whole=*/false);
    }

    bool came_whole() const {
        const QVariant length = m_reply->header(QNetworkRequest::ContentLengthHeader);
        return m_reply->error() == QNetworkReply::NoError &&
               m_reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() == status_ok &&
               (!length.isValid() || length.toLongLong() == m_file.size());
    }

    /// Tells the outcome from the event loop, not out of the network's own code. Whoever is told may ask for the next
    /// file at once, which deletes this object.
    void end(bool whole) {
        if (std::exchange(m_ended, true))
            return;
        m_reply->abort();
        QTimer::singleShot(0, this, [this, whole] {
            const Fetch::Done done = std::move(m_done);
            const QByteArray file = std::move(m_file);
            deleteLater();
            done(whole ? &file : nullptr);
        });
    }

    QNetworkReply* m_reply;
    qsizetype m_most;
    Fetch::Done m_done;
    QByteArray m_file;
    bool m_ended = false;
};

} // namespace

HttpFetch::HttpFetch() = default;

HttpFetch::~HttpFetch() {
    delete m_transfer;
}

void HttpFetch::get(const QUrl& address, const FetchLimits& limits, Done done) {
    stop();
    if (!m_network) {
        m_network = std::make_unique<QNetworkAccessManager>();
        m_network->setProxy(QNetworkProxy::NoProxy);
    }
    m_transfer = new Transfer(m_network->get(request_for(address)), limits, std::move(done));
}

void HttpFetch::stop() {
    delete m_transfer;
}

} // namespace frame
