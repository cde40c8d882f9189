#pragma once

// The company's own days off as a person types them, a line a day or a run of days: "8/13～8/16 夏季休業" each year,
// "2026/12/30 棚卸" once, in era years where dates are shown so. They are told apart from working days by eye alone.

#include "frame/session.h"

#include <QStringList>

namespace setup {

struct TypedHolidays {
    QMap<int, QString> days; ///< as base::OwnHolidays
    QStringList not_understood;
};

/// The days of the lines. Blank lines are passed over; a day without a name is "休業日"; of a day typed twice the later
/// line counts. A run has at most 31 days, and one of each year may go over its end: "12/29～1/3".
TypedHolidays read_holidays(const QString& text, const base::Settings& settings, QDate today);

/// The lines of the days: those of each year, then the others by date; neighbours of one name are one line.
QString holiday_lines(const QMap<int, QString>& days, const base::Settings& settings, QDate today);

/// The form behind the lines.
class own_holidays {
public:
    static constexpr QStringView caption = u"会社の休日";

    explicit own_holidays(frame::Session& session) : m_session(session) {}

    QString lines;
    QString msglab; ///< what wasn't understood

    void Form_Load();
    /// Stores the days for all PCs and shows them on this one from now on. False where a line isn't understood: then
    /// nothing is stored.
    bool register_Click();
    /// Whether the lines may be given up: asks where they aren't what is stored.
    bool may_leave() const;

private:
    QString stored_lines() const;

    frame::Session& m_session;
};

} // namespace setup
