#pragma once

// New databases where a program on a drive looks for them.

#include "platform/paths.h"
#include "store/test_tree.h"

struct DriveTree : TestTree {
    explicit DriveTree(const QString& place = QDir::tempPath())
        : TestTree(place, platform::install_root({}).sliced(1)) {
        settings.install_drive = folder.path();
    }
};
