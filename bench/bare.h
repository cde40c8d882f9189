#pragma once

// The engine as a program would use it that has no store of its own: a keyed opening and plain statements.

#include <QString>
#include <sqlite3.h>
#include <string>

namespace bench {

/// The key of a file in the engine's raw form, derived once.
std::string raw_key(const QString& path);

/// Steps through a prepared query with numbers bound in order, looks at every column as what it is, and resets it.
void step(sqlite3_stmt* statement, std::initializer_list<qint64> values);

class BareDatabase {
public:
    BareDatabase(const QString& path, const std::string& key);
    ~BareDatabase() { sqlite3_close(m_engine); }
    BareDatabase(const BareDatabase&) = delete;
    BareDatabase& operator=(const BareDatabase&) = delete;

    sqlite3_stmt* prepare(const char* sql);
    void exec(const char* sql);

    /// Steps through a query with numbers bound in order, and looks at every column.
    void step_through(const char* sql, std::initializer_list<qint64> values);

private:
    sqlite3* m_engine = nullptr;
};

} // namespace bench
