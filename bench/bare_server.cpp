#if __has_include(<libpq-fe.h>)

#include "bench/bare_server.h"

#include <QString>
#include <benchmark/benchmark.h>
#include <memory>
#include <stdexcept>

namespace bench {

namespace {

/// How many rows; every field is looked at.
int taken(PGresult* given, PGconn* connection) {
    const std::unique_ptr<PGresult, decltype(&PQclear)> result(given, PQclear);
    const ExecStatusType status = PQresultStatus(given);
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK)
        throw std::runtime_error(PQerrorMessage(connection));
    for (int row = 0; row < PQntuples(given); ++row)
        for (int column = 0; column < PQnfields(given); ++column)
            benchmark::DoNotOptimize(PQgetvalue(given, row, column));
    return PQntuples(given);
}

} // namespace

BareServer::BareServer(const QByteArray& connection, const QString& schema)
    : m_connection(PQconnectdb(connection.constData())) {
    exec("set client_min_messages=error; set search_path=\"" + schema.toUtf8() + "\", pg_catalog");
}

void BareServer::exec(const QByteArray& sql) {
    taken(PQexec(m_connection, sql.constData()), m_connection);
}

void BareServer::prepare(const QByteArray& name, const QByteArray& sql) {
    taken(PQprepare(m_connection, name.constData(), sql.constData(), 0, nullptr), m_connection);
}

int BareServer::run(const QByteArray& name, std::initializer_list<qint64> numbers) {
    QList<QByteArray> texts;
    for (const qint64 number : numbers)
        texts << QByteArray::number(number);
    return run_texts(name, texts);
}

int BareServer::run_texts(const QByteArray& name, const QList<QByteArray>& texts) {
    QList<const char*> values;
    for (const QByteArray& text : texts)
        values << (text.isNull() ? nullptr : text.constData());
    return taken(
        PQexecPrepared(m_connection, name.constData(), int(values.size()), values.constData(), nullptr, nullptr, 0),
        m_connection);
}

} // namespace bench

#endif
