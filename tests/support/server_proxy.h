#pragma once

// Stands between this program and the server that scripts/with-server runs: counts the ways there and back, and lets
// trouble come behind a message of the client's, as a network and a server do.

#include "support/data_server.h"

#ifdef Q_OS_LINUX // it stands at the socket in the server's folder
#include <QTemporaryDir>
#include <atomic>
#include <cstring>
#include <list>
#include <mutex>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace support {

enum class Trouble {
    Cut,     ///< every connection ends
    Silence, ///< nothing goes to and fro any more
    Death,   ///< of the server, by kill -9
};

class ServerProxy {
public:
    ServerProxy() {
        m_listening = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        const sockaddr_un own = address(m_folder.path());
        EXPECT_EQ(bind(m_listening, reinterpret_cast<const sockaddr*>(&own), sizeof own), 0);
        EXPECT_EQ(listen(m_listening, 16), 0);
        m_thread = std::thread([this] { serve(); });
    }
    ~ServerProxy() {
        m_ends = true;
        m_thread.join();
        close(m_listening);
    }
    ServerProxy(const ServerProxy&) = delete;
    ServerProxy& operator=(const ServerProxy&) = delete;

    /// What libpq connects with.
    QByteArray connection() const { return data_server().replace(host(), QFile::encodeName(m_folder.path())); }

    /// How often a client has asked something and the server answered. Nobody waits for the end of what was only read
    /// or of a turn.
    int trips() const { return m_trips; }
    /// What clients have said, in messages of the server's protocol.
    int messages() const { return m_messages; }
    /// Behind so many messages more, which still reach the server.
    void trouble_behind(int messages, Trouble trouble) {
        m_trouble = trouble;
        m_come = false;
        m_last = m_messages + messages;
    }
    /// Whether the trouble had come. A server that died lives again.
    bool end_trouble() {
        {
            const std::lock_guard lock(m_mutex);
            m_last = -1;
            stalled = false;
        }
        const bool came = m_come;
        if (came && m_trouble == Trouble::Death)
            tell_server(QStringLiteral("live"));
        return came;
    }
    /// As a network that takes everything and gives nothing.
    std::atomic<bool> stalled = false;

private:
    struct Pair {
        int client, server;
        QByteArray unsent;
        bool started = false, said = false, parting = false, asking = false;
    };

    static QByteArray host() { return data_server().split(' ').first().mid(5); }
    static sockaddr_un address(const QString& folder) {
        sockaddr_un address{AF_UNIX, {}};
        const QByteArray path = QFile::encodeName(folder + QStringLiteral("/.s.PGSQL.5432"));
        std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
        return address;
    }

    void serve() {
        while (!m_ends) {
            std::vector<pollfd> waiting{{m_listening, POLLIN, 0}};
            for (const Pair& pair : m_pairs) {
                waiting.push_back({pair.client, POLLIN, 0});
                waiting.push_back({pair.server, POLLIN, 0});
            }
            if (stalled)
                poll(nullptr, 0, 5);
            else if (poll(waiting.data(), waiting.size(), 20) > 0)
                pass_on(waiting);
        }
        std::erase_if(m_pairs, [](const Pair& pair) { return end(pair); });
    }

    void pass_on(const std::vector<pollfd>& waiting) {
        size_t place = 1;
        std::erase_if(m_pairs, [&](Pair& pair) {
            const bool from_client = waiting[place].revents != 0, from_server = waiting[place + 1].revents != 0;
            place += 2;
            const bool goes_on = (!from_client || client_said(pair)) && (!from_server || server_said(pair));
            return !goes_on && end(pair);
        });
        if (waiting[0].revents != 0)
            take_in();
    }

    void take_in() {
        Pair pair{
            accept4(m_listening, nullptr, nullptr, SOCK_CLOEXEC), socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0), {}};
        const sockaddr_un there = address(QFile::decodeName(host()));
        if (troubled() || connect(pair.server, reinterpret_cast<const sockaddr*>(&there), sizeof there) != 0)
            end(pair);
        else
            m_pairs.push_back(pair);
    }

    /// It comes with the first message that has to go further.
    bool troubled() {
        const std::lock_guard lock(m_mutex);
        if (m_last < 0 || m_messages < m_last)
            return false;
        if (!m_come.exchange(true) && m_trouble == Trouble::Death)
            tell_server(QStringLiteral("die"));
        stalled = m_trouble == Trouble::Silence;
        return !stalled;
    }

    static bool end(const Pair& pair) { return close(pair.client) == 0 && close(pair.server) == 0; }

    bool client_said(Pair& pair) {
        char bytes[65536];
        const ssize_t count = read(pair.client, bytes, sizeof bytes);
        if (count <= 0)
            return false;
        pair.unsent.append(bytes, count);
        while (const int length = message_length(pair)) {
            if (troubled())
                return false;
            if (stalled)
                return true;
            if (send(pair.server, pair.unsent.constData(), size_t(length), MSG_NOSIGNAL) != length)
                return false;
            notice(pair, pair.unsent.first(length));
            pair.unsent.remove(0, length);
            ++m_messages;
        }
        return !troubled();
    }

    static void notice(Pair& pair, const QByteArray& message) {
        if (!std::exchange(pair.started, true)) {
            pair.asking = true;
        } else if (message.startsWith('S')) {
            pair.asking = pair.asking || pair.said;
            pair.said = pair.parting = false;
        } else {
            pair.parting = pair.parting || message.contains("rollback") || message.contains("pg_advisory_unlock");
            pair.said = !pair.parting;
        }
    }

    /// 0 if it isn't there whole. The first message has no letter before its length.
    static int message_length(const Pair& pair) {
        const int letter = pair.started ? 1 : 0;
        if (pair.unsent.size() < letter + 4)
            return 0;
        int length = letter;
        quint32 told = 0;
        for (int i = 0; i < 4; ++i)
            told = told << 8 | quint8(pair.unsent[letter + i]);
        length += int(told);
        return pair.unsent.size() < length ? 0 : length;
    }

    bool server_said(Pair& pair) {
        char bytes[65536];
        const ssize_t count = read(pair.server, bytes, sizeof bytes);
        if (std::exchange(pair.asking, false))
            ++m_trips;
        return count > 0 && send(pair.client, bytes, size_t(count), MSG_NOSIGNAL) == count;
    }

    QTemporaryDir m_folder;
    int m_listening;
    std::list<Pair> m_pairs;
    std::atomic<int> m_trips = 0, m_messages = 0, m_last = -1;
    std::mutex m_mutex;
    std::atomic<Trouble> m_trouble = Trouble::Cut;
    std::atomic<bool> m_come = false;
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};

} // namespace support

#endif
