#include "children.h"

#include "exchange/run.h"
#include "frame/exchange_files.h"

#include <cstdio>
#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/wait.h>
#endif

namespace exchange {

using namespace std::chrono_literals;
using store::Code;

namespace {

constexpr auto patience = 50ms;

base::Settings settings_at(const QString& root) {
    base::Settings settings;
    settings.server_root = root;
    settings.local_root = root + u"/pc"_s;
    return settings;
}

Ended act(const std::function<void()>& work) {
    try {
        work();
        return ended_well;
    } catch (const store::Error& error) {
        if (error.code() == Code::Busy)
            return ended_busy;
        std::fprintf(stderr, "%s\n", error.what());
        return error.code() == Code::ReadOnly ? ended_read_only : ended_with_error;
    }
}

void append(const base::Settings& settings, int date, int kind) {
    store::Database exchange =
        store::Database::open(store::exchange_path(settings, 1), store::Kind::Exchange, patience);
    store::Transaction transaction(exchange);
    insert_leave(exchange, date, kind);
    transaction.commit();
}

int act_of(const QString& name, const base::Settings& settings) {
    if (name == u"manager"_s)
        return run_manager(settings, Watch(), {.manager = patience, .file = patience});
    return act([&] {
        if (name == u"start"_s)
            frame::交換ファイル作成(
                settings, QDateTime::currentDateTime(), [](const QString&) {}, patience);
        else
            support::rows_of(store::exchange_path(settings, 1), store::Kind::Exchange, "select 1 from jyusin limit 1");
    });
}

int write_all(const base::Settings& settings, int writer, int count) {
    for (int save = 1; save <= count;) {
        const Ended ended = post_leave(settings, date_of_save(writer, save), save);
        if (ended != ended_well && ended != ended_busy)
            return ended;
        save += ended == ended_well ? 1 : 0;
    }
    return ended_well;
}

int act_until_done(const QString& name, const base::Settings& settings) {
    int good = 0, busy = 0;
    while (!QFileInfo::exists(settings.server_root + u"/done"_s)) {
        const int ended = act_of(name, settings);
        if (ended != ended_well && ended != ended_busy)
            return ended;
        ++(ended == ended_well ? good : busy);
    }
    std::printf("%s: %d times, and %d times in another's way\n", qPrintable(name), good, busy);
    return ended_well;
}

} // namespace

void insert_leave(store::Database& exchange, int date, int kind) {
    exchange.prepare(R"(insert into jyusin ("2","3","4","5","6","7") values ('54',?,'7',?,'公休','0'))")
        .bind(date, kind)
        .run();
}

Ended post_leave(const base::Settings& settings, int date, int kind) {
    return act([&] { append(settings, date, kind); });
}

int child_main(const QStringList& task) {
    const base::Settings settings = settings_at(task.at(1));
    if (task.at(0) == u"post"_s)
        return post_leave(settings, task.at(2).toInt(), task.at(3).toInt());
    if (task.at(0) == u"writer"_s)
        return write_all(settings, task.at(2).toInt(), task.at(3).toInt());
    return task.size() > 2 ? act_until_done(task.at(0), settings) : act_of(task.at(0), settings);
}

#ifdef Q_OS_LINUX

bool stops(const QProcess& process) {
    siginfo_t info{};
    const int result = ::waitid(P_PID, id_t(process.processId()), &info, WEXITED | WSTOPPED | WNOWAIT);
    return result == 0 && info.si_code == CLD_STOPPED;
}

int ends(QProcess& process) {
    if (process.state() == QProcess::Running)
        ::kill(pid_t(process.processId()), SIGCONT);
    return support::status_of(process);
}

#else

bool stops(const QProcess&) {
    return false;
}

int ends(QProcess& process) {
    return support::status_of(process);
}

#endif

} // namespace exchange
