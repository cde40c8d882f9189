#pragma once

// Fetch over HTTP, straight to the server: no proxy, no cookies, no passwords. Only a plain answer with status 200 that
// comes whole, in time and within the size counts. A redirection is followed on the same server alone.

#include "frame/fetch.h"

#include <QObject>
#include <QPointer>

namespace frame {

class HttpFetch : public Fetch {
public:
    HttpFetch() = default;
    ~HttpFetch() override;
    HttpFetch(const HttpFetch&) = delete;
    HttpFetch& operator=(const HttpFetch&) = delete;

    /// `address` begins with "http://"; nothing comes from any other.
    void get(const QUrl& address, const FetchLimits& limits, Done done) override;
    void stop() override;

private:
    QPointer<QObject> m_transfer;
};

} // namespace frame
