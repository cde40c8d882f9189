#pragma once

// Report: the one state that the steps of a report share. A tally reads the conditions and fills the sheets and the
// headings; printing and the CSV file read only these and never the store. A tally throws store::Error where the store
// can't be read; what it had filled by then stands on the sheet.

#include "base/sheet.h"
#include "frame/session.h"

#include <array>
#include <functional>

namespace reports {

/// What the person set on the report screen, as the texts of its boxes. Element 0 is the start, 1 the end of a range.
struct Conditions {
    std::array<QString, 2> yyyymm;   ///< year as shown under the display setting, month "1" to "12"
    std::array<QString, 2> ymd;      ///< dates as shown: "2004/10/3"
    std::array<QString, 2> tancd;    ///< employee numbers as typed
    std::array<QString, 2> systancd; ///< their system numbers, empty where the number is no employee's
    std::array<QString, 2> ntancd;   ///< their names
    bool print_zero = false;         ///< "0も印刷"
    bool print_flg = false;          ///< "連続印刷"
};

struct Report {
    int 帳票番号 = 0; ///< 1 to 6
    Conditions conditions;
    base::Sheet hyou;              ///< the report sheet
    base::Sheet hyou_day;          ///< the day counts of report 4
    std::array<QString, 5> midasi; ///< title, two sub headings, two spare lines
    QString chulab;                ///< the selection that was extracted; empty if it was none
};

/// Called now and then by long work. False: the person wants the work to end.
using Progress = std::function<bool(qint64 done, qint64 total)>;

enum class Outcome { Done, Cancelled };

/// What a tally works with besides the report.
struct Work {
    frame::Session& session;
    Progress progress;                    ///< may be empty
    std::function<void()> print_employee; ///< prints the sheet as it stands; report 4 with `print_flg`
};

} // namespace reports
