#include "store/server_link.h"

#include "base/literals.h"
#include "store/server.h"
#include "store/server_sql.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <vector>

namespace store {

using namespace base;

namespace {

struct Meaning {
    QByteArrayView state; ///< the beginning of the server's code
    Code code;
};

// What is told more closely stands first.
constexpr std::array meanings{
    Meaning{"55P03", Code::Busy}, // a lock wasn't to be had in time
    Meaning{"40", Code::Busy},    // two waited for each other
    Meaning{"42501", Code::ReadOnly},
    Meaning{"25006", Code::ReadOnly},
    Meaning{"53100", Code::Full},
    Meaning{"53", Code::Busy}, // connections, memory
    Meaning{"28", Code::NoAccess},
    Meaning{"3", Code::Missing},
    Meaning{"XX", Code::Damaged},
    Meaning{"08", Code::Io},
    Meaning{"57", Code::Io}, // the server is shutting down, or starting
    Meaning{"58", Code::Io},
    Meaning{"22", Code::Misuse},
    Meaning{"23", Code::Misuse},
    Meaning{"42", Code::Misuse},
};

Code meaning_of(const QByteArray& state) {
    if (state.isEmpty()) // libpq itself: the connection is cut
        return Code::Io;
    const auto meaning =
        std::ranges::find_if(meanings, [&](const Meaning& candidate) { return state.startsWith(candidate.state); });
    return meaning == meanings.end() ? Code::Other : meaning->code;
}

/// The server's sentence, without the details, in which values may stand.
QString sentence_of(const PGresult* result, const PGconn* connection) {
    const char* sentence = PQresultErrorField(result, PG_DIAG_MESSAGE_PRIMARY);
    return QString::fromUtf8(sentence ? sentence : PQerrorMessage(connection)).trimmed();
}

/// Everything that the program sets of a connection, where what the administrator wrote doesn't: a server that is away
/// is told after ten seconds, also in the midst of a statement.
constexpr std::pair<const char*, const char*> defaults[]{
    {"connect_timeout", "10"},
    {"tcp_user_timeout", "10000"},
    {"keepalives_idle", "10"},
    {"application_name", "rovena"},
};

PGconn* connected(const ServerPlace& place) {
    std::vector<const char*> names, values;
    const auto add = [&](const char* name, const char* value) {
        names.push_back(name);
        values.push_back(value);
    };
    for (const auto& [name, value] : defaults)
        add(name, value);
    add("dbname", place.connection.constData()); // is taken apart, and goes before what stands before it
    add("client_encoding", "UTF8");
    add(nullptr, nullptr);
    return PQconnectdbParams(names.data(), values.data(), /*expand_dbname=*/1);
}

constexpr std::array<unsigned, 6> number_types{20, 21, 23, 700, 701, 1700}; ///< as pg_type numbers them

struct FreeOptions {
    void operator()(PQconninfoOption* options) const { PQconninfoFree(options); }
};

} // namespace

void check_connection_words(const QByteArray& words) {
    char* given = nullptr;
    const std::unique_ptr<PQconninfoOption, FreeOptions> options(PQconninfoParse(words.constData(), &given));
    const std::unique_ptr<char, decltype(&PQfreemem)> trouble(given, PQfreemem);
    if (!options)
        throw std::runtime_error("the data server's words: " + std::string(trouble ? trouble.get() : "no memory"));
    for (const PQconninfoOption* option = options.get(); option->keyword; ++option)
        if (QByteArrayView(option->keyword) == "password" && option->val)
            throw std::runtime_error("a password belongs into libpq's password file, not here");
}

QByteArray comment_of(const Marks& marks) {
    return "rovena " + QByteArray::number(marks.application_id) + ' ' + QByteArray::number(marks.version);
}

ServerLink::ServerLink(ServerPlace place, const QString& opened)
    : path(opened), m_place(std::move(place)), m_connection(connected(m_place)) {
    PQsetNoticeProcessor(
        m_connection, [](void*, const char*) {}, nullptr);
    if (PQstatus(m_connection) == CONNECTION_OK)
        return;
    const QString reason = QString::fromUtf8(PQerrorMessage(m_connection)).trimmed();
    PQfinish(m_connection);
    throw Error(Code::NoAccess, path, {}, reason);
}

void ServerLink::know_schema() {
    exec("set search_path=" + quoted(m_place.schema).toUtf8() + ", pg_catalog; set lock_timeout=5000");
    const QByteArray name = m_place.schema.toUtf8();
    const char* const values[]{name.constData()};
    constexpr auto asked = "select oid, obj_description(oid, 'pg_namespace') from pg_namespace where nspname = $1";
    const Result found = checked(PQexecParams(m_connection, asked, 1, nullptr, values, nullptr, nullptr, 0), {});
    if (PQntuples(found.get()) == 0)
        throw Error(Code::Missing, path, {}, m_place.schema);
    m_schema_id = PQgetvalue(found.get(), 0, 0);
    const QList<QByteArray> words = QByteArray(PQgetvalue(found.get(), 0, 1)).split(' ');
    m_marks = {words.value(1).toInt(), words.value(2).toInt()};
}

Result ServerLink::checked(PGresult* given, const QString& sql) const {
    Result result(given);
    const ExecStatusType status = PQresultStatus(given);
    if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK || status == PGRES_EMPTY_QUERY)
        return result;
    throw Error(meaning_of(PQresultErrorField(given, PG_DIAG_SQLSTATE)), path, sql, sentence_of(given, m_connection));
}

Result ServerLink::exec(const QByteArray& sql) {
    return checked(PQexec(m_connection, sql.constData()), QString::fromUtf8(sql));
}

Result ServerLink::run(const Prepared& statement, const QList<const char*>& values) {
    return checked(PQexecPrepared(m_connection, statement.name.constData(), int(values.size()), values.constData(),
                       nullptr, nullptr, 0),
        statement.sql);
}

const Prepared& ServerLink::prepared(std::string_view sql) {
    const QByteArray key(sql.data(), qsizetype(sql.size()));
    const auto known = m_prepared.constFind(key);
    if (known != m_prepared.constEnd())
        return *known;
    const auto fields_of = [this](const QString& table) {
        QStringList names;
        for (const Column& column : columns_of(table))
            names << column.name;
        return names;
    };
    return *m_prepared.insert(key, prepare(server_sql(sql, fields_of), QString::fromUtf8(key)));
}

Prepared ServerLink::prepare(const QByteArray& native, const QString& sql) {
    Prepared statement;
    statement.name = 's' + QByteArray::number(m_prepared.size());
    statement.sql = sql;
    checked(PQprepare(m_connection, statement.name.constData(), native.constData(), 0, nullptr), sql);
    const Result described = checked(PQdescribePrepared(m_connection, statement.name.constData()), sql);
    for (int place = 0; place < PQnparams(described.get()); ++place)
        statement.numeric << (std::ranges::find(number_types, PQparamtype(described.get(), place)) !=
                              number_types.end());
    for (int column = 0; column < PQnfields(described.get()); ++column)
        statement.columns << QString::fromUtf8(PQfname(described.get(), column));
    return statement;
}

QList<Column> ServerLink::columns_of(const QString& table) {
    const QByteArray name = table.toUtf8();
    const char* const values[]{m_schema_id.constData(), name.constData()};
    constexpr auto asked =
        "select attname, format_type(atttypid, atttypmod) from pg_attribute join pg_class on pg_class.oid = attrelid"
        " where relnamespace = $1::oid and relname = $2 and relkind in ('r', 'p') and attnum > 0"
        " and not attisdropped and attname <> 'rowid' order by attnum";
    const Result found = checked(PQexecParams(m_connection, asked, 2, nullptr, values, nullptr, nullptr, 0), {});
    QList<Column> columns;
    for (int row = 0; row < PQntuples(found.get()); ++row)
        columns << Column{
            QString::fromUtf8(PQgetvalue(found.get(), row, 0)), QString::fromUtf8(PQgetvalue(found.get(), row, 1))};
    return columns;
}

/// The first look may take in the server's last word, and only the second meets the end.
bool ServerLink::usable() {
    const bool heard = PQconsumeInput(m_connection) == 1 && PQconsumeInput(m_connection) == 1;
    return heard && PQstatus(m_connection) == CONNECTION_OK && !in_transaction();
}

QByteArray ServerLink::write_lock() const {
    constexpr QByteArrayView ours = "20060413"; // tells these locks from those of other programs
    return "select pg_advisory_xact_lock(" + ours.toByteArray() + ", " + m_schema_id + ')';
}

} // namespace store
