#include "store/server_word.h"

#include "base/literals.h"
#include "store/server_link.h"
#include "store/server_names.h"

#include <utility>

namespace store {

using namespace base;
using namespace std::chrono_literals;

namespace {

constexpr auto patience = 300ms;

constexpr QByteArrayView begin = "rovena | ";
constexpr qsizetype room = 63 - begin.size(); ///< a connection's name has 63 bytes

constexpr auto look_words =
    "select set_config('application_name', $1, false), (select string_agg(application_name, chr(10))"
    " from pg_stat_activity where datname = current_database() and pid <> pg_backend_pid()"
    " and application_name like 'rovena | _%')";

class WordOnServer final : public ServerWord {
public:
    explicit WordOnServer(ServerPlace place) : m_place(std::move(place)) {}
    void say(const QString& line) override { m_line = line; }
    QStringList said_by_others() override;

private:
    bool connected();
    void ask();
    void hear();

    ServerPlace m_place;
    QString m_line;
    QStringList m_others;
    std::unique_ptr<ServerLink> m_link; ///< one that was open already
    Awaited m_asked;
};

bool WordOnServer::connected() {
    if (m_link && !m_link->pipe.usable())
        m_link.reset();
    if (!m_link) {
        m_asked.reset();
        m_link = take_waiting_link(m_place);
    }
    return m_link != nullptr;
}

void WordOnServer::ask() {
    m_asked = m_link->pipe.say(look_words, {(begin.toByteArray() + in_ascii(m_line, room)).constData()});
    m_link->pipe.part();
    m_link->pipe.send();
}

void WordOnServer::hear() {
    const Result said = m_link->pipe.hear(std::exchange(m_asked, {}));
    m_others.clear();
    for (const QByteArray& name : QByteArray(PQgetvalue(said.get(), 0, 1)).split('\n'))
        if (name.size() > begin.size())
            m_others << from_ascii(name.sliced(begin.size()));
}

QStringList WordOnServer::said_by_others() {
    try {
        if (!connected())
            return {};
        const bool silent = m_asked && !m_link->pipe.answers_within(m_asked, 0ms);
        if (m_asked && !silent)
            hear();
        if (!m_asked)
            ask();
        if (!silent && m_link->pipe.answers_within(m_asked, patience))
            hear();
    } catch (const Error&) {
        m_link.reset();
        m_others.clear();
    }
    return m_others;
}

} // namespace

std::unique_ptr<ServerWord> server_word(const QString& path) {
    const std::optional<ServerPlace> place = place_at(path);
    return place ? std::make_unique<WordOnServer>(*place) : nullptr;
}

} // namespace store
