#include "store/file_engine.h"

#include <sqlite3.h>
#include <utility>

namespace store {

namespace {

class FileStatement final : public EngineStatement {
public:
    FileStatement(FileEngine& engine, std::string_view sql);
    ~FileStatement() override { sqlite3_finalize(m_statement); }

    void bind_number(int place, qint64 value) override { check(sqlite3_bind_int64(m_statement, place, value)); }
    void bind_text(int place, QByteArrayView value) override;
    void bind_null(int place) override { check(sqlite3_bind_null(m_statement, place)); }
    bool step() override;
    void reset() override;

    qint64 number(int column) const override { return sqlite3_column_int64(m_statement, column); }
    QByteArrayView utf8(int column) const override;
    bool is_null(int column) const override { return sqlite3_column_type(m_statement, column) == SQLITE_NULL; }
    int columns() const override { return sqlite3_column_count(m_statement); }
    QString name(int column) const override { return QString::fromUtf8(sqlite3_column_name(m_statement, column)); }

private:
    void check(int result) const {
        if (result != SQLITE_OK)
            m_engine.fail(sqlite3_sql(m_statement), result);
    }

    FileEngine& m_engine;
    sqlite3_stmt* m_statement = nullptr;
    bool m_on_a_row = false;
};

FileStatement::FileStatement(FileEngine& engine, std::string_view sql) : m_engine(engine) {
    const int result = sqlite3_prepare_v2(engine.handle, sql.data(), int(sql.size()), &m_statement, nullptr);
    if (result == SQLITE_ERROR)
        throw Error(Code::Misuse, engine.path, QString::fromUtf8(sql.data(), qsizetype(sql.size())),
            QString::fromUtf8(sqlite3_errmsg(engine.handle)));
    if (result != SQLITE_OK)
        engine.fail(sql, result);
}

void FileStatement::bind_text(int place, QByteArrayView value) {
    // Without a pointer the library would bind a Null.
    const char* bytes = value.isNull() ? "" : value.data();
    check(sqlite3_bind_text(m_statement, place, bytes, int(value.size()), SQLITE_TRANSIENT));
}

bool FileStatement::step() {
    const int result = sqlite3_step(m_statement);
    m_on_a_row = result == SQLITE_ROW;
    if (m_on_a_row)
        return true;
    sqlite3_reset(m_statement);
    if (result != SQLITE_DONE)
        m_engine.fail(sqlite3_sql(m_statement), result);
    return false;
}

/// A statement that has run to its end was reset then.
void FileStatement::reset() {
    if (std::exchange(m_on_a_row, false))
        sqlite3_reset(m_statement);
}

QByteArrayView FileStatement::utf8(int column) const {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(m_statement, column));
    return {bytes, sqlite3_column_bytes(m_statement, column)};
}

} // namespace

std::unique_ptr<EngineStatement> FileEngine::prepare(std::string_view sql) {
    return std::make_unique<FileStatement>(*this, sql);
}

} // namespace store
