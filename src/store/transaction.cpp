#include "store/engine.h"

namespace store {

Transaction::Transaction(Database& database, Lock lock) : m_engine(*database.m_engine) {
    m_engine.begin(lock);
}

Transaction::~Transaction() {
    if (m_open)
        m_engine.roll_back();
}

void Transaction::commit() {
    m_engine.commit();
    m_open = false;
}

} // namespace store
