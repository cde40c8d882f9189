#pragma once

// A clerk at a PC of the company: the desktop program with its real window, worked by key and mouse for a while. The
// process says on its standard output what it is about to save and how that ended, and may be killed at any moment.

#include "base/literals.h"
#include "base/numbers.h"

#include <QStringList>

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

/// What a clerk says: a line a day before the save, and a line for how the save ended.
inline constexpr char say_try[] = "try"; ///< "try EMPLOYEE DATE CLOCK-IN"
inline constexpr char say_ok[] = "ok";
inline constexpr char say_refused[] = "refused"; ///< nothing was posted, and what was typed is a draft
inline constexpr char say_left[] = "left";       ///< "left EMPLOYEE DATE": another's day was chosen to stand

} // namespace whole
