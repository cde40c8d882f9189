#pragma once

// The turn service on its sockets: carries what clients say to `Turns`, sends its answers, runs the exchange manager
// after each turn and watches its end. Lives in one thread with an event loop; a held-back answer is a timer, never a
// wait.

#include "exchange/event_log.h"
#include "exchange/turns.h"

#include <QElapsedTimer>
#include <QHostAddress>
#include <QProcess>
#include <QTcpServer>
#include <QTimer>
#include <functional>

class QTcpSocket;

namespace exchange {

struct TurnServerOptions {
    QHostAddress bind = QHostAddress(QHostAddress::AnyIPv4);
    quint16 port = 1001; ///< 0: any free port
    TurnLimits limits = {};
    QString manager; ///< program file of the exchange manager
    QStringList manager_arguments;
    std::chrono::milliseconds manager_limit{120'000}; ///< a manager that runs longer is ended: its work can be repeated
    std::chrono::milliseconds stop_limit{10'000};     ///< how long a stop waits for a running manager
};

class TurnServer {
public:
    /// The log must outlive the server. Nobody is let in before listen().
    TurnServer(TurnServerOptions options, EventLog& log);
    ~TurnServer();
    TurnServer(const TurnServer&) = delete;
    TurnServer& operator=(const TurnServer&) = delete;

    /// False, with a line in the log, if the address or port can't be had.
    bool listen();
    quint16 port() const { return m_server.serverPort(); } ///< 0 while it doesn't listen

    /// Closes the door and every client, lets a running manager end, or ends it after `stop_limit`, then calls
    /// `stopped`: at once if none runs. A second stop changes nothing.
    void stop(std::function<void()> stopped);

private:
    void accept();
    void hear_what_came_early(ClientId id);
    void door_stuck();
    void read(ClientId id);
    void lost(ClientId id);
    void carry_out(const Actions& actions);
    void send(const Action& action);
    void close(const Action& action);
    void start_manager();
    void manager_ended(const QString& how);
    void arm();
    Time now() const { return Time(m_clock.elapsed()); }
    void note(ClientId id, const QString& text);

    TurnServerOptions m_options;
    EventLog& m_log;
    Turns m_turns;
    QElapsedTimer m_clock;
    QTcpServer m_server;
    QTimer m_deadline;
    QProcess m_manager;
    QTimer m_manager_deadline;
    std::map<ClientId, QTcpSocket*> m_sockets; ///< children of the server
    ClientId m_last_id = 0;
    std::function<void()> m_stopped;
};

} // namespace exchange
