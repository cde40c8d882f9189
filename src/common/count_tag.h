#pragma once

// What a day count of the month is of. On the strip of the counts it is a text, the tag: "-1" the days worked and "-2"
// the days not worked, "k" or "s" and the number of a day kind, a bare number for a work category.

#include <QString>

namespace common {

inline constexpr QChar leave_letter = u'k';
inline constexpr QChar holiday_work_letter = u's';

struct CountTag {
    enum Family { Figure = 0, Leave = 1, HolidayWork = 2 }; ///< `休暇残業` of `kinnisu`; Figure: a sum or a category
    qint64 number = 0;
    qint64 family = Figure; ///< of no known family: as Figure

    /// The tag of a day kind; `holiday_work` is its `休出`, where 0 is leave.
    static CountTag of_kind(qint64 number, qint64 holiday_work);

    /// The tag that the text stands for.   read(u"s3") // {3, HolidayWork}
    static CountTag read(const QString& text);

    QString text() const; ///< of_kind(4, 0).text() // "k4"
};

/// Whether the text is the tag of a day kind.
bool is_kind_tag(const QString& text);

} // namespace common
