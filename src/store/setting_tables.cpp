#include "store/setting_tables.h"

#include "base/literals.h"
#include "platform/paths.h"
#include "store/files.h"

namespace store {

using namespace base;

namespace {

enum class Task { Read, Change, Add, List, Remove };

constexpr QChar behind_any_text(0xFFFD);

/// The statements differ in the table's name alone, and only these three tables are of this shape.
std::string sql_for(Task task, const QString& table) {
    if (table != kihon && table != losystem && table != rov_kihon)
        throw Error(Code::Misuse, {}, {}, table);
    const std::string name = table.toStdString();
    if (task == Task::Read)
        return "select データ from " + name + " where 項目名=? order by rowid limit 1";
    if (task == Task::Change)
        return "update " + name + " set データ=? where 項目名=?";
    if (task == Task::List)
        return "select 項目名, データ from " + name + " where 項目名>? and 項目名<? order by 項目名, rowid desc";
    if (task == Task::Remove)
        return "delete from " + name + " where 項目名=?";
    return "insert into " + name + " (データ, 項目名) values (?, ?)";
}

Database open_file_of(const QString& table, const base::Settings& settings) {
    if (table == losystem)
        return Database::open(losys_path(settings), Kind::Losys);
    if (table == rov_kihon)
        return Database::open(rovdata_path(settings), Kind::Rovdata);
    return Database::open(comsys_path(settings), Kind::Comsys);
}

} // namespace

OpenSettings::OpenSettings(const QString& table, const base::Settings& settings)
    : m_table(table), m_database(open_file_of(table, settings)) {}

QString OpenSettings::設定読込(const QString& key) {
    if (key.isEmpty())
        return {};
    Statement read = m_database.prepare(sql_for(Task::Read, m_table));
    return read.bind(key).step() ? read.row().text(0) : QString();
}

void OpenSettings::設定書込(const QString& key, const QString& value) {
    if (key.isEmpty())
        return;
    begin_writes();
    m_database.prepare(sql_for(Task::Change, m_table)).bind(value, key).run();
    if (m_database.changes() == 0)
        m_database.prepare(sql_for(Task::Add, m_table)).bind(value, key).run();
}

QMap<QString, QString> OpenSettings::beginning_with(const QString& start) {
    QMap<QString, QString> found;
    Statement list = m_database.prepare(sql_for(Task::List, m_table));
    list.bind(start, start + behind_any_text);
    while (list.step())
        found.insert(list.row().text(0), list.row().text(1));
    return found;
}

void OpenSettings::remove(const QString& key) {
    begin_writes();
    m_database.prepare(sql_for(Task::Remove, m_table)).bind(key).run();
}

void OpenSettings::begin_writes() {
    if (!m_writes)
        m_writes.emplace(m_database);
}

void OpenSettings::commit() {
    if (m_writes)
        m_writes->commit();
    m_writes.reset();
}

OpenSettings SettingTables::open(const QString& table) {
    supply_roots();
    return OpenSettings(table, m_settings);
}

QString SettingTables::設定読込(const QString& table, const QString& key) {
    return table.isEmpty() || key.isEmpty() ? QString() : open(table).設定読込(key);
}

void SettingTables::設定書込(const QString& table, const QString& key, const QString& value) {
    if (table.isEmpty() || key.isEmpty())
        return;
    OpenSettings settings = open(table);
    settings.設定書込(key, value);
    settings.commit();
}

/// Until the first setting is read no root is known, and `losys.mdb`, which holds them, lies under one.
void SettingTables::supply_roots() {
    const QString default_root = platform::install_root(m_settings.install_drive);
    for (QString* root : {&m_settings.server_root, &m_settings.local_root})
        if (root->isEmpty())
            *root = default_root;
}

} // namespace store
