#pragma once

// Who has the turn and since when. Any program may ask the turn service on a connection of its own: it says "??" in the
// place of the greeting and gets one line, after which the service hangs up. The conversation of those who want the
// turn is untouched; a service that is older closes such a connection like any that it doesn't understand.

#include <QString>
#include <QTcpSocket>
#include <chrono>
#include <optional>

namespace frame {

inline constexpr QByteArrayView turn_status_question = "??";

struct TurnStatus {
    enum class State {
        Free,
        Held,     ///< a PC has the turn
        Applying, ///< what it posted goes into the tables, and nobody gets the turn meanwhile
    };
    State state = State::Free;
    QByteArray holder = {}; ///< address of the PC; empty while free
    std::chrono::milliseconds since{0};
    int waiting = 0; ///< PCs
    friend bool operator==(const TurnStatus&, const TurnStatus&) = default;
};

/// The line of the service, and what it says; nothing for another text.
///   "!!held 192.168.0.7 12300 2\n"
QByteArray turn_status_line(const TurnStatus& status);
std::optional<TurnStatus> read_turn_status(const QByteArray& line);

/// "192.168.0.7 が登録しています（12秒前から）。", and in a second line how many wait, if any do.
QString words(const TurnStatus& status);

/// The question to a service, on the event loop.
class TurnStatusQuestion {
public:
    TurnStatusQuestion();

    /// Asks, unless an answer is awaited already.
    void ask(const QString& host, quint16 port);

    /// Stands still until the answer has come, or won't.
    void wait(std::chrono::milliseconds patience);

    void forget(); ///< question and answer

    bool asking() const { return m_socket.state() != QAbstractSocket::UnconnectedState; }
    bool answered() const { return m_answer.has_value(); } ///< to the last question
    const std::optional<TurnStatus>& answer() const { return m_answer; }

private:
    QTcpSocket m_socket;
    std::optional<TurnStatus> m_answer;
};

} // namespace frame
