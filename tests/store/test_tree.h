#pragma once

// A server root and a local root with new databases, in a temporary folder.

#include "base/literals.h"
#include "frame/settings.h"
#include "store/database.h"
#include "store/files.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

class TestTree {
public:
    explicit TestTree(const QString& place = QDir::tempPath()) : folder(place + QStringLiteral("/store-XXXXXX")) {
        settings.server_root = settings.local_root = folder.path();
        make(store::comsys_path(settings), store::Kind::Comsys);
        make(store::allsystem_path(settings), store::Kind::Allsystem);
        make(store::rovdata_path(settings), store::Kind::Rovdata);
        make(store::losys_path(settings), store::Kind::Losys);
    }

    QTemporaryDir folder;
    frame::Settings settings;

private:
    static void make(const QString& path, store::Kind kind) {
        QDir().mkpath(QFileInfo(path).path());
        store::Database::create(path, kind);
    }
};

inline qint64 number_from(store::Database& database, std::string_view sql) {
    store::Statement statement = database.prepare(sql);
    return statement.step() ? statement.row().number(0) : -1;
}
