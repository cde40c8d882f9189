#pragma once

// The granting of turns, as a pure state machine: no sockets and no clock of its own. What happens is told to it with
// the time, and it answers with what is to be done.
//
// One client holds the turn at a time, first come first served. A client that has to wait is told "stok", but only
// after a pause, so that those who wait don't spin; if the turn comes free in the pause, the answer is "st-1" at once.
// After a turn the exchange manager runs, and the next turn is granted when it has ended. A holder that goes away or is
// silent too long loses the turn; from its "so" on it may have posted, so the manager runs then as well. Repeating the
// last message gets the same answer again; any other message out of its place closes that client only.

#include "exchange/turn_messages.h"

#include <QString>
#include <chrono>
#include <deque>
#include <map>
#include <optional>

namespace exchange {

using Time = std::chrono::milliseconds; ///< since a start that stays the same
using ClientId = qint64;

struct TurnLimits {
    int connections = 64;       ///< clients at a time; the next one is closed at once
    qsizetype bytes_kept = 256; ///< of one client's unfinished text
    int messages_a_second = 20; ///< of one client
    Time pause{500};            ///< how long "stok" is held back
    Time patience{3000};        ///< silence of a client whose message is due
    Time turn_patience{30000};  ///< silence of the client that holds the turn
};

struct Action {
    enum class What { Send, Close, StartManager };
    What what;
    ClientId client = 0;
    QByteArray reply = {}; ///< what to send
    QString reason = {};   ///< why the client is closed; empty after a turn given back in order
};
using Actions = std::vector<Action>;

class Turns {
public:
    explicit Turns(const TurnLimits& limits = {}) : m_limits(limits) {}

    Actions connected(ClientId client, Time now);
    Actions received(ClientId client, QByteArrayView bytes, Time now);
    Actions disconnected(ClientId client, Time now);
    Actions manager_ended(Time now); ///< also when it couldn't be started
    Actions time_passed(Time now);

    /// When time_passed() is due next; nothing while no client is connected.
    std::optional<Time> next_deadline() const;

    /// How the client named itself; empty for a client that isn't connected.
    QByteArray address(ClientId client) const;

private:
    enum class State { Connected, Greeted, Waiting, Granted, Holding, Leaving };
    struct Client {
        MessageReader reader;
        State state = State::Connected;
        Time deadline{};
        bool asking = false; ///< an "st" is unanswered
        Time second{};       ///< start of the second in which messages are counted
        int messages = 0;
    };
    struct Rule;

    void take(ClientId id, Message message, Time now);
    void ask(ClientId id, Client& client, Time now);
    void answer(ClientId id, Client& client, const Rule& rule, Time now);
    void time_is_up(ClientId id, Time now);
    bool too_fast(Client& client, Time now) const;
    void close(ClientId id, const QString& reason);
    void leave(ClientId id);
    void grant_next(Time now);
    void send(ClientId id, QByteArrayView reply);
    Actions done(Time now);

    TurnLimits m_limits;
    std::map<ClientId, Client> m_clients;
    std::deque<ClientId> m_waiting; ///< in the order of their first question
    std::optional<ClientId> m_holder;
    bool m_manager_runs = false;
    Actions m_actions;
};

} // namespace exchange
