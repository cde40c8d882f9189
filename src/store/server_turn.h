#pragma once

// Who is alone among all PCs of a data server: a lock of this program's connection, which the server takes back at once
// when the program or its PC dies.

#include <QString>
#include <chrono>
#include <memory>
#include <optional>

namespace store {

class ServerTurn {
public:
    /// The turn stays with whoever has it, whether the others' programs run or not; it goes back when this ends.
    /// Whoever has it for longer than half a minute without a word to the server loses it.
    ServerTurn() = default;
    ServerTurn(const ServerTurn&) = delete;
    ServerTurn& operator=(const ServerTurn&) = delete;
    virtual ~ServerTurn() = default;

    /// Whether it is had by then; it is waited for further until this ends, and so is the connection, if none was open.
    /// Isn't called again once it is had. Throws store::Error where the server can't be reached.
    virtual bool take_within(std::chrono::milliseconds patience) = 0;
    /// Whether the server knows that it is waited for; before that only the connection is, as long as that takes.
    virtual bool is_asked() const = 0;

    struct Holder {
        QString pc;
        std::chrono::seconds since;
    };
    /// Nothing if nobody has it now. Code::Away or Io where the server doesn't tell by then.
    virtual std::optional<Holder> holder(std::chrono::milliseconds patience) = 0;
    /// Asks without waiting for the answer, which last_holder() gives when it has come; until then, and where it can't
    /// be asked, the one before.
    virtual void ask_for_holder() = 0;
    virtual std::optional<Holder> last_holder() = 0;
};

enum class TurnFor {
    Posting, ///< the database is written meanwhile, by this thread, as if its write lock were held
    Applying,
};

/// The turn with the database at the path; nothing where that is a file, or missing.
std::unique_ptr<ServerTurn> server_turn(const QString& path, TurnFor what);

} // namespace store
