#pragma once

// Fetching a file from a web server in the background of the event loop, as a form sees it.

#include <QByteArray>
#include <QUrl>
#include <chrono>
#include <functional>

namespace frame {

/// What a server may cost.
struct FetchLimits {
    qsizetype bytes;                ///< the largest file that is taken
    std::chrono::milliseconds time; ///< from the call to the last byte
};

class Fetch {
public:
    /// Given the whole file, or null if it didn't come.
    using Done = std::function<void(const QByteArray* file)>;

    virtual ~Fetch() = default;

    /// Fetches one file; what was under way before is dropped. Returns at once, and `done` is called later, once.
    virtual void get(const QUrl& address, const FetchLimits& limits, Done done) = 0;
    /// Drops what is under way; its `done` isn't called any more.
    virtual void stop() = 0;
};

} // namespace frame
