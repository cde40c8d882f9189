#pragma once

// The stages of a tour, in the order in which they are walked. A stage drives the program's windows by mouse and
// keyboard, leaves pictures, reads back what it typed, and throws e2e::RoadError at the first thing that isn't as it
// must be. Stages of one company that follow each other share its Tour.

#include "tour.h"

#include <span>

namespace tour {

/// The company over whose install tree a stage is walked.
enum class Company {
    New,    ///< nothing but what the installer delivers: the program has never started on it
    Sample, ///< a made-up company with attendance
};

inline constexpr int usual_percent = 100;

struct Stage {
    QStringView name;
    Company company;
    int percent; ///< scale of the screen; other scales than the usual one are walked after all others
    void (*walk)(Tour& tour);
};

std::span<const Stage> stages();

void answer_wizard(Tour& tour); ///< the first start, up to the main frame of the second one
void see_menus(Tour& tour);     ///< the main frame and its menus
void fill_masters(Tour& tour);  ///< types every master that attendance needs, and says in `tour.company` what it typed
void enter_month(Tour& tour);   ///< types a month, saves it and reads it back
void print_typed_month(Tour& tour); ///< prints that month
void print_reports(Tour& tour);     ///< prints every report, and writes it to a file
void see_low_window(Tour& tour);    ///< the month in a window of 1280x720
void see_screens(Tour& tour);       ///< every master and the month, as they stand
void leave_program(Tour& tour);     ///< ends the program, with a backup
void restore_elsewhere(Tour& tour); ///< puts that backup under a second root, and looks at the month there

} // namespace tour
