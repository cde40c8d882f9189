#pragma once

// A whole install tree in a temporary folder: new databases, and the artwork that the build draws.

#include "base/literals.h"
#include "store/database.h"
#include "store/files.h"
#include "store/setup.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

/// Whether the product has started on the data before.
enum class Started { Never, Before };

class InstallTree {
public:
    explicit InstallTree(Started started = Started::Before) {
        settings.install_drive = drive.path();
        settings.server_root = settings.local_root = root;
        make(store::comsys_path(settings), store::Kind::Comsys);
        make(store::allsystem_path(settings), store::Kind::Allsystem);
        make(store::rovdata_path(settings), store::Kind::Rovdata);
        make(store::losys_path(settings), store::Kind::Losys);
        if (started == Started::Before)
            store::初期セットアップ(settings)->stand();
        QDir().mkpath(QFileInfo(pictures).path());
        QFile::link(QStringLiteral(ROVENA_ARTWORK), pictures);
    }

    QTemporaryDir drive;
    const QString root = drive.path() + QStringLiteral("/Program Files/meridan/qn");
    const QString programs = root + QStringLiteral("/rovena100");
    const QString pictures = programs + QStringLiteral("/system/pic");
    frame::Settings settings;

private:
    static void make(const QString& path, store::Kind kind) {
        QDir().mkpath(QFileInfo(path).path());
        store::Database::create(path, kind);
    }
};
