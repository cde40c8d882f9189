#pragma once

// The key and value tables `kihon`, `losystem` and `rov_kihon`. A run of reads or writes shares one opening through the
// mode.

#include "frame/settings.h"
#include "store/database.h"

#include <optional>

namespace store {

/// The life of the settings connection.
enum class Run {
    Single = 0,   ///< opens, works, closes
    Begin = 1,    ///< opens and leaves open
    Continue = 2, ///< works on what stands open
    End = 3,      ///< works on what stands open and closes it
};

/// One pair of connection and table for reads and writes alike; runs can't be nested.
/// Holds a reference to the settings, whose roots it supplies while they are empty: so the first read of all finds
/// `losys.mdb`.
class SettingTables {
public:
    explicit SettingTables(frame::Settings& settings) : m_settings(settings) {}

    /// The value under the key; empty if the key or the table name is empty or the key isn't there.
    /// Run::Continue or Run::End when nothing stands open throws Code::Misuse.
    QString 設定読込(const QString& table, const QString& key, Run run = Run::Single);

    /// Stores the value under the key, adding the row if it isn't there. An empty table or key writes nothing.
    void 設定書込(const QString& table, const QString& key, const QString& value, Run run = Run::Single);

private:
    Database& table_for(const QString& table, Run run);
    void close_after(Run run);

    frame::Settings& m_settings;
    std::optional<Database> m_database;
    QString m_open_table;
};

} // namespace store
