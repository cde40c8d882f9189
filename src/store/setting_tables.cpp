#include "store/setting_tables.h"

#include "base/literals.h"
#include "platform/paths.h"
#include "store/files.h"

namespace store {

using namespace base;

namespace {

bool opens(Run run) {
    return run == Run::Single || run == Run::Begin;
}

bool closes(Run run) {
    return run == Run::Single || run == Run::End;
}

enum class Task { Read, Change, Add };

/// The statements differ in the table's name alone, and only these three tables are of this shape.
std::string sql_for(Task task, const QString& table) {
    if (table != u"kihon" && table != u"losystem" && table != u"rov_kihon")
        throw Error(Code::Misuse, {}, {}, table);
    const std::string name = table.toStdString();
    if (task == Task::Read)
        return "select データ from " + name + " where 項目名=? order by rowid limit 1";
    if (task == Task::Change)
        return "update " + name + " set データ=? where 項目名=?";
    return "insert into " + name + " (データ, 項目名) values (?, ?)";
}

Database open_file_of(const QString& table, const base::Settings& settings) {
    if (table == u"losystem")
        return Database::open(losys_path(settings), Kind::Losys);
    if (table == u"rov_kihon")
        return Database::open(rovdata_path(settings), Kind::Rovdata);
    return Database::open(comsys_path(settings), Kind::Comsys);
}

QString read(Database& database, const QString& table, const QString& key) {
    Statement statement = database.prepare(sql_for(Task::Read, table));
    return statement.bind(key).step() ? statement.row().text(0) : QString();
}

void write(Database& database, const QString& table, const QString& key, const QString& value) {
    database.prepare(sql_for(Task::Change, table)).bind(value, key).run();
    if (database.changes() == 0)
        database.prepare(sql_for(Task::Add, table)).bind(value, key).run();
}

} // namespace

QString SettingTables::設定読込(const QString& table, const QString& key, Run run) {
    QString value;
    in_run(table, key, run, [&](Database& database) { value = read(database, m_open_table, key); });
    return value;
}

void SettingTables::設定書込(const QString& table, const QString& key, const QString& value, Run run) {
    in_run(table, key, run, [&](Database& database) {
        if (!m_writes)
            m_writes.emplace(database);
        write(database, m_open_table, key, value);
    });
}

void SettingTables::in_run(
    const QString& table, const QString& key, Run run, const std::function<void(Database&)>& work) {
    const bool nameless = table.isEmpty() || key.isEmpty();
    if (nameless && opens(run))
        return;
    try {
        open_for(table, run);
        if (!nameless)
            work(*m_database);
        if (closes(run))
            close();
    } catch (...) {
        drop();
        throw;
    }
}

void SettingTables::open_for(const QString& table, Run run) {
    if (opens(run) == m_database.has_value())
        throw Error(Code::Misuse, {}, {}, u"設定 %1"_s.arg(table));
    if (!opens(run))
        return;
    supply_roots();
    m_database.emplace(open_file_of(table, m_settings));
    m_open_table = table;
}

/// Until the first setting is read no root is known, and `losys.mdb`, which holds them, lies under one.
void SettingTables::supply_roots() {
    const QString default_root = m_settings.install_drive + platform::install_tail();
    for (QString* root : {&m_settings.server_root, &m_settings.local_root})
        if (root->isEmpty())
            *root = default_root;
}

void SettingTables::close() {
    if (m_writes)
        m_writes->commit();
    drop();
}

void SettingTables::drop() {
    m_writes.reset();
    m_database.reset();
}

} // namespace store
