#pragma once

// The key and value tables `kihon`, `losystem` and `rov_kihon`.

#include "base/settings.h"
#include "store/database.h"

#include <QMap>
#include <optional>

namespace store {

inline const QString kihon = QStringLiteral("kihon");         ///< of the company, in `comsys.mdb`
inline const QString rov_kihon = QStringLiteral("rov_kihon"); ///< of this product's data, in `rovdata.mdb`
inline const QString losystem = QStringLiteral("losystem");   ///< of this PC, in `losys.mdb`

/// One opening of a table, for several reads and writes: it lasts as long as this value. The writes are one
/// transaction, which stands from commit() on; without commit() nothing of them stands. An empty key reads empty and
/// writes nothing.
class OpenSettings {
public:
    /// Empty where there is no such key. Sees what was written through this opening.
    QString 設定読込(const QString& key);
    void 設定書込(const QString& key, const QString& value);
    /// Every key that begins so and goes on, with its value.
    QMap<QString, QString> beginning_with(const QString& start);
    void remove(const QString& key); ///< nothing where there is no such key
    void commit();                   ///< what is written after it is a transaction of its own

private:
    friend class SettingTables;
    void begin_writes();
    OpenSettings(const QString& table, const base::Settings& settings);

    QString m_table;
    Database m_database;
    std::optional<Transaction> m_writes; ///< begun by the first write
};

/// Holds a reference to the settings, whose roots it supplies while they are empty: so the first read of all finds
/// `losys.mdb`.
class SettingTables {
public:
    explicit SettingTables(base::Settings& settings) : m_settings(settings) {}

    /// Opens the file of the table, throwing what Database::open() throws. Code::Misuse at the first read or write if
    /// it is none of the three.
    OpenSettings open(const QString& table);

    /// Opens, reads and closes: the value under the key; empty if the key or the table name is empty or the key isn't
    /// there.
    QString 設定読込(const QString& table, const QString& key);

    /// Opens, stores the value under the key, adding the row if it isn't there, commits and closes. An empty table or
    /// key writes nothing.
    void 設定書込(const QString& table, const QString& key, const QString& value);

private:
    void supply_roots();

    base::Settings& m_settings;
};

} // namespace store
