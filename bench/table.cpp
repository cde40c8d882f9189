#include "bench/table.h"
#include "bench/clerks.h"
#include "bench/reports.h"
#include "bench/size.h"
#include "bench/start.h"

#include <QApplication>
#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstdio>
#include <map>

namespace {

using bench::Line;

/// Microseconds of one run: on the wall, and of the processor alone.
struct Time {
    double real = 0;
    double processor = 0;
};

/// Keeps the least times of each benchmark's repetitions.
class LeastTimes : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const double scale = 1e6 / double(std::max<benchmark::IterationCount>(run.iterations, 1));
            if (run.error_occurred)
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
            else if (run.run_type == Run::RT_Iteration)
                keep(run.run_name.function_name, {run.real_accumulated_time * scale, run.cpu_accumulated_time * scale});
        }
    }

    Time of(const std::string& name) const {
        const auto found = m_least.find(name);
        return found == m_least.end() ? Time() : found->second;
    }

private:
    void keep(const std::string& name, Time time) {
        const auto [place, first] = m_least.try_emplace(name, time);
        place->second.real = std::min(place->second.real, time.real);
        place->second.processor = std::min(place->second.processor, time.processor);
    }

    std::map<std::string, Time> m_least;
};

std::string wish(const Line& line) {
    char text[64];
    if (line.wanted_ratio > 0)
        std::snprintf(text, sizeof text, "<= %.1f", line.wanted_ratio);
    else if (line.wanted_time > 0)
        std::snprintf(text, sizeof text, "<= %.0f us", line.wanted_time);
    else
        return {};
    return text;
}

/// Another program on the machine disturbs the times on the wall, so a line is missed only if the processor's agree.
bool met(const Line& line, const Time& figure, const Time& yardstick) {
    const double ratio = std::min(figure.real / yardstick.real, figure.processor / yardstick.processor);
    return (line.wanted_ratio == 0 || ratio <= line.wanted_ratio) &&
           (line.wanted_time == 0 || std::min(figure.real, figure.processor) <= line.wanted_time);
}

/// Whether all lines that were measured are as wanted.
bool print_table(const std::vector<Line>& lines, const LeastTimes& times) {
    bool all_met = true;
    std::printf("%-58s %12s %12s %7s %10s  %s\n", "work", "figure us", "yardstick us", "ratio", "processor", "wanted");
    for (const Line& line : lines) {
        const Time figure = times.of(line.figure);
        const Time yardstick = times.of(line.yardstick);
        if (figure.real == 0 || yardstick.real == 0)
            continue;
        const bool as_wanted = met(line, figure, yardstick);
        all_met = all_met && as_wanted;
        std::printf("%-58s %12.1f %12.1f %7.2f %10.2f  %s%s\n", line.work.c_str(), figure.real, yardstick.real,
            figure.real / yardstick.real, figure.processor / yardstick.processor, wish(line).c_str(),
            as_wanted ? "" : "  MISSED");
    }
    return all_met;
}

std::vector<char*> with_defaults(int argc, char** argv) {
    static char repetitions[] = "--benchmark_repetitions=9";
    static char mixed[] = "--benchmark_enable_random_interleaving=true";
    static char short_runs[] = "--benchmark_min_time=0.05";
    std::vector<char*> arguments{argv[0], repetitions, mixed, short_runs};
    arguments.insert(arguments.end(), argv + 1, argv + argc);
    return arguments;
}

} // namespace

int main(int argc, char** argv) {
    if (argc > 4 && QByteArrayView(argv[1]) == "--clerk")
        return bench::be_a_clerk(argc, argv);
    const QApplication application(argc, argv);
    if (argc > 3 && QByteArrayView(argv[1]) == "--clerks")
        return bench::print_clerks(QByteArray(argv[2]).toInt(), QByteArray(argv[3]).toInt()) ? 0 : 1;
    if (argc > 3 && QByteArrayView(argv[1]) == "--size")
        return bench::print_size(QByteArray(argv[2]).toInt(), QByteArray(argv[3]).toInt()) ? 0 : 1;
    std::vector<char*> arguments = with_defaults(argc, argv);
    int count = int(arguments.size());
    benchmark::Initialize(&count, arguments.data());

    const bool server = bench::server_at_hand();
    const std::vector<std::vector<Line> (*)()> in_files{bench::setting_read, bench::month_load, bench::calculation,
        bench::drafts, bench::recorder_import, bench::overview, bench::apply, bench::masters, bench::work_time_lists,
        bench::limits_of_all, bench::printing};
    std::vector<Line> lines;
    for (const auto subject : server ? std::vector{bench::on_server} : in_files)
        for (const Line& line : subject())
            lines.push_back(line);
    LeastTimes times;
    benchmark::RunSpecifiedBenchmarks(&times);
    const bool all_met = print_table(lines, times);
    if (server)
        return all_met ? 0 : 1;
    const bool memory_met = bench::print_list_memory();
    return bench::print_start() && memory_met && all_met ? 0 : 1;
}
