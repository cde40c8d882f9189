#include "store/connection.h"

#include <algorithm>
#include <limits>
#include <sqlite3.h>
#include <utility>

namespace store {

qint64 Row::number(int column) const {
    return sqlite3_column_int64(m_statement, column);
}

int Row::integer(int column) const {
    constexpr qint64 lowest = std::numeric_limits<int>::min();
    constexpr qint64 highest = std::numeric_limits<int>::max();
    return int(std::clamp(number(column), lowest, highest));
}

QString Row::text(int column) const {
    return QString::fromUtf8(utf8(column));
}

QByteArrayView Row::utf8(int column) const {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return {bytes, sqlite3_column_bytes(m_statement, column)};
}

bool Row::is_null(int column) const {
    return sqlite3_column_type(m_statement, column) == SQLITE_NULL;
}

int Row::columns() const {
    return sqlite3_column_count(m_statement);
}

QString Row::name(int column) const {
    return QString::fromUtf8(sqlite3_column_name(m_statement, column));
}

Statement::Statement(Connection& connection, std::string_view sql) : m_connection(&connection) {
    const int result = sqlite3_prepare_v2(connection.engine, sql.data(), int(sql.size()), &m_statement, nullptr);
    if (result == SQLITE_ERROR)
        throw Error(Code::Misuse, connection.path, QString::fromUtf8(sql.data(), qsizetype(sql.size())),
            QString::fromUtf8(sqlite3_errmsg(connection.engine)));
    if (result != SQLITE_OK)
        connection.fail(sql, result);
}

Statement::Statement(Statement&& other) noexcept
    : m_connection(other.m_connection), m_statement(std::exchange(other.m_statement, nullptr)),
      m_on_a_row(other.m_on_a_row) {}

Statement& Statement::operator=(Statement&& other) noexcept {
    std::swap(m_connection, other.m_connection);
    std::swap(m_statement, other.m_statement);
    std::swap(m_on_a_row, other.m_on_a_row);
    return *this;
}

Statement::~Statement() {
    sqlite3_finalize(m_statement);
}

void Statement::check(int result) {
    if (result != SQLITE_OK)
        m_connection->fail(sqlite3_sql(m_statement), result);
}

void Statement::bind_number(int place, qint64 value) {
    check(sqlite3_bind_int64(m_statement, place, value));
}

void Statement::bind_at(int place, QStringView value) {
    bind_utf8(place, value.toUtf8());
}

void Statement::bind_utf8(int place, QByteArrayView value) {
    // Without a pointer the engine would bind a Null.
    const char* bytes = value.isNull() ? "" : value.data();
    check(sqlite3_bind_text(m_statement, place, bytes, int(value.size()), SQLITE_TRANSIENT));
}

void Statement::bind_null(int place) {
    check(sqlite3_bind_null(m_statement, place));
}

bool Statement::step() {
    const int result = sqlite3_step(m_statement);
    m_on_a_row = result == SQLITE_ROW;
    if (m_on_a_row)
        return true;
    sqlite3_reset(m_statement);
    if (result != SQLITE_DONE)
        m_connection->fail(sqlite3_sql(m_statement), result);
    return false;
}

void Statement::run() {
    while (step()) {
    }
}

/// A statement that has run to its end was reset then.
void Statement::reset() {
    if (std::exchange(m_on_a_row, false))
        sqlite3_reset(m_statement);
}

} // namespace store
