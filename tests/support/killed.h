#pragma once

// Programs that are ended without warning just before their nth change of a file.

#include <QDir>
#include <QFileInfo>
#include <QProcessEnvironment>

namespace support {

/// What is tested is the order of the changes, and memory spares the waiting for the disk.
inline QString fast_place() {
    const QString memory = QStringLiteral("/dev/shm");
    return QFileInfo(memory).isWritable() ? memory : QDir::tempPath();
}

/// The environment of a program that ends before so many changes; 0 is one that isn't ended.
inline QProcessEnvironment killed_before_change(int n) {
    auto environment = QProcessEnvironment::systemEnvironment();
    if (n > 0) {
        const QString shim = qEnvironmentVariable("ROVENA_BIN") + QStringLiteral("/kill_shim.so");
        environment.insert(QStringLiteral("LD_PRELOAD"), shim);
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0:verify_asan_link_order=0"));
        environment.insert(QStringLiteral("KILL_BEFORE_CHANGE"), QString::number(n));
    }
    return environment;
}

} // namespace support
