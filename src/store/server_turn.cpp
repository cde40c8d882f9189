#include "store/server_turn.h"

#include "base/literals.h"
#include "store/server.h"
#include "store/server_link.h"

#include <QSysInfo>

namespace store {

using namespace base;

namespace {

/// The lock's holder names himself and the time in the one field of a connection that everybody may read.
constexpr auto take_words =
    "select set_config('lock_timeout', '0', false), pg_advisory_lock(%1), set_config('application_name',"
    " $1 || ' ' || extract(epoch from clock_timestamp())::bigint, false),"
    " set_config('idle_session_timeout', '%2', false), set_config('lock_timeout', '5000', false)";
constexpr auto holder_words = "select application_name, extract(epoch from clock_timestamp())::bigint"
                              " from pg_locks join pg_stat_activity using (pid)"
                              " where locktype = 'advisory' and granted and (classid::bigint, objid::bigint) = (%1)";

class TurnOnServer final : public ServerTurn {
public:
    TurnOnServer(ServerPlace place, QString path, TurnFor what)
        : m_place(std::move(place)), m_path(std::move(path)), m_what(what) {}
    ~TurnOnServer() override { give_back_turn(); }

    bool take_within(std::chrono::milliseconds patience) override;
    std::optional<Holder> holder() override;

private:
    QByteArray with_lock(QByteArray words, const ServerLink& link) const {
        return words.replace("%1", link.lock_of(m_what == TurnFor::Posting ? 0 : 1));
    }
    void ask();
    void give_back_turn() noexcept;

    ServerPlace m_place;
    QString m_path;
    TurnFor m_what;
    std::unique_ptr<ServerLink> m_link; ///< that asks for the turn or has it, but for posting
    Awaited m_asked;
    bool m_taken = false;
};

void TurnOnServer::ask() {
    m_link = take_link(m_place, m_path);
    ServerPipe& pipe = m_link->pipe;
    const QByteArray pc = "rovena " + QSysInfo::machineHostName().left(40).toUtf8();
    // Whoever applies is still for as long as that takes; whoever posts has stopped if he is.
    const QByteArray words = QByteArray(take_words).replace("%2", m_what == TurnFor::Posting ? "30s" : "0");
    m_asked = pipe.say(with_lock(words, *m_link), {pc.constData()});
    pipe.part();
    pipe.send();
}

/// The server keeps those who wait in their order.
bool TurnOnServer::take_within(std::chrono::milliseconds patience) {
    if (!m_link)
        ask();
    if (!m_link->pipe.answers_within(m_asked, patience))
        return false;
    m_link->pipe.hear(m_asked);
    m_taken = true;
    if (m_what == TurnFor::Posting) {
        m_link->turn_in = m_place.schema;
        give_back(std::move(m_link));
    }
    return true;
}

std::optional<ServerTurn::Holder> TurnOnServer::holder() {
    auto link = take_link(m_place, m_path);
    const Result found = link->pipe.hear(link->pipe.say(with_lock(holder_words, *link)));
    std::optional<Holder> holder;
    if (PQntuples(found.get()) > 0) {
        const QString words = QString::fromUtf8(PQgetvalue(found.get(), 0, 0));
        const qint64 since = words.section(u' ', -1).toLongLong(),
                     now = QByteArray(PQgetvalue(found.get(), 0, 1)).toLongLong();
        holder = {words.section(u' ', 1, -2), std::chrono::seconds(since > 0 ? std::max(qint64(0), now - since) : 0)};
    }
    give_back(std::move(link));
    return holder;
}

/// A connection that was cut meanwhile has given it back. One that waits still is cut.
void TurnOnServer::give_back_turn() noexcept {
    if (!m_taken)
        return;
    std::unique_ptr<ServerLink> link = m_link ? std::move(m_link) : take_turns_link(m_place);
    if (!link)
        return;
    try {
        link->turn_in.clear();
        link->pipe.say(with_lock("select pg_advisory_unlock(%1)", *link));
        link->pipe.say("reset idle_session_timeout");
        link->pipe.part();
        link->pipe.send();
        give_back(std::move(link));
    } catch (const Error&) {
        // cut
    }
}

} // namespace

std::unique_ptr<ServerTurn> server_turn(const QString& path, TurnFor what) {
    const std::optional<ServerPlace> place = place_at(path);
    return place ? std::make_unique<TurnOnServer>(*place, path, what) : nullptr;
}

} // namespace store
