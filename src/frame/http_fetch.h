#pragma once

// Fetch over HTTP, straight to the server: no proxy, no cookies, no stored passwords. Only a plain answer with status
// 200 that comes whole, in time and within the size counts. A redirection is followed on the same server alone.

#include "frame/fetch.h"

#include <QObject>
#include <QPointer>
#include <memory>

class QNetworkAccessManager;

namespace frame {

class HttpFetch : public Fetch {
public:
    /// Costs nothing before the first get().
    HttpFetch();
    ~HttpFetch() override;
    HttpFetch(const HttpFetch&) = delete;
    HttpFetch& operator=(const HttpFetch&) = delete;

    void get(const QUrl& address, const FetchLimits& limits, Done done) override;
    void stop() override;

private:
    std::unique_ptr<QNetworkAccessManager> m_network;
    QPointer<QObject> m_transfer;
};

} // namespace frame
