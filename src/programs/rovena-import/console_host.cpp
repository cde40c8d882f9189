#include "console_host.h"

#include "platform/program_lock.h"
#include "platform/share.h"

#include <QEventLoop>
#include <QProcess>
#include <QTimer>
#include <cstdio>

platform::Answer ConsoleHost::ask(const QString& text, const QString&, platform::Buttons buttons) {
    std::fprintf(stderr, "%s\n", qPrintable(text));
    return buttons == platform::Buttons::YesNo ? platform::Answer::No : platform::Answer::Ok;
}

bool ConsoleHost::start_program(const QString& file, const QStringList& arguments) {
    return QProcess::startDetached(file, arguments);
}

bool ConsoleHost::program_running(const QString& title, const QString& folder) {
    return platform::ProgramLock::held(folder, title);
}

bool ConsoleHost::connect_share(const QString& share, const QString& user, const QString& password) {
    return platform::connect_share(share, user, password);
}

void ConsoleHost::wait(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, &loop, &QEventLoop::quit);
    loop.exec();
}
