#pragma once

// Stands between this program and the server that scripts/with-server runs: counts the ways there and back, and lets
// trouble come behind a message of the client's, as a network and a server do.

#include "support/server_disk.h"

#ifdef Q_OS_LINUX // it stands at the socket in the server's folder
#include <atomic>
#include <cstring>
#include <linux/filter.h>
#include <list>
#include <mutex>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace support {

enum class Trouble {
    Cut,     ///< every connection ends
    Silence, ///< nothing goes to and fro any more, not even that something has come
    Death,   ///< of the server, by kill -9
    Full,    ///< the server's disk, of which there is one (server_disk.h)
};

/// What comes behind message after message of a piece of work.
struct Troubled {
    Trouble trouble;
    int usual_step;     ///< messages from one to the next
    QByteArray words{}; ///< of the connection

    /// ROVENA_EVERY_MESSAGE leaves none out.
    int step() const { return every_message() ? 1 : usual_step; }
    static bool every_message() { return qEnvironmentVariableIsSet("ROVENA_EVERY_MESSAGE"); }
};

/// A network's silence is told within two seconds in these words.
inline const QByteArray impatient = " connect_timeout=2 tcp_user_timeout=200 keepalives_idle=1";

class ServerProxy {
public:
    ServerProxy() {
        m_listening = socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_in own{AF_INET, 0, {htonl(INADDR_LOOPBACK)}, {}};
        socklen_t size = sizeof own;
        EXPECT_EQ(bind(m_listening, reinterpret_cast<const sockaddr*>(&own), size), 0);
        EXPECT_EQ(listen(m_listening, 16), 0);
        EXPECT_EQ(getsockname(m_listening, reinterpret_cast<sockaddr*>(&own), &size), 0);
        m_port = ntohs(own.sin_port);
        m_thread = std::thread([this] { serve(); });
    }
    ~ServerProxy() {
        m_ends = true;
        m_thread.join();
        close(m_listening);
    }
    ServerProxy(const ServerProxy&) = delete;
    ServerProxy& operator=(const ServerProxy&) = delete;

    /// What libpq connects with, in the words for the server or for a database of its own.
    QByteArray connection(const QByteArray& words = data_server()) const {
        return "host=127.0.0.1 port=" + QByteArray::number(m_port) + " sslmode=disable gssencmode=disable" +
               words.sliced(words.indexOf(' '));
    }

    /// How often a client has asked something and the server answered. Nobody waits for the end of what was only read
    /// or of a turn.
    int trips() const { return m_trips; }
    /// What clients have said, in messages of the server's protocol.
    int messages() const { return m_messages; }
    /// Behind so many messages more, which still reach the server. Words of parting that are still on their way aren't
    /// counted.
    void trouble_behind(int messages, Trouble trouble) {
        for (const int before = m_quiet; m_quiet == before;)
            std::this_thread::yield();
        m_trouble = trouble;
        m_come = false;
        m_last = m_messages + messages;
    }
    /// Whether the trouble had come. A server that died lives again, a full disk has room.
    bool end_trouble() {
        {
            const std::lock_guard lock(m_mutex);
            m_last = -1;
            stalled = false;
        }
        while (m_deaf)
            std::this_thread::yield();
        const bool came = m_come;
        if (came && m_trouble == Trouble::Death)
            tell_server(QStringLiteral("live"));
        if (came && m_trouble == Trouble::Full)
            ServerDisk::empty();
        return came;
    }
    /// As a network through which nothing comes any more, until end_trouble().
    std::atomic<bool> stalled = false;

private:
    struct Pair {
        int client, server;
        QByteArray unsent;
        bool started = false, said = false, parting = false, asking = false;
    };

    static int connected_to_server() {
        const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
        sockaddr_un address{AF_UNIX, {}};
        const QByteArray path = QFile::encodeName(server_folder() + QStringLiteral("/.s.PGSQL.5432"));
        std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
        if (connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) == 0)
            return server;
        close(server);
        return -1;
    }

    /// Not even the system takes what comes there then, so that the other side hears of nothing.
    static void make_deaf(int socket, bool deaf) {
        sock_filter drop_all = BPF_STMT(BPF_RET | BPF_K, 0);
        const sock_fprog filter{1, &drop_all};
        setsockopt(socket, SOL_SOCKET, deaf ? SO_ATTACH_FILTER : SO_DETACH_FILTER, &filter, sizeof filter);
    }

    /// At once, whatever the other side hasn't taken yet.
    static bool hang_up(const Pair& pair) {
        const linger none{1, 0};
        return setsockopt(pair.client, SOL_SOCKET, SO_LINGER, &none, sizeof none) == 0 && end(pair);
    }

    /// Who was connected before a silence may have gone meanwhile: nobody is any more.
    void fall_silent_or_speak() {
        const bool silent = stalled;
        if (m_deaf == silent)
            return;
        make_deaf(m_listening, silent);
        if (silent)
            std::ranges::for_each(m_pairs, [](const Pair& pair) { make_deaf(pair.client, true); });
        else
            std::erase_if(m_pairs, hang_up);
        m_deaf = silent;
    }

    void serve() {
        while (!m_ends) {
            fall_silent_or_speak();
            std::vector<pollfd> waiting{{m_listening, POLLIN, 0}};
            for (const Pair& pair : m_pairs) {
                waiting.push_back({pair.client, POLLIN, 0});
                waiting.push_back({pair.server, POLLIN, 0});
            }
            if (m_deaf)
                poll(nullptr, 0, 5);
            else if (poll(waiting.data(), waiting.size(), 20) > 0)
                pass_on(waiting);
            else
                ++m_quiet;
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
        const int client = accept4(m_listening, nullptr, nullptr, SOCK_CLOEXEC);
        const int at_once = 1;
        setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &at_once, sizeof at_once);
        const int server = troubled() ? -1 : connected_to_server();
        if (server < 0)
            close(client);
        else
            m_pairs.push_back({client, server, {}});
    }

    /// It comes with the first message that has to go further.
    bool troubled() {
        const std::lock_guard lock(m_mutex);
        if (m_last < 0 || m_messages < m_last)
            return false;
        if (!m_come.exchange(true)) {
            if (m_trouble == Trouble::Death)
                tell_server(QStringLiteral("die"));
            if (m_trouble == Trouble::Full)
                ServerDisk::fill();
        }
        stalled = m_trouble == Trouble::Silence;
        return m_trouble == Trouble::Cut || m_trouble == Trouble::Death;
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

    int m_listening;
    quint16 m_port = 0;
    std::atomic<bool> m_deaf = false;
    std::list<Pair> m_pairs;
    std::atomic<int> m_trips = 0, m_messages = 0, m_last = -1, m_quiet = 0;
    std::mutex m_mutex;
    std::atomic<Trouble> m_trouble = Trouble::Cut;
    std::atomic<bool> m_come = false;
    std::atomic<bool> m_ends = false;
    std::thread m_thread;
};

} // namespace support

#endif
