#pragma once

// A clerk at a PC of the company: the desktop program with its real window, worked by key and mouse for a while. The
// process says on its standard output what it is about to save and how that ended, and may be killed at any moment.

#include "base/literals.h"
#include "base/numbers.h"

#include <QStringList>
#include <chrono>
#include <cstdio>

namespace whole {

struct PlaceOfWork {
    QString program_folder;
    int turn_port = 0;  ///< 0 where the company lies on a data server
    int own_row = 0;    ///< row of the employee list that this clerk alone works on
    int shared_row = 0; ///< row that every clerk works on
    int seconds = 0;
    int seed = 0;
    int last_day = 31; ///< of the days that are typed

    bool on_server() const { return turn_port == 0; }
    QStringList arguments() const {
        using namespace base;
        return {u"--clerk"_s, program_folder, digits(turn_port), digits(own_row), digits(shared_row), digits(seconds),
            digits(seed), digits(last_day)};
    }
    static PlaceOfWork of(const QStringList& words) {
        return {words.value(2), words.value(3).toInt(), words.value(4).toInt(), words.value(5).toInt(),
            words.value(6).toInt(), words.value(7).toInt(), words.value(8).toInt()};
    }
};

/// What a clerk says, each line behind its time: a line for each day that is typed, a line for each that the sheet
/// shows as changed before the save, and a line for how the save ended.
inline constexpr char say_types[] = "types";     ///< "TIME types EMPLOYEE DATE CLOCK-IN"
inline constexpr char say_changed[] = "changed"; ///< the same
inline constexpr char say_ok[] = "ok";
inline constexpr char say_refused[] = "refused"; ///< what was typed is a draft
inline constexpr char say_left[] = "left";       ///< "TIME left EMPLOYEE DATE": another's day was chosen to stand

/// Microseconds of the clock that all processes of this machine share.
inline qint64 shared_clock() {
    return std::chrono::duration_cast<std::chrono::microseconds>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

inline void say(const char* what, const QString& of = {}) {
    std::printf("%lld %s%s\n", static_cast<long long>(shared_clock()), what, qPrintable(of));
    std::fflush(stdout);
}

} // namespace whole
