#include "store/server_turn.h"

#include "base/literals.h"
#include "store/server.h"
#include "store/server_link.h"
#include "store/server_names.h"

#include <utility>

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
    bool is_asked() const override { return m_asked != nullptr; }
    std::optional<Holder> holder(std::chrono::milliseconds patience) override;
    void ask_for_holder() override { m_wants_holder = true; }
    std::optional<Holder> last_holder() override;

private:
    QByteArray with_lock(QByteArray words, const ServerLink& link) const {
        return words.replace("%1", link.lock_of(m_what == TurnFor::Posting ? 0 : 1));
    }
    void ask();
    bool asked_within(std::chrono::milliseconds patience);
    bool told_within(std::chrono::milliseconds patience);
    void hear_holder();
    void give_back_turn() noexcept;

    ServerPlace m_place;
    QString m_path;
    TurnFor m_what;
    std::optional<LinkUnderWay> m_connecting;
    std::unique_ptr<ServerLink> m_link; ///< that asks for the turn or has it, but for posting
    Awaited m_asked;
    bool m_taken = false;

    std::optional<LinkUnderWay> m_connecting_to_look;
    std::unique_ptr<ServerLink> m_looking; ///< asks who has it
    Awaited m_who;
    bool m_wants_holder = false;
    std::optional<Holder> m_holder; ///< as it was told last
};

void TurnOnServer::ask() {
    ServerPipe& pipe = m_link->pipe;
    const QByteArray pc = connection_name();
    // Whoever applies is still for as long as that takes; whoever posts has stopped if he is.
    const QByteArray words = QByteArray(take_words).replace("%2", m_what == TurnFor::Posting ? "30s" : "0");
    m_asked = pipe.say(with_lock(words, *m_link), {pc.constData()});
    pipe.part();
    pipe.send();
}

bool TurnOnServer::asked_within(std::chrono::milliseconds patience) {
    if (m_link)
        return true;
    if (!m_connecting)
        m_connecting.emplace(m_place, m_path);
    m_link = m_connecting->within(patience);
    if (m_link)
        ask();
    return m_link != nullptr;
}

/// The server keeps those who wait in their order.
bool TurnOnServer::take_within(std::chrono::milliseconds patience) {
    if (!asked_within(patience) || !m_link->pipe.answers_within(m_asked, patience))
        return false;
    m_link->pipe.hear(m_asked);
    m_taken = true;
    if (m_what == TurnFor::Posting) {
        m_link->turn_in = m_place.schema;
        give_back(std::move(m_link));
    }
    return true;
}

/// Whether an answer has come to the question that is under way, or to a new one.
bool TurnOnServer::told_within(std::chrono::milliseconds patience) {
    if (!m_looking) {
        if (!m_connecting_to_look)
            m_connecting_to_look.emplace(m_place, m_path);
        m_looking = m_connecting_to_look->within(patience);
        if (!m_looking)
            return false;
        m_connecting_to_look.reset();
    }
    if (!m_who) {
        m_who = m_looking->pipe.say(with_lock(holder_words, *m_looking));
        m_looking->pipe.part();
        m_looking->pipe.send();
    }
    return m_looking->pipe.answers_within(m_who, patience);
}

void TurnOnServer::hear_holder() {
    const Result found = m_looking->pipe.hear(std::exchange(m_who, {}));
    m_wants_holder = false;
    m_holder.reset();
    if (PQntuples(found.get()) > 0) {
        const QByteArray words = PQgetvalue(found.get(), 0, 0);
        const qint64 since = words.mid(words.lastIndexOf(' ') + 1).toLongLong(),
                     now = QByteArray(PQgetvalue(found.get(), 0, 1)).toLongLong();
        m_holder = {pc_of(words), std::chrono::seconds(since > 0 ? std::max(qint64(0), now - since) : 0)};
    }
    give_back(std::move(m_looking));
}

std::optional<ServerTurn::Holder> TurnOnServer::holder(std::chrono::milliseconds patience) {
    if (!told_within(patience))
        throw Error(m_looking ? Code::Io : Code::Away, m_path, {}, u"サーバーから応答がありません。"_s);
    hear_holder();
    return m_holder;
}

std::optional<ServerTurn::Holder> TurnOnServer::last_holder() {
    try {
        if (m_wants_holder && told_within(std::chrono::milliseconds(0)))
            hear_holder();
    } catch (const Error&) { // who waits in good order doesn't lose his place for a question
        m_wants_holder = false;
        m_connecting_to_look.reset();
        m_looking.reset();
        m_who.reset();
    }
    return m_holder;
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
        link->pipe.say("reset application_name");
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
