#pragma once

// A server root and a local root with new databases, in a temporary folder.

#include "base/literals.h"
#include "base/settings.h"
#include "store/database.h"
#include "store/error.h"
#include "store/files.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>
#include <optional>

class TestTree {
public:
    /// The roots are the folder itself or lie in it under the name.
    explicit TestTree(const QString& place = QDir::tempPath(), const QString& root = {})
        : folder(place + QStringLiteral("/store-XXXXXX")) {
        settings.server_root = settings.local_root = root.isEmpty() ? folder.path() : folder.filePath(root);
        for (const auto& [path, kind] :
            {std::pair(&store::comsys_path, store::Kind::Comsys), {&store::allsystem_path, store::Kind::Allsystem},
                {&store::rovdata_path, store::Kind::Rovdata}, {&store::losys_path, store::Kind::Losys}}) {
            QDir().mkpath(QFileInfo(path(settings)).path());
            store::Database::create(path(settings), kind);
        }
    }

    QTemporaryDir folder;
    base::Settings settings;
};

/// The code of the error that the work throws; nothing if it succeeds.
template <typename Work>
std::optional<store::Code> code_of(Work work) {
    try {
        work();
    } catch (const store::Error& error) {
        return error.code();
    }
    return std::nullopt;
}

inline qint64 number_from(store::Database& database, std::string_view sql) {
    store::Statement statement = database.prepare(sql);
    return statement.step() ? statement.row().number(0) : -1;
}

/// Employees 1 to the last one.
inline void add_employees(store::Database& database, int last) {
    store::Transaction transaction(database);
    auto add = database.prepare("insert into syain values (?, ?, '社員', 'シャイン', '', '', '')");
    for (int i = 1; i <= last; ++i)
        add.bind(i, i).run();
    transaction.commit();
}
