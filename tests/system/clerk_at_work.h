#pragma once

// A clerk at a PC of the company: the desktop program with its real window, worked by key and mouse for a while. The
// process says on its standard output what it is about to save and how that ended, and may be killed at any moment.

#include <QString>
#include <QStringList>

namespace whole {

struct PlaceOfWork {
    QString program_folder;
    int turn_port = 0;
    int own_row = 0;    ///< row of the employee list that this clerk alone works on
    int shared_row = 0; ///< row that every clerk works on
    int seconds = 0;
    int seed = 0;

    QStringList arguments() const;
    static PlaceOfWork of(const QStringList& arguments);
};

/// What a clerk says: a line a day before the save, and a line for how the save ended.
inline constexpr char say_try[] = "try"; ///< "try EMPLOYEE DATE CLOCK-IN"
inline constexpr char say_ok[] = "ok";
inline constexpr char say_refused[] = "refused"; ///< a message was shown: nothing was posted

/// Returns the exit status.
int work(const PlaceOfWork& place);

} // namespace whole
