#pragma once

// What the six reports differ in on the report screen: a row a report.

#include "reports/tallies/report.h"

#include <span>

namespace reports {

/// The controls of the report screen that take the keyboard.
enum class ReportControl { tancd, ymd, yyyymm, botabox, toubotan, karibotan };

struct Wish {
    ReportControl control;
    int element = 0; ///< of the control array
    friend bool operator==(const Wish&, const Wish&) = default;
};

/// The conditions in sight.
struct Panels {
    bool pic_ymd_t1 = false;
    bool Pic_yyyymm = false;
    bool pic_tantou = false;
    bool print_zero = false;
    bool print_flg = false;
    friend bool operator==(const Panels&, const Panels&) = default;
};

/// What the date boxes hold at first.
enum class DateDefault { None, Today, ThisMonth };

struct ReportRow {
    int number;
    QStringView title;
    Panels panels;
    DateDefault ymd;
    bool months; ///< the year and month boxes are filled, with this month chosen
    void (*format)(Report& report, const frame::Session& session);
    Outcome (*tally)(Report& report, Work& work);
    ReportControl after_print; ///< where the keyboard goes
};

std::span<const ReportRow> report_table();

/// Null for a number that is no report's.
const ReportRow* report_row(qint64 number);

} // namespace reports
