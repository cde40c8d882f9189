#include "bench/size.h"

#if __has_include(<libpq-fe.h>)

#include "bench/server_company.h"
#include "bench/server_month.h"

#include <QElapsedTimer>
#include <algorithm>
#include <array>
#include <cstdio>
#include <optional>
#include <random>
#include <thread>
#include <vector>

namespace bench {

namespace {

constexpr int rounds = 101, warming_up = 8, partitions = 16, few = 10;
constexpr double wanted_ratio = 1.3;

enum Work { Load, Save };
constexpr std::array<const char*, 2> names{"month load", "month saved until it can be read"};

bool shows_days(const entry::MonthSheet& sheet) {
    return !sheet.hyou(entry::row::last_day, entry::col::clock_in).isEmpty();
}

/// A company whose months are loaded and saved, of anybody's.
class Sized {
public:
    Sized(int employees, int months, int parts) : m_company(employees, months, parts), m_anybody(1, employees) {}

    void work(bool counts) {
        const int employee = m_anybody(m_dice);
        keep(Load, counts, [&] { return shows_days(opened(m_company.settings, employee)); });
        const int other = m_anybody(m_dice);
        const QList<entry::ExchangeRow> rows = rows_of_month(m_company.settings, other);
        keep(Save, counts, [&] { return saved_and_opened(m_company.settings, rows, other); });
    }

    double median(Work work) {
        std::ranges::sort(m_times[work]);
        return m_times[work][m_times[work].size() / 2];
    }

private:
    template <typename Done>
    void keep(Work work, bool counts, const Done& done) {
        QElapsedTimer clock;
        clock.start();
        if (!done())
            std::fprintf(stderr, "%s: failed\n", names[work]);
        if (counts)
            m_times[work].push_back(double(clock.nsecsElapsed()) / 1000);
    }

    ServerCompany m_company;
    std::minstd_rand m_dice;
    std::uniform_int_distribution<int> m_anybody;
    std::array<std::vector<double>, 2> m_times;
};

} // namespace

bool print_size(int employees, int months) {
    Sized few_plain(few, months, 0), few_parted(few, months, partitions);
    std::optional<Sized> plain;
    std::thread beside([&] { plain.emplace(employees, months, 0); });
    Sized parted(employees, months, partitions);
    beside.join();
    for (int round = 0; round < rounds + warming_up; ++round)
        for (Sized* one : {&*plain, &few_plain, &parted, &few_parted})
            one->work(round >= warming_up);
    bool all_met = true;
    for (const Work work : {Load, Save})
        for (auto [large, small, how] : {std::tuple(&*plain, &few_plain, ""), {&parted, &few_parted, ", parted"}}) {
            const double ratio = large->median(work) / small->median(work);
            all_met = all_met && ratio <= wanted_ratio;
            std::printf("%s%s: %d employees %.1f us, %d employees %.1f us, ratio %.2f  <= %.1f%s\n", names[work], how,
                employees, large->median(work), few, small->median(work), ratio, wanted_ratio,
                ratio > wanted_ratio ? "  MISSED" : "");
        }
    return all_met;
}

} // namespace bench

#else

namespace bench {

bool print_size(int, int) {
    return true;
}

} // namespace bench

#endif
