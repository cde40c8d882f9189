#pragma once

// What each address has had of the turn service, so that none crowds out the others: neither by many connections nor by
// long turns. Several PCs may stand behind one address, so an address has no limit of its own as long as there is room
// for all.

#include <QByteArray>
#include <chrono>
#include <map>

namespace exchange {

using Time = std::chrono::milliseconds; ///< since a start that stays the same

class Shares {
public:
    struct Turn {
        QByteArray address;
        Time begun;
        Time left{};       ///< when its client had no more of it
        bool lost = false; ///< the client didn't go on in time
    };

    /// An address that keeps the turn longer than `long_turn` again and again gets none for as long as it had the last.
    explicit Shares(Time long_turn) : m_long_turn(long_turn) {}

    void connected(const QByteArray& address) { ++m_shares[address].connections; }
    void disconnected(const QByteArray& address); ///< of one that was told as connected
    /// 0 for an address that isn't known.
    int connections(const QByteArray& address) const;
    /// The address with the most connections; empty if there is none.
    QByteArray busiest() const;

    /// Has to be told before `place()` is asked. What an address didn't use while it wanted no turn isn't saved up.
    void wants_turn(const QByteArray& address);
    /// The smaller it is, the sooner its turn comes: it grows with the time for which it has had the turn.
    Time place(const QByteArray& address) const { return m_shares.at(address).place; }
    bool rests(const QByteArray& address, Time now) const { return now < m_shares.at(address).rests_until; }
    Turn begin_turn(const QByteArray& address, Time now);
    /// Nobody else could have the turn until now.
    void end_turn(const Turn& turn, Time now);
    /// What the address has of a limit: it halves with every turn lost, and doubles again with every other one.
    Time allowed(const QByteArray& address, Time limit) const;
    /// The same of a limit for taking the turn, which an honest client does at once: here the turns that all addresses
    /// lost count as well.
    Time allowed_to_take(const QByteArray& address, Time limit) const;

private:
    struct Share {
        int connections = 0;
        Time place{0};
        int lost_turns = 0;
        Time suspect_until{0};
        Time rests_until{0};
        Time remembered_until{0}; ///< beyond its last connection
    };

    Time m_long_turn;
    Time m_served{0}; ///< place of the turn given last
    int m_lost_turns = 0;
    std::map<QByteArray, Share> m_shares;
};

} // namespace exchange
