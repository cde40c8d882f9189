#include "exchange/turns.h"

#include "base/literals.h"

#include <algorithm>
#include <array>
#include <utility>

namespace exchange {

using namespace base;

/// What a message in its place gets: the reply and the state it leads to.
struct Turns::Rule {
    State state;
    Message message;
    QByteArrayView reply; ///< empty: the question for the turn, answered when the turn is decided
    State next;
    bool ends_turn = false;

    static const Rule* of(State state, Message message) {
        static constexpr std::array<Rule, 10> rules{{
            {State::Connected, Message::Greeting, "your", State::Greeted},
            {State::Greeted, Message::St, {}, State::Waiting},
            {State::Waiting, Message::St, {}, State::Waiting},
            {State::Called, Message::St, "st-1", State::Granted},
            {State::Granted, Message::St, "st-1", State::Granted},
            {State::Granted, Message::So, "so-1", State::Holding},
            {State::Holding, Message::So, "so-1", State::Holding},
            {State::Holding, Message::En, "en-1", State::Leaving},
            {State::Leaving, Message::En, "en-1", State::Leaving},
            {State::Leaving, Message::Eo, "eo-1", State::Leaving, /*ends_turn=*/true},
        }};
        const auto found = std::ranges::find_if(
            rules, [&](const Rule& rule) { return rule.state == state && rule.message == message; });
        return found == rules.end() ? nullptr : found;
    }
};

Actions Turns::connected(ClientId id, const QByteArray& address, Time now) {
    if (std::ssize(m_clients) >= m_limits.connections && !make_room(address, now)) {
        m_actions.push_back({Action::What::Close, id, {}, u"接続が多すぎます"_s});
    } else {
        m_shares.connected(address);
        m_clients.emplace(id, Client{.address = address,
                                  .reader = MessageReader(m_limits.bytes_kept),
                                  .deadline = now + m_limits.patience,
                                  .second = now});
    }
    return done(now);
}

Actions Turns::received(ClientId id, QByteArrayView bytes, Time now) {
    if (const auto found = m_clients.find(id); found != m_clients.end()) {
        for (const Message message : found->second.reader.take(bytes)) {
            take(id, message, now);
            if (!m_clients.contains(id))
                break;
        }
    }
    return done(now);
}

Actions Turns::disconnected(ClientId id, Time now) {
    if (m_clients.contains(id))
        leave(id, now);
    return done(now);
}

Actions Turns::manager_ended(Time now) {
    m_manager_runs = false;
    return done(now);
}

Actions Turns::time_passed(Time now) {
    std::vector<ClientId> late;
    for (const auto& [id, client] : m_clients) {
        if (client.deadline <= now)
            late.push_back(id);
    }
    for (const ClientId id : late)
        time_is_up(id, now);
    return done(now);
}

std::optional<Time> Turns::next_deadline() const {
    std::optional<Time> next;
    for (const auto& [id, client] : m_clients)
        next = std::min(next.value_or(client.deadline), client.deadline);
    return next;
}

QByteArray Turns::address(ClientId id) const {
    const auto found = m_clients.find(id);
    return found == m_clients.end() ? QByteArray() : found->second.reader.address();
}

frame::TurnStatus Turns::status(Time now) const {
    using enum frame::TurnStatus::State;
    const int waiting = int(m_waiting.size());
    if (!m_turn)
        return {.state = Free, .waiting = waiting};
    const bool applying = m_manager_runs;
    return {applying ? Applying : Held, m_turn->address, now - (applying ? m_turn->left : m_turn->begun), waiting};
}

void Turns::tell_status(ClientId id, Time now) {
    send(id, turn_status_line(status(now)));
    close(id, QString(), now);
}

void Turns::take(ClientId id, Message message, Time now) {
    Client& client = m_clients.at(id);
    const Rule* rule = Rule::of(client.state, message);
    if (too_fast(client, now))
        close(id, u"通信が多すぎます"_s, now);
    else if (message == Message::Status)
        tell_status(id, now);
    else if (!rule)
        close(id, u"通信の内容が正しくありません"_s, now);
    else if (rule->reply.isEmpty())
        ask(id, client, now);
    else
        answer(id, client, *rule, now);
}

void Turns::ask(ClientId id, Client& client, Time now) {
    if (client.state != State::Waiting) {
        m_waiting.push_back(id);
        m_shares.wants_turn(client.address);
    }
    if (!client.asking)
        client.deadline = now + m_limits.pause;
    client.asking = true;
    client.state = State::Waiting;
}

void Turns::answer(ClientId id, Client& client, const Rule& rule, Time now) {
    send(id, rule.reply);
    if (client.state != rule.next)
        enter(client, rule.next, now);
    if (rule.ends_turn)
        close(id, QString(), now);
}

void Turns::enter(Client& client, State state, Time now) {
    client.state = state;
    switch (state) {
    case State::Called:
        client.deadline = std::min(client.given_up, now + m_shares.allowed_to_take(client.address, m_limits.pause));
        break;
    case State::Granted:
        client.deadline = now + m_shares.allowed_to_take(client.address, m_limits.patience);
        break;
    case State::Holding:
        client.deadline =
            now + std::max(m_shares.allowed(client.address, m_limits.turn), std::min(m_limits.turn, m_limits.patience));
        break;
    case State::Leaving:
        client.deadline = now + m_shares.allowed(client.address, m_limits.patience);
        break;
    default:
        client.deadline = now + m_limits.patience;
    }
}

void Turns::time_is_up(ClientId id, Time now) {
    Client& client = m_clients.at(id);
    if (client.asking) {
        send(id, "stok");
        client.asking = false;
        client.deadline = now + m_limits.patience;
        return;
    }
    if (m_holder == id)
        m_turn->lost = true;
    if (client.state == State::Called && now < client.given_up)
        pass_over(id, now);
    else
        close(id, client.state == State::Holding ? u"順番が長すぎます"_s : u"応答がありません"_s, now);
}

bool Turns::too_fast(Client& client, Time now) const {
    if (now - client.second >= std::chrono::seconds(1))
        client.messages = 0, client.second = now;
    return ++client.messages > m_limits.messages_a_second;
}

void Turns::close(ClientId id, const QString& reason, Time now) {
    m_actions.push_back({Action::What::Close, id, {}, reason});
    leave(id, now);
}

void Turns::leave(ClientId id, Time now) {
    const Client client = std::move(m_clients.extract(id).mapped());
    m_shares.disconnected(client.address);
    std::erase(m_waiting, id);
    if (m_holder != id)
        return;
    m_holder.reset();
    m_turn->left = now;
    if (client.state == State::Called || client.state == State::Granted)
        return;
    m_manager_runs = true;
    m_actions.push_back({Action::What::StartManager});
}

/// Where the address with the most connections has more than the newcomer's would have, it gives one up.
bool Turns::make_room(const QByteArray& newcomer, Time now) {
    const QByteArray busiest = m_shares.busiest();
    const bool heavier = m_shares.connections(busiest) > m_shares.connections(newcomer) + 1;
    const auto leaving = heavier ? dispensable(busiest) : std::nullopt;
    if (leaving)
        close(*leaving, u"接続が多すぎます"_s, now);
    return leaving.has_value();
}

/// The client of this address that has said nothing for longest, or else the last of those who wait.
std::optional<ClientId> Turns::dispensable(const QByteArray& address) const {
    const auto silent = std::ranges::find_if(m_clients,
        [&](const auto& entry) { return entry.second.address == address && entry.second.state < State::Waiting; });
    if (silent != m_clients.end())
        return silent->first;
    const auto last = std::find_if(
        m_waiting.rbegin(), m_waiting.rend(), [&](ClientId id) { return m_clients.at(id).address == address; });
    return last == m_waiting.rend() ? std::nullopt : std::optional(*last);
}

Turns::Row::iterator Turns::next_in_row(Time now) {
    const auto address = [this](ClientId id) -> const QByteArray& { return m_clients.at(id).address; };
    const auto next = std::ranges::min_element(m_waiting, {},
        [&](ClientId id) { return std::pair(m_shares.rests(address(id), now), m_shares.place(address(id))); });
    return next == m_waiting.end() || m_shares.rests(address(*next), now) ? m_waiting.end() : next;
}

// The next in the row gets the turn even if its question is still on the way: it isn't overtaken for that, if it comes
// soon.
void Turns::give_turn(ClientId id, Time now) {
    Client& client = m_clients.at(id);
    m_holder = id;
    m_turn = m_shares.begin_turn(client.address, now);
    if (client.asking) {
        send(id, "st-1");
        client.asking = false;
        enter(client, State::Granted, now);
    } else {
        client.given_up = client.deadline;
        enter(client, State::Called, now);
    }
}

void Turns::pass_over(ClientId id, Time now) {
    Client& client = m_clients.at(id);
    client.state = State::Waiting;
    client.deadline = client.given_up;
    m_waiting.push_back(id);
    m_holder.reset();
    m_turn->left = now;
}

void Turns::send(ClientId id, QByteArrayView reply) {
    m_actions.push_back({Action::What::Send, id, reply.toByteArray()});
}

Actions Turns::done(Time now) {
    if (!m_holder && !m_manager_runs) {
        if (m_turn)
            m_shares.end_turn(*m_turn, now);
        m_turn.reset();
        if (const auto next = next_in_row(now); next != m_waiting.end()) {
            const ClientId id = *next;
            m_waiting.erase(next);
            give_turn(id, now);
        }
    }
    return std::exchange(m_actions, {});
}

} // namespace exchange
