#pragma once

// One connection to a schema of a server, through libpq, and how what the server says becomes errors. A connection that
// is done with waits for the next one who opens the same schema, with the statements that it has prepared: opening then
// costs no round trip.

#include "store/server_place.h"

#include <QHash>
#include <libpq-fe.h>

namespace store {

struct FreeResult {
    void operator()(PGresult* result) const { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, FreeResult>;

/// A statement as the server knows it.
struct Prepared {
    QByteArray name;
    QString sql;         ///< as it was given
    QList<bool> numeric; ///< whether each place takes a number
    QStringList columns;
};

/// What the schema says of itself; it stands in its comment.
struct Marks {
    int application_id = 0;
    int version = 0;
};
QByteArray comment_of(const Marks& marks);

class ServerLink {
public:
    /// Connects. Code::NoAccess if that fails.
    ServerLink(ServerPlace place, const QString& path);
    ServerLink(const ServerLink&) = delete;
    ServerLink& operator=(const ServerLink&) = delete;
    ~ServerLink() { PQfinish(m_connection); }

    const ServerPlace& place() const { return m_place; }
    const Marks& marks() const { return m_marks; }

    /// Reads what the schema says of itself; Code::Missing if there is none.
    void know_schema();

    /// Runs statements without values, in the server's own words, and gives the last one's result.
    Result exec(const QByteArray& sql);
    Result run(const Prepared& statement, const QList<const char*>& values);

    /// The statement is prepared when it is met first; Code::Misuse if the schema hasn't got what it names.
    const Prepared& prepared(std::string_view sql);

    QList<Column> columns_of(const QString& table);

    bool in_transaction() const { return PQtransactionStatus(m_connection) != PQTRANS_IDLE; }
    /// Whether it can serve another one: nothing has cut it, as far as can be told without asking.
    bool usable();

    QByteArray write_lock() const; ///< the SQL that takes the schema's write lock until the transaction's end

    QString path; ///< of the database that it serves now, for the errors

private:
    Result checked(PGresult* result, const QString& sql) const;
    Prepared prepare(const QByteArray& native, const QString& sql);

    ServerPlace m_place;
    PGconn* m_connection = nullptr;
    QByteArray m_schema_id; ///< digits
    Marks m_marks;
    QHash<QByteArray, Prepared> m_prepared;
};

/// A connection that waited, or a new one.
std::unique_ptr<ServerLink> take_link(const ServerPlace& place, const QString& path);
/// Lets it wait for the next; one that isn't usable, or is one too many, ends.
void give_back(std::unique_ptr<ServerLink> link);

} // namespace store
