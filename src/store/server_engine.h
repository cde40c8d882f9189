#pragma once

// A database on a server. A write transaction takes the schema's write lock first, as one on a file does: so whoever
// writes in a transaction is alone with all tables of the schema, and readers see what was committed before.

#include "store/engine.h"
#include "store/schema.h"
#include "store/server_link.h"

namespace store {

/// A text as SQL writes it, for a name that stands as one.
QString literal(QString text);

class ServerEngine final : public Engine {
public:
    ServerEngine(std::unique_ptr<ServerLink> link, const QString& opened) : Engine(opened), m_link(std::move(link)) {}
    ~ServerEngine() override { give_back(std::move(m_link)); }

    std::unique_ptr<EngineStatement> prepare(std::string_view sql) override;
    void exec(std::string_view sql) override;
    int changes() const override;
    QList<Column> columns_of(const QString& table) override { return m_link->columns_of(table); }
    QStringList names() override;
    QString definition_of(Kind kind) const override { return server_definition_of(kind, m_link->marks().partitions); }
    void expect_much() override;
    QByteArray state() const override { return {}; } // who asks reads again
    void number_rows_behind(const QString& table, qint64 last) override;
    void begin(Transaction::Lock lock) override;
    void commit() override;
    void roll_back() noexcept override { m_link->make_ready(); }

    /// Lets the schema stay that the connection makes, with what was written into it. Code::Other if that was rolled
    /// back. Until then transactions are parts of that one.
    void end_making();

    Awaited ask(const Prepared& statement, const Values& values);
    Result hear(const Awaited& answer) { return m_link->pipe.hear(answer); }

    /// In a transaction, which ends with an error then, nobody waits for what a write says; otherwise it is one of its
    /// own.
    void write(const Prepared& statement, const Values& values);

private:
    void say_begin_alone();
    void commit_or_roll_back();
    void end_transaction();

    std::unique_ptr<ServerLink> m_link;
    mutable Awaited m_last_write;
    mutable int m_changes = 0;
};

} // namespace store
