#pragma once

// Other programs at work beside the test, some of them ended without warning just before their nth change of a file.

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <gtest/gtest.h>
#include <memory>

namespace support {

/// What is tested is the order of the changes, and memory spares the waiting for the disk.
inline QString fast_place() {
    const QString memory = QStringLiteral("/dev/shm");
    return QFileInfo(memory).isWritable() && !qEnvironmentVariableIsSet("TMPDIR") ? memory : QDir::tempPath();
}

/// Only Linux lets a library step between a program and the system.
#ifdef Q_OS_LINUX
#define ROVENA_NEEDS_THE_SHIM (void)0
#else
#define ROVENA_NEEDS_THE_SHIM GTEST_SKIP() << "no library steps between a program and this system"
#endif

/// The environment of a program in which the variable of the kill shim has the value.
inline QProcessEnvironment shimmed(const QString& variable, int n) {
    auto environment = QProcessEnvironment::systemEnvironment();
    const QString shim = qEnvironmentVariable("ROVENA_BIN") + QStringLiteral("/kill_shim.so");
    environment.insert(QStringLiteral("LD_PRELOAD"), shim);
    environment.insert(QStringLiteral("ASAN_OPTIONS"), QStringLiteral("detect_leaks=0:verify_asan_link_order=0"));
    environment.insert(variable, QString::number(n));
    return environment;
}

/// Of a program that ends before so many changes.
inline QProcessEnvironment killed_before_change(int n) {
    return shimmed(QStringLiteral("KILL_BEFORE_CHANGE"), n);
}

inline std::unique_ptr<QProcess> start_program(const QString& file, const QStringList& arguments,
    const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
    auto process = std::make_unique<QProcess>();
    process->setProcessEnvironment(environment);
    process->setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process->start(file, arguments);
    EXPECT_TRUE(process->waitForStarted());
    return process;
}

/// This test program started anew with a task of its own.
inline std::unique_ptr<QProcess> start_child(
    const QStringList& task, const QProcessEnvironment& environment = QProcessEnvironment::systemEnvironment()) {
    return start_program(
        QCoreApplication::applicationFilePath(), QStringList{QStringLiteral("--child")} + task, environment);
}

/// The exit status of a program, which is waited for; -1 for one that was killed.
inline int status_of(QProcess& process) {
    EXPECT_TRUE(process.waitForFinished(-1));
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

} // namespace support
