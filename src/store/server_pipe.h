#pragma once

// One connection to a server, through libpq. What is said to it is sent when an answer is waited for, and the answers
// come in the order of what was said: so several statements cost one way there and back.
//
// A failure goes through what was said after it up to the next part(): none of that is done, and each gives the same
// error.

#include "store/error.h"

#include <QByteArray>
#include <QList>
#include <chrono>
#include <deque>
#include <libpq-fe.h>
#include <memory>
#include <optional>

namespace store {

struct FreeResult {
    void operator()(PGresult* result) const { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, FreeResult>;

/// What the server says to one statement.
struct Answer {
    Result result; ///< nothing until it is heard
    std::optional<Error> error;
};
using Awaited = std::shared_ptr<Answer>;

/// Values in text; a null one is Null. They are copied.
using Values = QList<const char*>;

class Silence;

class ServerPipe {
    PGconn* m_connection;

public:
    /// Connects. Code::Away or Refused if that fails.
    ServerPipe(const QByteArray& connection, const QString& path);
    ServerPipe(const ServerPipe&) = delete;
    ServerPipe& operator=(const ServerPipe&) = delete;
    ~ServerPipe() { PQfinish(m_connection); }

    /// One statement in the server's own words.
    Awaited say(const QByteArray& sql, const Values& values = {});

    /// `sql` is the statement as it was given, for the errors.
    Awaited prepare(const QByteArray& name, const QByteArray& native, const QString& sql);
    Awaited describe(const QByteArray& name, const QString& sql);
    Awaited run(const QByteArray& name, const Values& values, const QString& sql);

    void part();

    /// Sends off what was said, without waiting.
    void send() noexcept;

    /// Waits for everything that was said and gives this one's answer, or throws its error. Code::Io where the server
    /// is silent for longer than `silence`, or the connection is cut; it is of no use then.
    Result hear(const Awaited& one);

    /// Whether this one's answer has come by then. It has been sent off.
    bool answers_within(const Awaited& one, std::chrono::milliseconds patience);

    /// Waits for everything that was said; throws the first error in it.
    void hear_all();

    /// Waits for everything that was said, whatever it is. False if the connection is cut.
    bool settle() noexcept;

    /// Statements without values that ";" parts, in one way there and back. Throws the error of the first that fails;
    /// Code::Io as hear().
    void run_script(const QByteArray& sql);

    qsizetype unheard() const { return qsizetype(m_unheard.size()); }

    /// False if something has cut it or its server takes no writes any more, as far as can be told without asking.
    bool usable();

    QString path; ///< of the database that it serves now, for the errors
    std::chrono::milliseconds silence = usual_silence();

    /// Three times the connection's tcp_user_timeout, which is ten seconds where the administrator doesn't say.
    std::chrono::milliseconds usual_silence() const;

private:
    struct Said {
        Awaited answer; ///< nothing for a part's end
        QString sql;
    };

    Awaited said(int accepted, const QString& sql);
    void listen();
    void take(const Said& said);
    Result next();
    void wait_for_more();
    bool stirs(bool to_send, Silence& told) const;
    Error error_of(const PGresult* result, const QString& sql) const;
    [[noreturn]] void fail(const QString& reason);

    std::deque<Said> m_unheard;
    std::optional<Error> m_first; ///< that was heard in the part that is being heard
    bool m_broken = false;
};

} // namespace store
