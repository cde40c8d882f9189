#pragma once

// What a recorder's file would do to the company's months, line by line and day by day. Nothing is written by it.

#include "base/settings.h"
#include "entry/draft.h"
#include "intake/profile.h"

#include <QSet>

namespace intake {

enum class State {
    New,           ///< nothing is typed for the day
    Same,          ///< its clock times are typed already, or the line has none
    Different,     ///< something else is typed
    NotUnderstood, ///< the reason tells why
};
inline constexpr int state_count = 4;
QStringView state_words(State state); ///< "新しい", "同じ", "違う", "読めない"

/// An employee's day as the file has it.
struct ImportDay {
    base::EmployeeKey employee;
    QString number; ///< `社員番号`
    QString name;
    QDate date;
    QString clock_in; ///< as the cells of the sheet hold them; empty where the day isn't understood
    QString clock_out;
    entry::TypedDay standing; ///< what is typed
    State state = State::NotUnderstood;
    QString reason; ///< why it isn't understood, or what is typed instead
};

struct PreviewLine {
    int number = 0;     ///< of the line in the file
    QString employee{}; ///< number and name, or what is written where nobody has that number
    QString date{};
    QString times{}; ///< what is written of clock times or stamp
    int day = -1;    ///< index of the day that it is part of; -1 if of none
    State state = State::NotUnderstood;
    QString reason{}; ///< of the line or its day
};

struct Preview {
    QString refused; ///< why the file can't be read at all; then there are no lines
    QList<PreviewLine> lines;
    QList<ImportDay> days; ///< by employee and date

    int count(State state) const; ///< of the lines
};

/// How the tables and this PC stand meanwhile.
struct Circumstances {
    const base::Settings& settings;
    QDate today;
    QSet<qint64> waiting{}; ///< employees whose saved days aren't in the tables yet: theirs aren't understood for now
};

Preview preview(const RecorderFile& file, const Profile& profile, const Circumstances& circumstances);

} // namespace intake
