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

/// The environment of a program in which the variable of the kill shim has the value; 0 leaves the program in peace.
inline QProcessEnvironment shimmed(const QString& variable, int n) {
    auto environment = QProcessEnvironment::systemEnvironment();
    if (n > 0) {
        const QString shim = qEnvironmentVariable("ROVENA_BIN") + QStringLiteral("/kill_shim.so");
        environment.insert(QStringLiteral("LD_PRELOAD"), shim);
        environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0:verify_asan_link_order=0"));
        environment.insert(variable, QString::number(n));
    }
    return environment;
}

/// Of a program that ends before so many changes.
inline QProcessEnvironment killed_before_change(int n) {
    return shimmed(QStringLiteral("KILL_BEFORE_CHANGE"), n);
}

/// Of a program that stops before so many steps, until it is told to go on.
inline QProcessEnvironment stopped_before_step(int n) {
    return shimmed(QStringLiteral("STOP_BEFORE_STEP"), n);
}

} // namespace support
