#pragma once

// A whole install tree in a temporary folder: new databases, and the artwork that the build draws; and a session on it.

#include "frame/session.h"
#include "store/setup.h"
#include "store/test_tree.h"
#include "support/fake_host.h"

#include <filesystem>

/// Whether the product has started on the data before.
enum class Started { Never, Before };

struct InstallTree : TestTree {
    explicit InstallTree(Started started = Started::Before)
        : TestTree(QDir::tempPath(), QStringLiteral("Program Files/meridan/qn")) {
        settings.install_drive = folder.path();
        if (started == Started::Before)
            store::初期セットアップ(settings)->stand();
        QDir().mkpath(pictures);
        std::filesystem::copy(ROVENA_ARTWORK, pictures.toStdU16String(), std::filesystem::copy_options::recursive);
    }
    store::Database rovdata() const {
        return store::Database::open(store::rovdata_path(settings), store::Kind::Rovdata);
    }
    store::Database comsys() const { return store::Database::open(store::comsys_path(settings), store::Kind::Comsys); }

    const QString programs = settings.server_root + QStringLiteral("/rovena100");
    const QString pictures = programs + QStringLiteral("/system/pic");
    support::FakeHost host;
    store::SettingTables tables{settings};
    frame::TurnLink link{settings, host};
    frame::Session session{settings, host, tables, link};
};
