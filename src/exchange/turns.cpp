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
        static constexpr std::array<Rule, 9> rules{{
            {State::Connected, Message::Greeting, "your", State::Greeted},
            {State::Greeted, Message::St, {}, State::Waiting},
            {State::Waiting, Message::St, {}, State::Waiting},
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

Actions Turns::connected(ClientId id, Time now) {
    if (std::ssize(m_clients) >= m_limits.connections)
        m_actions.push_back({Action::What::Close, id, {}, u"接続が多すぎます"_s});
    else
        m_clients.emplace(id,
            Client{.reader = MessageReader(m_limits.bytes_kept), .deadline = now + m_limits.patience, .second = now});
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
        leave(id);
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

void Turns::take(ClientId id, Message message, Time now) {
    Client& client = m_clients.at(id);
    const Rule* rule = Rule::of(client.state, message);
    if (too_fast(client, now))
        close(id, u"通信が多すぎます"_s);
    else if (!rule)
        close(id, u"通信の内容が正しくありません"_s);
    else if (rule->reply.isEmpty())
        ask(id, client, now);
    else
        answer(id, client, *rule, now);
}

void Turns::ask(ClientId id, Client& client, Time now) {
    if (client.state != State::Waiting)
        m_waiting.push_back(id);
    if (!client.asking)
        client.deadline = now + m_limits.pause;
    client.asking = true;
    client.state = State::Waiting;
}

void Turns::answer(ClientId id, Client& client, const Rule& rule, Time now) {
    send(id, rule.reply);
    client.state = rule.next;
    client.deadline = now + (rule.next == State::Holding ? m_limits.turn_patience : m_limits.patience);
    if (rule.ends_turn)
        close(id, QString());
}

void Turns::time_is_up(ClientId id, Time now) {
    Client& client = m_clients.at(id);
    if (!client.asking) {
        close(id, u"応答がありません"_s);
        return;
    }
    send(id, "stok");
    client.asking = false;
    client.deadline = now + m_limits.patience;
}

bool Turns::too_fast(Client& client, Time now) const {
    if (now - client.second >= std::chrono::seconds(1))
        client.messages = 0, client.second = now;
    return ++client.messages > m_limits.messages_a_second;
}

void Turns::close(ClientId id, const QString& reason) {
    m_actions.push_back({Action::What::Close, id, {}, reason});
    leave(id);
}

void Turns::leave(ClientId id) {
    const State state = m_clients.at(id).state;
    m_clients.erase(id);
    std::erase(m_waiting, id);
    if (m_holder != id)
        return;
    m_holder.reset();
    if (state == State::Granted)
        return;
    m_manager_runs = true;
    m_actions.push_back({Action::What::StartManager});
}

// The first in the row gets the turn even if its next question is still on the way: it isn't overtaken for that.
void Turns::grant_next(Time now) {
    if (m_holder || m_manager_runs || m_waiting.empty() || !m_clients.at(m_waiting.front()).asking)
        return;
    m_holder = m_waiting.front();
    m_waiting.pop_front();
    Client& client = m_clients.at(*m_holder);
    client.asking = false;
    client.state = State::Granted;
    client.deadline = now + m_limits.patience;
    send(*m_holder, "st-1");
}

void Turns::send(ClientId id, QByteArrayView reply) {
    m_actions.push_back({Action::What::Send, id, reply.toByteArray()});
}

Actions Turns::done(Time now) {
    grant_next(now);
    return std::exchange(m_actions, {});
}

} // namespace exchange
