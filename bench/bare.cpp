#include "bench/bare.h"

#include <QByteArray>
#include <QFile>
#include <benchmark/benchmark.h>
#include <openssl/evp.h>
#include <stdexcept>

namespace bench {

namespace {

constexpr std::string_view password = "mzlart";

void check(bool fine, const char* what) {
    if (!fine)
        throw std::runtime_error(what);
}

} // namespace

std::string raw_key(const QString& path) {
    QFile file(path);
    check(file.open(QIODevice::ReadOnly), "no database");
    const QByteArray salt = file.read(16);
    QByteArray key(32, '\0');
    PKCS5_PBKDF2_HMAC_SHA1(password.data(), int(password.size()), reinterpret_cast<const unsigned char*>(salt.data()),
        int(salt.size()), 64'000, int(key.size()), reinterpret_cast<unsigned char*>(key.data()));
    return "x'" + key.toHex().toStdString() + salt.toHex().toStdString() + "'";
}

BareDatabase::BareDatabase(const QString& path, const std::string& key) {
    check(sqlite3_open_v2(path.toUtf8().constData(), &m_engine, SQLITE_OPEN_READWRITE, nullptr) == SQLITE_OK, "open");
    sqlite3_key(m_engine, key.data(), int(key.size()));
    exec("pragma cipher_page_size=4096");
}

sqlite3_stmt* BareDatabase::prepare(const char* sql) {
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v2(m_engine, sql, -1, &statement, nullptr) == SQLITE_OK, sql);
    return statement;
}

void BareDatabase::exec(const char* sql) {
    check(sqlite3_exec(m_engine, sql, nullptr, nullptr, nullptr) == SQLITE_OK, sql);
}

void step(sqlite3_stmt* statement, std::initializer_list<qint64> values) {
    int place = 0;
    for (const qint64 value : values)
        sqlite3_bind_int64(statement, ++place, value);
    while (sqlite3_step(statement) == SQLITE_ROW)
        for (int column = 0; column < sqlite3_column_count(statement); ++column)
            if (sqlite3_column_type(statement, column) == SQLITE_TEXT)
                benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
            else
                benchmark::DoNotOptimize(sqlite3_column_int64(statement, column));
    sqlite3_reset(statement);
}

void BareDatabase::step_through(const char* sql, std::initializer_list<qint64> values) {
    sqlite3_stmt* statement = prepare(sql);
    int place = 0;
    for (const qint64 value : values)
        sqlite3_bind_int64(statement, ++place, value);
    while (sqlite3_step(statement) == SQLITE_ROW)
        for (int column = 0; column < sqlite3_column_count(statement); ++column)
            benchmark::DoNotOptimize(sqlite3_column_text(statement, column));
    sqlite3_finalize(statement);
}

} // namespace bench
