#pragma once

// What is kept of a connection to a server: its schemas and the statements prepared in each. A connection that is done
// with waits for the next one who opens a database there, of whatever schema: opening then costs no round trip.

#include "store/server_pipe.h"
#include "store/server_place.h"

#include <QHash>

namespace store {

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
    int partitions = 0; ///< into which facts of employees are parted; 0 for none
};
QByteArray comment_of(const Marks& marks);

class ServerLink {
public:
    /// Connects. Code::Away or Refused if that fails.
    ServerLink(const QByteArray& connection, const QString& path);

    const QByteArray& connection() const { return m_connection; }
    const Marks& marks() const { return m_now->marks; }
    const QString& schema() const { return m_schema; } ///< that it serves

    /// From now on the names are those of the schema; what it says of itself is read when it is met first.
    /// Code::Missing if there is none, Forbidden if it isn't for this person.
    void serve(const QString& schema, const QString& path);

    /// The statement is prepared when it is met first; Code::Misuse if the schema hasn't got what it names.
    const Prepared& prepared(std::string_view sql);

    QList<Column> columns_of(const QString& table);
    QStringList names_of_columns(const QString& table);

    /// Class and number of a lock of the schema's: 0 is its write lock.
    QByteArray lock_of(int which) const;
    static QByteArray makers_lock(const QString& schema); ///< that of whoever makes the schema
    QByteArray write_lock() const; ///< the SQL that takes the schema's write lock until the transaction's end

    /// Ends what is left of a transaction, without waiting. False if the connection can't serve another one.
    bool make_ready() noexcept;

    ServerPipe pipe;
    bool in_transaction = false;
    bool making = false; ///< the transaction makes the schema that it serves, and what is known of that goes with it
    QString turn_in;     ///< the schema whose write lock it holds beyond transactions; empty for none

private:
    struct Known {
        QByteArray id; ///< digits
        Marks marks;
        QHash<QByteArray, Prepared> prepared;
    };
    Known known(const QString& schema);
    Prepared prepare(const QByteArray& native, const QString& sql);

    QByteArray m_connection;
    QHash<QString, std::shared_ptr<Known>> m_schemas;
    QString m_schema;
    std::shared_ptr<Known> m_now;
    int m_prepared = 0;
};

/// A connection that waited, or a new one, which serves the schema.
std::unique_ptr<ServerLink> take_link(const ServerPlace& place, const QString& path);
/// One that waits, with any schema; nothing if none does, or if the server would have to be waited for.
std::unique_ptr<ServerLink> take_waiting_link(const ServerPlace& place);
/// A connection without a turn, made in a thread of its own if none waits. Who doesn't wait for it any more leaves it
/// to the others.
class LinkUnderWay {
public:
    LinkUnderWay(const ServerPlace& place, const QString& path);
    /// Nothing if it isn't there by then. Throws what take_link() throws; isn't called again then, or once it is had.
    std::unique_ptr<ServerLink> within(std::chrono::milliseconds patience);

private:
    struct State;
    std::shared_ptr<State> m_state;
};

/// The one that waits with the turn there; nothing if none does.
std::unique_ptr<ServerLink> take_turns_link(const ServerPlace& place);
/// Lets it wait for the next; one that isn't usable, or is one too many, ends.
void give_back(std::unique_ptr<ServerLink> link);

} // namespace store
