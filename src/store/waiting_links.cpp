#include "store/server_link.h"

#include <QMutex>
#include <algorithm>
#include <list>

namespace store {

namespace {

constexpr size_t most_waiting = 8;

/// What waits, the last given back first. Nothing but the time that opening takes can tell whether a connection waited.
struct Waiting {
    QMutex mutex;
    std::list<std::unique_ptr<ServerLink>> links;
};

Waiting& waiting() {
    static Waiting the_waiting;
    return the_waiting;
}

std::unique_ptr<ServerLink> waiting_link(const ServerPlace& place) {
    Waiting& all = waiting();
    const QMutexLocker lock(&all.mutex);
    const auto found = std::ranges::find_if(all.links, [&](const auto& link) { return link->place() == place; });
    if (found == all.links.end())
        return {};
    std::unique_ptr<ServerLink> link = std::move(*found);
    all.links.erase(found);
    return link;
}

} // namespace

std::unique_ptr<ServerLink> take_link(const ServerPlace& place, const QString& path) {
    while (std::unique_ptr<ServerLink> link = waiting_link(place))
        if (link->usable()) {
            link->path = path;
            return link;
        }
    auto link = std::make_unique<ServerLink>(place, path);
    link->know_schema();
    return link;
}

void give_back(std::unique_ptr<ServerLink> link) {
    if (!link->usable())
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

} // namespace store
