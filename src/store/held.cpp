#include "store/holding.h"

#include "base/literals.h"
#include "store/file_engine.h"

#include <utility>

namespace store {

using namespace base;

namespace {

/// Another PC may be restoring the same file: it is out of the way again in a moment.
constexpr int most_attempts = 10;

std::unique_ptr<Holding> hold(const QString& path, Kind kind, std::chrono::milliseconds patience) {
    for (int attempt = 1;; ++attempt) {
        try {
            Database database = Database::open(path, kind, patience);
            const bool is_file = dynamic_cast<FileEngine*>(&Engine::of(database)) != nullptr;
            return is_file ? hold_file(std::move(database), kind) : hold_on_server(std::move(database), kind);
        } catch (const Error& error) {
            if (error.code() != Code::Replaced || attempt == most_attempts)
                throw;
        }
    }
}

} // namespace

qint64 number_of(Database& database, const QString& sql) {
    Statement statement = database.prepare(sql.toStdString());
    return statement.step() ? statement.row().number(0) : 0;
}

RowCounts row_counts(Database& database) {
    QStringList names{u"sqlite_master"_s};
    Statement tables =
        database.prepare("select name from sqlite_master where type='table' and name not like 'sqlite_%'");
    while (tables.step())
        names << tables.row().text(0);
    RowCounts counts;
    for (const QString& name : names)
        counts[name] = number_of(database, u"select count(*) from "_s + quoted(name));
    return counts;
}

Database open_checked(const QString& path, Kind kind) {
    Database database = Database::open(path, kind);
    Statement check = database.prepare("pragma integrity_check");
    const QString result = check.step() ? check.row().text(0) : QString();
    if (result != u"ok")
        throw Error(Code::Damaged, path, u"pragma integrity_check"_s, result);
    return database;
}

void check_copy(const QString& path, Kind kind, const RowCounts& expected) {
    Database copy = open_checked(path, kind);
    if (row_counts(copy) != expected)
        throw Error(Code::Damaged, path, {}, u"行数が元のデータベースと違います。"_s);
}

Held::Held(const QString& path, Kind kind, std::chrono::milliseconds patience)
    : m_path(path), m_holding(hold(path, kind, patience)), m_rows(m_holding->rows()) {}
Held::Held(Held&&) noexcept = default;
Held::~Held() = default;

qint64 Held::spare_pages() {
    return m_holding->spare_pages();
}

bool Held::is_file() const {
    return m_holding->is_file();
}

void Held::compact_into(const QString& target) {
    m_holding->compact_into(target);
}

void Held::copy_into(const QString& target) {
    m_holding->copy_into(target);
}

void Held::take_over(const QString& copy) {
    m_holding->take_over(copy);
}

void Held::rename_schemas(const NewNames& names) {
    m_holding->rename_schemas(names);
}

} // namespace store
