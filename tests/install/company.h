#pragma once

// A made-up company in an install tree, and what its databases hold.

#include "base/literals.h"
#include "install/install.h"
#include "store/files.h"
#include "store/schema.h"
#include "support/stored.h"

namespace install {

using namespace base;
using namespace store;
using support::rows_of;

struct File {
    Kind kind;
    QString (*path)(const base::Settings&);
};
constexpr File shared_files[]{
    {Kind::Rovdata, rovdata_path}, {Kind::Comsys, comsys_path}, {Kind::Allsystem, allsystem_path}};

inline base::Settings make_company(const QString& root, const Sample& sample) {
    Options options;
    options.root = root;
    options.sample = sample;
    run(options, root, [](const QString&) {});
    return settings_of(options);
}

/// All rows of the kind's tables, in the order of the tables.
inline QStringList all_rows(const QString& path, Kind kind) {
    QStringList lines;
    for (const Table& table : tables_of(kind)) {
        const QString sql = u"select * from \"%1\" order by rowid"_s.arg(table.name);
        lines << table.name.toString() << rows_of(path, kind, sql.toStdString());
    }
    return lines;
}

/// All rows of the shared files.
inline QStringList all_rows(const base::Settings& settings) {
    QStringList all;
    for (const auto& [kind, path] : shared_files)
        all << all_rows(path(settings), kind);
    return all;
}

} // namespace install
