#include "bench/table.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "entry/calculation.h"
#include "entry/layout.h"

#include <algorithm>
#include <array>
#include <benchmark/benchmark.h>

namespace bench {

using namespace base;

namespace {

constexpr int categories = 8;
constexpr int days = 31;
constexpr int band_length = 120; ///< minutes; the bands of a day follow each other from 5:00 on
constexpr int first_band = 300;

QString clock_in(int r) {
    return u"8:%1"_s.arg(r);
}

/// A month of 31 worked days, with a band and a column for each of the categories.
entry::MonthSheet full_sheet() {
    entry::MonthSheet sheet;
    書式設定(sheet, CompanyMonth(2026, 10, 1));
    書式設定_日(sheet);
    const int first_column = sheet.hyou.Cols();
    sheet.hyou.SetCols(first_column + categories);
    sheet.hyou_day.SetCols(entry::strip::first_kind + categories);
    for (int i = 0; i < categories; ++i) {
        sheet.hyou(entry::row::category_number, first_column + i) = digits(i + 1);
        sheet.hyou_day(entry::strip::tag, entry::strip::first_kind + i) = digits(i + 1);
        const minutes start(first_band + i * band_length);
        for (auto& weekday : sheet.band_table)
            weekday[size_t(i) + 1] = {.start = start,
                .end = start + minutes(band_length),
                .category = i + 1,
                .rules = {{{minutes(60), minutes(5)}, {minutes(90), minutes(10)}, {minutes(120), minutes(15)}}}};
    }
    for (int r = 1; r <= days; ++r) {
        sheet.hyou(r, entry::col::clock_in) = clock_in(10 + r);
        sheet.hyou(r, entry::col::clock_out) = u"19:45"_s;
        sheet.entry_cell = {r, entry::col::clock_in};
        出勤集計処理(sheet, r);
    }
    return sheet;
}

void calculate_on_sheet(benchmark::State& state) {
    entry::MonthSheet sheet = full_sheet();
    sheet.entry_cell = {15, entry::col::clock_in};
    for (auto _ : state)
        出勤集計処理(sheet, 15);
}

struct PlainDay {
    int in = 0, out = 0, pause = 0, work = 0;
    std::array<int, categories> hours{};
};

void calculate(PlainDay& day) {
    day.pause = 0;
    for (int i = 0; i < categories; ++i) {
        const int start = first_band + i * band_length;
        const int end = start + band_length;
        day.hours[size_t(i)] = std::clamp(day.out, start, end) - std::clamp(day.in, start, end);
        for (const auto& [threshold, pause] : {std::pair{120, 15}, {90, 10}, {60, 5}})
            if (day.hours[size_t(i)] >= threshold) {
                day.pause += pause;
                break;
            }
    }
    day.work = day.out - day.in - day.pause;
}

void calculate_on_integers(benchmark::State& state) {
    std::array<PlainDay, days> month;
    for (int i = 0; i < days; ++i)
        month[size_t(i)] = {480 + 10 + i, 1185};
    for (PlainDay& day : month)
        calculate(day);
    for (auto _ : state) {
        benchmark::DoNotOptimize(month.data());
        calculate(month[14]);
        PlainDay total;
        std::array<int, categories> counts{};
        for (const PlainDay& day : month) {
            total.pause += day.pause;
            total.work += day.work;
            for (size_t i = 0; i < categories; ++i) {
                total.hours[i] += day.hours[i];
                counts[i] += day.hours[i] > 0 ? 1 : 0;
            }
        }
        benchmark::DoNotOptimize(total);
        benchmark::DoNotOptimize(counts);
    }
}

} // namespace

std::vector<Line> calculation() {
    benchmark::RegisterBenchmark("day and month calculation", calculate_on_sheet);
    benchmark::RegisterBenchmark("day and month calculation, integers", calculate_on_integers);
    return {{"day calculation and month tally, 8 categories", "day and month calculation",
        "day and month calculation, integers", 0, 300}};
}

} // namespace bench
