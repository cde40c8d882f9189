#pragma once

// Accepted days on their way into the months, as if they had been typed: into the sheet, calculated, and posted or left
// as a draft of this PC.

#include "frame/session.h"
#include "intake/preview.h"

#include <QMap>
#include <functional>

namespace intake {

/// The preview of a file. What was saved of its employees and isn't in the tables yet is waited for.
Preview look(frame::Session& session, const RecorderFile& file, const Profile& profile);

enum class Into {
    Tables, ///< posted; a month that this PC has an unsaved draft of stays one, and gets the days there
    Draft,
};

enum class Became { Posted, Drafted, LeftOut };

struct DayOutcome {
    Became became;
    QString reason{}; ///< why it is left out, or only drafted, in words
};

struct Acceptance {
    QMap<int, DayOutcome> days; ///< by their index in the preview; a day that isn't there wasn't come to
    bool cancelled = false;

    int count(Became became) const;
    /// In words: "20日を登録しました。3日は取り込みませんでした。"
    QString words() const;
};

/// The days of the preview that are new, and if wished those that are different, by their index.
QList<int> days_to_accept(const Preview& preview, bool replace);

/// Told how many of the days have been come to; false breaks off: what was posted or drafted by then stays.
using Progress = std::function<bool(int done, int total)>;

/// Lays the chosen days over their months, some employees' months at a time, each of which is written whole or not at
/// all. A day that isn't typed any more as the preview saw it is left out, and so is one that is neither new nor
/// different. A save that fails ends it with a message.
/// Breaks are those of the rules; figures, kinds, sums and counts follow as they do from typing.
Acceptance accept(frame::Session& session, const Preview& preview, const QList<int>& chosen, Into into,
    const Progress& progress = {});

} // namespace intake
