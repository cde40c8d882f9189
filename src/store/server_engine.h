#pragma once

// A database on a server. A write transaction takes the schema's write lock first, as one on a file does: so whoever
// writes in a transaction is alone with all tables of the schema, and readers see what was committed before.

#include "store/engine.h"
#include "store/schema.h"
#include "store/server_link.h"

namespace store {

class ServerEngine final : public Engine {
public:
    ServerEngine(std::unique_ptr<ServerLink> link, const QString& opened) : Engine(opened), m_link(std::move(link)) {}
    ~ServerEngine() override;

    std::unique_ptr<EngineStatement> prepare(std::string_view sql) override;
    void exec(std::string_view sql) override;
    int changes() const override { return m_changes; }
    QList<Column> columns_of(const QString& table) override { return m_link->columns_of(table); }
    QStringList names() override;
    QString definition_of(Kind kind) const override { return server_definition_of(kind); }
    void expect_much() override {}
    QByteArray state() const override { return {}; } // who asks reads again
    void number_rows_behind(const QString& table, qint64 last) override;
    void begin(Transaction::Lock lock) override;
    void commit() override { m_link->exec("commit"); }
    void roll_back() noexcept override;

    /// Runs the statement, one that writes in a transaction of its own unless there is one.
    Result run(const Prepared& statement, bool writing, const QList<const char*>& values);

private:
    /// Runs the work, alone with the schema if it writes.
    template <typename Work>
    Result alone_if(bool writing, Work work);

    std::unique_ptr<ServerLink> m_link;
    int m_changes = 0;
};

} // namespace store
