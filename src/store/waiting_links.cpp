#include "base/literals.h"
#include "store/server.h"
#include "store/server_link.h"
#include "store/silence.h"

#include <QDeadlineTimer>
#include <QMutex>
#include <QThreadPool>
#include <QWaitCondition>
#include <algorithm>
#include <functional>
#include <list>

namespace store {

using namespace base;

namespace {

constexpr size_t most_waiting = 8;
constexpr std::chrono::minutes longest_way(2); ///< whatever the connection's own limits are

/// What waits, the last given back first. Nothing but the time that opening takes can tell whether a connection waited.
struct Waiting {
    QMutex mutex;
    std::list<std::unique_ptr<ServerLink>> links;
};

Waiting& waiting() {
    static Waiting the_waiting;
    return the_waiting;
}

/// One with the turn of a schema serves that alone; of the others one that served the schema last is best.
std::unique_ptr<ServerLink> waiting_link(const ServerPlace& place, bool with_turn) {
    Waiting& all = waiting();
    const QMutexLocker lock(&all.mutex);
    const auto serves = [&](const auto& link) {
        return link->connection() == place.connection && link->turn_in == (with_turn ? place.schema : QString());
    };
    auto found = std::ranges::find_if(
        all.links, [&](const auto& link) { return serves(link) && link->schema() == place.schema; });
    if (found == all.links.end())
        found = std::ranges::find_if(all.links, serves);
    if (found == all.links.end())
        return {};
    std::unique_ptr<ServerLink> link = std::move(*found);
    all.links.erase(found);
    return link;
}

/// One that was cut while it waited ends.
std::unique_ptr<ServerLink> good_link(const ServerPlace& place, bool with_turn) {
    std::unique_ptr<ServerLink> link = waiting_link(place, with_turn);
    while (link && !(link->pipe.settle() && link->pipe.usable()))
        link = waiting_link(place, with_turn);
    return link;
}

/// Connecting lets nobody in: where the wait is to be told, a thread of its own does it.
std::unique_ptr<ServerLink> new_link(const ServerPlace& place, const QString& path) {
    if (!Silence::is_told())
        return std::make_unique<ServerLink>(place.connection, path);
    LinkUnderWay way(place, path);
    Silence told;
    std::unique_ptr<ServerLink> link = way.within(unremarked_silence);
    if (!link) {
        told.is_long();
        link = way.within(longest_way);
    }
    if (!link)
        throw Error(Code::Away, path, {}, u"サーバーから応答がありません。"_s);
    return link;
}

std::unique_ptr<ServerLink> link_without_turn(const ServerPlace& place, const QString& path) {
    std::unique_ptr<ServerLink> link = good_link(place, false);
    if (!link)
        link = new_link(place, path);
    link->serve(place.schema, path);
    return link;
}

/// One of which nothing is awaited.
std::unique_ptr<ServerLink> quiet_link(const ServerPlace& place, const std::function<bool(const ServerLink&)>& serves) {
    std::unique_ptr<ServerLink> link = waiting_link(place, false);
    if (link && link->pipe.unheard() == 0 && serves(*link) && link->pipe.usable())
        return link;
    if (link)
        give_back(std::move(link));
    return {};
}

/// One that can be used without asking the server for anything.
std::unique_ptr<ServerLink> link_at_once(const ServerPlace& place) {
    return quiet_link(place, [&](const ServerLink& link) { return link.schema() == place.schema; });
}

/// Of its own: those who connect to a server that is away keep nobody else waiting.
QThreadPool& connecting() {
    waiting(); // outlives it
    static QThreadPool pool;
    pool.setMaxThreadCount(most_waiting);
    return pool;
}

} // namespace

std::unique_ptr<ServerLink> take_turns_link(const ServerPlace& place) {
    return good_link(place, true);
}

std::unique_ptr<ServerLink> take_waiting_link(const ServerPlace& place) {
    return quiet_link(place, [](const ServerLink&) { return true; });
}

struct LinkUnderWay::State {
    QMutex mutex;
    QWaitCondition came;
    std::unique_ptr<ServerLink> link;
    std::optional<Error> error;

    ~State() {
        if (link)
            give_back(std::move(link));
    }
    void get(const ServerPlace& place, const QString& path) {
        std::unique_ptr<ServerLink> got;
        std::optional<Error> failed;
        try {
            got = link_without_turn(place, path);
        } catch (const Error& why) {
            failed = why;
        }
        const QMutexLocker lock(&mutex);
        link = std::move(got);
        error = std::move(failed);
        came.wakeAll();
    }
};

LinkUnderWay::LinkUnderWay(const ServerPlace& place, const QString& path) : m_state(std::make_shared<State>()) {
    m_state->link = link_at_once(place);
    if (!m_state->link)
        connecting().start([state = m_state, place, path] { state->get(place, path); });
}

std::unique_ptr<ServerLink> LinkUnderWay::within(std::chrono::milliseconds patience) {
    const QMutexLocker lock(&m_state->mutex);
    if (!m_state->link && !m_state->error)
        m_state->came.wait(&m_state->mutex, QDeadlineTimer(patience));
    if (m_state->error)
        throw Error(*m_state->error);
    return std::move(m_state->link);
}

std::unique_ptr<ServerLink> take_link(const ServerPlace& place, const QString& path) {
    std::unique_ptr<ServerLink> link = take_turns_link(place);
    if (!link)
        return link_without_turn(place, path);
    link->serve(place.schema, path);
    return link;
}

void give_back(std::unique_ptr<ServerLink> link) {
    if (!link->make_ready())
        return;
    std::unique_ptr<ServerLink> one_too_many;
    Waiting& all = waiting();
    const QMutexLocker lock(&all.mutex);
    all.links.push_front(std::move(link));
    if (all.links.size() > most_waiting) {
        one_too_many = std::move(all.links.back());
        all.links.pop_back();
    }
}

void end_waiting_connections() {
    Waiting& all = waiting();
    const QMutexLocker lock(&all.mutex);
    all.links.clear();
}

} // namespace store
