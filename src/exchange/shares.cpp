#include "exchange/shares.h"

#include <algorithm>

namespace exchange {

using namespace std::chrono_literals;

namespace {

constexpr Time memory = 60s;
constexpr int most_lost_turns = 6;

} // namespace

void Shares::disconnected(const QByteArray& address) {
    const auto found = m_shares.find(address);
    if (--found->second.connections == 0 && found->second.remembered_until == 0ms)
        m_shares.erase(found);
}

int Shares::connections(const QByteArray& address) const {
    const auto found = m_shares.find(address);
    return found == m_shares.end() ? 0 : found->second.connections;
}

QByteArray Shares::busiest() const {
    const auto most =
        std::ranges::max_element(m_shares, {}, [](const auto& entry) { return entry.second.connections; });
    return most == m_shares.end() ? QByteArray() : most->first;
}

void Shares::wants_turn(const QByteArray& address) {
    Share& share = m_shares.at(address);
    share.place = std::max(share.place, m_served);
}

Shares::Turn Shares::begin_turn(const QByteArray& address, Time now) {
    Share& share = m_shares.at(address);
    m_served = std::max(m_served, share.place);
    share.remembered_until = Time::max();
    return {address, now};
}

Time Shares::allowed(const QByteArray& address, Time limit) const {
    return limit / (1 << m_shares.at(address).lost_turns);
}

Time Shares::allowed_to_take(const QByteArray& address, Time limit) const {
    return std::min(allowed(address, limit), limit / (1 << m_lost_turns));
}

void Shares::end_turn(const Turn& turn, Time now) {
    Share& share = m_shares.at(turn.address);
    const Time kept = turn.left - turn.begun;
    share.place += std::max(now - turn.begun, Time(1));
    for (int* lost : {&share.lost_turns, &m_lost_turns})
        *lost = std::clamp(*lost + (turn.lost ? 1 : -1), 0, most_lost_turns);
    share.remembered_until = now + memory + kept;
    if (kept > m_long_turn) {
        if (now < share.suspect_until)
            share.rests_until = now + kept;
        share.suspect_until = share.remembered_until;
    }
    std::erase_if(m_shares,
        [now](const auto& entry) { return entry.second.connections == 0 && entry.second.remembered_until <= now; });
}

} // namespace exchange
