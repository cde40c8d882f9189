#include "store/connection.h"

#include <sqlite3.h>

namespace store {

namespace {

constexpr std::string_view beginning(Transaction::Lock lock) {
    switch (lock) {
    case Transaction::Lock::Read:
        return "begin";
    case Transaction::Lock::Write:
        return "begin immediate";
    default:
        return "begin exclusive";
    }
}

} // namespace

Transaction::Transaction(Database& database, Lock lock) : m_connection(*database.m_connection) {
    m_connection.exec(beginning(lock));
    if (!m_connection.replaced())
        return;
    roll_back();
    throw Error(Code::Replaced, m_connection.path, {}, {});
}

Transaction::~Transaction() {
    if (m_open)
        roll_back();
}

void Transaction::commit() {
    m_connection.exec("commit");
    m_open = false;
}

void Transaction::roll_back() {
    // After some failures the engine has rolled back by itself; either way nothing is left to report.
    if (sqlite3_get_autocommit(m_connection.engine) == 0)
        sqlite3_exec(m_connection.engine, "rollback", nullptr, nullptr, nullptr);
}

} // namespace store
