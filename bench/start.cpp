#include "bench/start.h"

#include "base/literals.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QProcess>
#include <QTemporaryDir>
#include <algorithm>
#include <cstdio>
#include <optional>
#include <vector>

namespace bench {

using namespace base;

namespace {

constexpr double wanted_ratio = 2.5;
constexpr double wanted_megabytes = 120;

QString program(const QString& name) {
    return QCoreApplication::applicationDirPath() + u'/' + name;
}

/// What the process printed; nothing if it failed.
std::optional<QString> run(const QString& name, const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::SeparateChannels);
    process.start(program(name), arguments);
    const bool ended = process.waitForFinished(120'000) && process.exitCode() == 0;
    return ended ? std::optional(QString::fromUtf8(process.readAllStandardOutput())) : std::nullopt;
}

double milliseconds_of(const QStringList& arguments) {
    QElapsedTimer time;
    time.start();
    return run(u"rovena_start"_s, arguments) ? double(time.nsecsElapsed()) / 1e6 : 0;
}

double median(std::vector<double> times) {
    std::ranges::sort(times);
    return times[times.size() / 2];
}

} // namespace

bool print_start() {
    const QTemporaryDir tree;
    const QString folder = tree.filePath(u"Program Files/meridan/qn/rovena100/system/exe/exe"_s);
    if (!run(u"rovena-install"_s,
            {tree.path(), u"--assets"_s, program(u"../artwork"_s), u"--sample"_s, u"1000"_s, u"24"_s}))
        return std::fputs("start: the company can't be made\n", stderr), false;
    std::vector<double> frame, empty;
    for (int i = 0; i < 15; ++i) {
        frame.push_back(milliseconds_of({u"frame"_s, folder}));
        empty.push_back(milliseconds_of({u"empty"_s}));
    }
    const double ratio = median(frame) / median(empty);
    const double megabytes =
        run(u"rovena_start"_s, {u"page"_s, folder}).value_or(QString()).trimmed().toDouble() / 1024;
    std::printf("%-58s %9.1f ms %9.1f ms %7.2f %10s  <= %.1f\n",
        "start to first painted frame, against an empty window", median(frame), median(empty), ratio, "", wanted_ratio);
    std::printf("%-58s %9.1f MB %35s  <= %.0f MB\n", "peak memory, attendance page, 1,000 x 24", megabytes, "",
        wanted_megabytes);
    return std::ranges::all_of(frame, [](double time) { return time > 0; }) && ratio <= wanted_ratio && megabytes > 0 &&
           megabytes <= wanted_megabytes;
}

} // namespace bench
