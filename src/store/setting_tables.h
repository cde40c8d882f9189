#pragma once

// The key and value tables `kihon`, `losystem` and `rov_kihon`. A run of reads or writes shares one opening through the
// mode.

#include "base/settings.h"
#include "store/database.h"

#include <functional>
#include <optional>

namespace store {

/// The life of the settings connection.
enum class Run {
    Single = 0,   ///< opens, works, closes
    Begin = 1,    ///< opens and leaves open
    Continue = 2, ///< works on what stands open
    End = 3,      ///< works on what stands open and closes it
};

/// One pair of connection and table for reads and writes alike; runs can't be nested. The writes of a run are one
/// transaction, which stands when the run ends; after an error nothing of them stands and the run is over.
/// Holds a reference to the settings, whose roots it supplies while they are empty: so the first read of all finds
/// `losys.mdb`.
class SettingTables {
public:
    explicit SettingTables(base::Settings& settings) : m_settings(settings) {}

    /// The value under the key; empty if the key or the table name is empty or the key isn't there.
    /// Code::Misuse if Run::Continue or Run::End find nothing open, or Run::Single or Run::Begin find a run open.
    QString 設定読込(const QString& table, const QString& key, Run run = Run::Single);

    /// Stores the value under the key, adding the row if it isn't there. An empty table or key writes nothing.
    void 設定書込(const QString& table, const QString& key, const QString& value, Run run = Run::Single);

private:
    void in_run(const QString& table, const QString& key, Run run, const std::function<void(Database&)>& work);
    void open_for(const QString& table, Run run);
    void supply_roots();
    void close();
    void drop();

    base::Settings& m_settings;
    std::optional<Database> m_database;
    std::optional<Transaction> m_writes;
    QString m_open_table;
};

} // namespace store
