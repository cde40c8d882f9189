#pragma once

// The server as a program would use it that has no store of its own: libpq, prepared statements, one after the other.

#include <QByteArray>
#include <QList>
#include <initializer_list>
#include <libpq-fe.h>

namespace bench {

class BareServer {
public:
    /// The names that it uses are those of the schema.
    BareServer(const QByteArray& connection, const QString& schema);
    ~BareServer() { PQfinish(m_connection); }
    BareServer(const BareServer&) = delete;
    BareServer& operator=(const BareServer&) = delete;

    /// Statements in one go. std::runtime_error if one fails, as with those below.
    void exec(const QByteArray& sql);

    void prepare(const QByteArray& name, const QByteArray& sql);

    /// Runs what was prepared, and looks at every field of what comes; how many rows.
    int run(const QByteArray& name, std::initializer_list<qint64> numbers = {});
    int run_texts(const QByteArray& name, const QList<QByteArray>& texts);

private:
    PGconn* m_connection;
};

} // namespace bench
