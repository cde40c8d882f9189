#include "store/server_engine.h"

#include "base/literals.h"
#include "store/schema.h"
#include "store/server_sql.h"

#include <QStringList>

namespace store {

using namespace base;

QString literal(QString text) {
    return u'\'' + text.replace(u'\'', u"''"_s) + u'\'';
}

Awaited ServerEngine::ask(const Prepared& statement, const Values& values) {
    return m_link->pipe.run(statement.name, values, statement.sql);
}

void ServerEngine::write(const Prepared& statement, const Values& values) {
    constexpr qsizetype most_unheard = 500;
    const bool of_its_own = !m_link->in_transaction;
    if (of_its_own)
        say_begin_alone();
    m_last_write = ask(statement, values);
    if (of_its_own)
        commit_or_roll_back();
    else if (!statement.columns.isEmpty() || m_link->pipe.unheard() > most_unheard)
        m_link->pipe.hear_all();
}

void ServerEngine::commit_or_roll_back() {
    try {
        commit();
    } catch (const Error&) {
        roll_back();
        throw;
    }
}

int ServerEngine::changes() const {
    if (const Awaited last = std::exchange(m_last_write, {}))
        m_changes = QByteArray(PQcmdTuples(m_link->pipe.hear(last).get())).toInt();
    return m_changes;
}

/// Each is put into the server's words when those before it have run: they may have changed a table.
void ServerEngine::exec(std::string_view sql) {
    const auto fields_of = [this](const QString& table) { return m_link->names_of_columns(table); };
    const bool of_its_own = writes(sql) && !m_link->in_transaction;
    if (of_its_own)
        say_begin_alone();
    try {
        for (const QByteArray& statement : statements_of(sql))
            m_last_write = m_link->pipe.say(server_sql({statement.constData(), size_t(statement.size())}, fields_of));
        of_its_own ? commit() : m_link->pipe.hear_all();
    } catch (const Error&) {
        if (of_its_own)
            roll_back();
        throw;
    }
}

/// No row at all lets the numbers begin anew.
void ServerEngine::number_rows_behind(const QString& table, qint64 last) {
    const QByteArray sequence = "pg_get_serial_sequence(" + literal(quoted(table)).toUtf8() + ", 'rowid')";
    const bool any = last > 0;
    const QByteArray said = "select setval(" + sequence + ", " + QByteArray::number(any ? last : 1);
    m_link->pipe.hear(m_link->pipe.say(said + (any ? ", true)" : ", false)")));
}

/// Work on very many rows may keep the server busy for long.
void ServerEngine::expect_much() {
    m_link->pipe.silence = std::chrono::minutes(10);
}

void ServerEngine::say_begin_alone() {
    ServerPipe& pipe = m_link->pipe;
    m_link->in_transaction = true;
    pipe.say("begin");
    pipe.say("set local lock_timeout=" + QByteArray::number(qint64(patience.count())));
    pipe.say(m_link->write_lock());
}

/// A view is told with its first read; whoever writes waits until he is alone.
void ServerEngine::begin(Transaction::Lock lock) {
    if (m_link->making)
        return;
    if (lock == Transaction::Lock::Read) {
        m_link->in_transaction = true;
        m_link->pipe.say("begin isolation level repeatable read read only");
        return;
    }
    try {
        say_begin_alone();
        if (m_link->turn_in.isEmpty()) // whoever has the turn is alone
            m_link->pipe.hear_all();
    } catch (const Error&) {
        roll_back();
        throw;
    }
}

void ServerEngine::commit() {
    if (m_link->making)
        return m_link->pipe.hear_all();
    end_transaction();
}

void ServerEngine::end_making() {
    if (!m_link->in_transaction)
        throw Error(Code::Other, path, {}, {});
    end_transaction();
    m_link->making = false;
}

/// A server that can't commit rolls back, and calls that no error.
void ServerEngine::end_transaction() {
    const Result result = m_link->pipe.hear(m_link->pipe.say("commit"));
    m_link->in_transaction = false;
    if (QByteArrayView(PQcmdStatus(result.get())) != "COMMIT")
        throw Error(Code::Other, path, u"commit"_s, {});
}

QStringList ServerEngine::names() {
    QStringList names;
    const auto rows = prepare("select relname from pg_class where relnamespace = current_schema()::regnamespace"
                              " and not relispartition");
    while (rows->step())
        names << QString::fromUtf8(rows->utf8(0));
    return names;
}

} // namespace store
