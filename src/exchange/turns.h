#pragma once

// The granting of turns, as a pure state machine: no sockets and no clock of its own. What happens is told to it with
// the time, and it answers with what is to be done.
//
// One client holds the turn at a time. Addresses share the turns by the time they take (see shares.h); of one address,
// or of addresses that had equally much, who came first is served first. A client that has to wait is told "stok", but
// only after a pause, so that those who wait don't spin; if the turn comes free in the pause, the answer is "st-1" at
// once. After a turn the exchange manager runs, and the next turn is granted when it has ended. A holder that goes away
// or takes too long loses the turn; from its "so" on it may have posted, so the manager runs then as well. Repeating
// the last message gets the same answer again, but no more time; any other message out of its place closes that client
// only.

#include "exchange/shares.h"
#include "exchange/turn_messages.h"
#include "frame/turn_status.h"

#include <QString>
#include <chrono>
#include <deque>
#include <map>
#include <optional>

namespace exchange {

using ClientId = qint64;

struct TurnLimits {
    int connections = 512;      ///< clients at a time; then the address with the most gives way, or the next is closed
    qsizetype bytes_kept = 256; ///< of one client's unfinished text
    int messages_a_second = 20; ///< of one client
    Time pause{500};            ///< how long "stok" is held back
    Time patience{3000};        ///< for a client's message that is due
    Time turn{30000};           ///< from taking the turn to giving it back
    Time long_turn{10000};      ///< as long as a client waits for the turn: a longer one has kept others out
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
    explicit Turns(const TurnLimits& limits = {}) : m_limits(limits), m_shares(limits.long_turn) {}

    /// `address` is where the client's connection comes from, which it can't choose.
    Actions connected(ClientId client, const QByteArray& address, Time now);
    Actions received(ClientId client, QByteArrayView bytes, Time now);
    Actions disconnected(ClientId client, Time now);
    Actions manager_ended(Time now); ///< also when it couldn't be started
    Actions time_passed(Time now);

    /// When time_passed() is due next; nothing while no client is connected.
    std::optional<Time> next_deadline() const;

    /// Who has the turn. A client that asks for it is answered and closed.
    frame::TurnStatus status(Time now) const;

    /// How the client named itself; empty for a client that isn't connected.
    QByteArray address(ClientId client) const;

private:
    enum class State {
        Connected,
        Greeted,
        Waiting,
        Called, ///< the turn is kept for it until its next question comes
        Granted,
        Holding,
        Leaving
    };
    struct Client {
        QByteArray address;
        MessageReader reader;
        State state = State::Connected;
        Time deadline{};
        Time given_up{};     ///< deadline of one that was called, for the question that is due
        bool asking = false; ///< an "st" is unanswered
        Time second{};       ///< start of the second in which messages are counted
        int messages = 0;
    };
    struct Rule;
    using Row = std::deque<ClientId>;

    void take(ClientId id, Message message, Time now);
    void tell_status(ClientId id, Time now);
    void ask(ClientId id, Client& client, Time now);
    void answer(ClientId id, Client& client, const Rule& rule, Time now);
    void enter(Client& client, State state, Time now);
    void time_is_up(ClientId id, Time now);
    bool too_fast(Client& client, Time now) const;
    void close(ClientId id, const QString& reason, Time now);
    void leave(ClientId id, Time now);
    bool make_room(const QByteArray& newcomer, Time now);
    std::optional<ClientId> dispensable(const QByteArray& address) const;
    Row::iterator next_in_row(Time now);
    void give_turn(ClientId id, Time now);
    void pass_over(ClientId id, Time now);
    void send(ClientId id, QByteArrayView reply);
    Actions done(Time now);

    TurnLimits m_limits;
    std::map<ClientId, Client> m_clients;
    Shares m_shares;
    Row m_waiting; ///< in the order of their first question
    std::optional<ClientId> m_holder;
    std::optional<Shares::Turn> m_turn; ///< until the next can be given
    bool m_manager_runs = false;
    Actions m_actions;
};

} // namespace exchange
