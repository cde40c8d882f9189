#pragma once

// The turn: only one PC at a time fills the exchange file. A PC other than the main PC asks the turn service on the
// main PC over a socket before it posts, and gives the turn up afterwards. The link exists only for the length of a
// save. Where the exchange file lies on a data server the turn is that server's, for all PCs.

#include "base/settings.h"
#include "frame/turn_status.h"
#include "platform/host.h"
#include "store/server_turn.h"

#include <QTcpSocket>
#include <functional>

namespace frame {

inline constexpr quint16 turn_port = 1001;

/// `link_state`
enum class LinkState { Idle = 0, Asking = 1, Asked = 2, Granted = 3, Releasing = 4, Released = 5 };

class TurnLink {
public:
    /// `show` is given the state mark of the frame (`stalab`): "●" asking, "◎" granted, "○" releasing, empty at rest.
    TurnLink(const base::Settings& settings, platform::Host& host, std::function<void(const QString&)> show = {},
        quint16 port = turn_port);

    /// While this PC waits for the turn, from a second on, it is told again and again how long it has waited and, where
    /// the service says so, who has it. False gives up: without a message, and nothing is held.
    struct Waiting {
        std::chrono::milliseconds waited;
        std::optional<TurnStatus> status;
    };
    std::function<bool(const Waiting&)> on_waiting;
    std::function<void()> on_waited; ///< the wait is over, however it ended; before anything is told of that

    /// Takes the turn and returns whether this PC may post: also on the main PC (`use_class` 0), which needs no turn.
    /// Waits at most 10 seconds with the interface running, on a data server from when that is reached, and there looks
    /// once more, which may stand still for some seconds. Then it tells the person that the server can't be reached, or
    /// that others are still at it. A connection that is refused or lost ends the wait at once. The mark is "◎" either
    /// way, until the next attempt.
    [[nodiscard]] bool サーバー接続開始();

    /// Gives the turn up; does nothing unless one was granted. Waits at most 10 seconds, in silence.
    void サーバー接続終了();

    LinkState link_state() const { return m_link_state; }

    /// Whether the turn that is held, or waited for, is a data server's.
    bool is_on_server() const { return m_on_server != nullptr; }

private:
    void introduce();
    void reply_arrived();
    void send_for_state();
    void hang_up();
    bool wait_for(LinkState state);
    bool wait_on_server();
    bool server_grants_in_time();
    bool is_to_be_had_after_all();
    bool goes_on_waiting_on_server(std::chrono::steady_clock::time_point since);
    std::optional<TurnStatus> status_on_server();
    bool goes_on_waiting(std::chrono::steady_clock::time_point since);
    void wait_is_over();
    void show(const QString& mark);

    const base::Settings& m_settings;
    platform::Host& m_host;
    std::function<void(const QString&)> m_show;
    quint16 m_port;
    QTcpSocket m_socket;
    LinkState m_link_state = LinkState::Idle;
    TurnStatusQuestion m_question;
    std::optional<TurnStatus> m_status; ///< the last that was told in this wait
    std::chrono::steady_clock::time_point m_next_question;
    bool m_given_up = false;
    std::unique_ptr<store::ServerTurn> m_on_server;
};

/// The turn for as long as this lives, if it was granted; given up however the work ends.
class Turn {
public:
    explicit Turn(TurnLink& link) : m_link(link), m_granted(link.サーバー接続開始()) {}
    ~Turn() {
        if (m_granted)
            m_link.サーバー接続終了();
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;
    bool granted() const { return m_granted; }

private:
    TurnLink& m_link;
    bool m_granted;
};

} // namespace frame
