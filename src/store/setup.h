#pragma once

// What each start does to the shared data: this product's row in the suite's register, and the data structure's stamp.

#include "base/settings.h"
#include "store/setting_tables.h"

#include <QStringList>
#include <memory>

namespace store {

inline constexpr QStringView data_file_name = u"rovdata.mdb"; ///< as the register names it, below the data folder
inline constexpr QStringView table_stamp = u"2006041301";     ///< the data structure that this program expects

/// Where the register says that this product's exchange receiver lies, in the platform's form.
QString receiver_path(const base::Settings& settings);

class FirstStart;

/// Brings this product's row of `allsystem` in line with the running program, adding it if there is none. A row whose
/// product number begins with the letter of ours is ours. Writes only what differs.
/// Returns the first start of this product on this data if the row was added, else null.
[[nodiscard]] std::unique_ptr<FirstStart> 初期セットアップ(const base::Settings& settings);

/// A first start that is under way. Its row is written, but stands only once stand() is called: a start that fails
/// before takes the row with it, and the next one is the first again.
class FirstStart {
public:
    void stand() { m_writes.commit(); }

private:
    friend std::unique_ptr<FirstStart> 初期セットアップ(const base::Settings& settings);
    explicit FirstStart(Database allsystem) : m_allsystem(std::move(allsystem)), m_writes(m_allsystem) {}

    Database m_allsystem;
    Transaction m_writes;
};

/// The same in an open `allsystem.mdb`, and for good. Returns whether the row was added.
bool register_product(Database& allsystem, const base::Settings& settings);

/// Looks through the databases of the suite once for each stamp, adds tables that this version needs and they lack, and
/// stores the stamp. Where the stamp stands already no other database is opened.
/// Returns which of the suite's own later tables were met on the way; none of them is needed here.
QStringList db追加_テーブル(const base::Settings& settings, SettingTables& tables);

} // namespace store
