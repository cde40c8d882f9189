#include "base/literals.h"
#include "store/engine.h"

#include <QFileInfo>

namespace store {

using namespace base;

QString quoted(QString name) {
    return u'"' + name.replace(u'"', u"\"\""_s) + u'"';
}

Database::Database(std::unique_ptr<Engine> engine) : m_engine(std::move(engine)) {}
Database::Database(Database&&) noexcept = default;
Database& Database::operator=(Database&&) noexcept = default;
Database::~Database() = default;

Database Database::open(const QString& path, Kind kind, std::chrono::milliseconds patience) {
    if (!QFileInfo::exists(path))
        throw Error(Code::Missing, path, {}, {});
    return Database(open_engine(path, kind, patience));
}

Statement Database::prepare(std::string_view sql) {
    return Statement(m_engine->prepare(sql));
}

void Database::exec(std::string_view sql) {
    m_engine->exec(sql);
}

int Database::changes() const {
    return m_engine->changes();
}

QList<Column> Database::columns_of(const QString& table) {
    return m_engine->columns_of(table);
}

void Database::expect_much() {
    m_engine->expect_much();
}

QByteArray Database::state() const {
    return m_engine->state();
}

const QString& Database::path() const {
    return m_engine->path;
}

} // namespace store
