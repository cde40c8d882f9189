#pragma once

// The masters of a small company as a clerk types them, and what must be read back from the tables.

#include "tour.h"

namespace tour {

/// A band of a day. Times are bare digits; an empty text isn't typed.
struct TypedBand {
    QStringView start;
    QStringView end;
    QStringView category;
    QStringView threshold; ///< "対象勤務1"
    QStringView pause;     ///< "加算休時1"
};

struct TypedKind {
    QStringView name;
    QStringView day_class; ///< "休暇" or "出勤"
    bool standard;
};

struct TypedEmployee {
    QStringView number;
    QStringView name;
    QStringView reading;
};

inline constexpr QStringView typed_categories[] = {u"所定内", u"所定外"};

inline constexpr QStringView typed_type = u"標準勤務";
inline constexpr TypedBand every_day[] = {
    {u"830", u"1715", u"所定内", u"600", u"45"},
    {u"1715", u"2200", u"所定外", u"200", u"15"},
};
/// Typed over what every day has: the second band is emptied.
inline constexpr TypedBand saturday = {u"830", u"1230", u"所定内", u"", u""};

inline constexpr TypedKind typed_kinds[] = {{u"年休", u"休暇", true}, {u"休日出勤", u"出勤", false}};

inline constexpr TypedEmployee typed_employees[] = {
    {u"101", u"山田　太郎", u"ヤマダ　タロウ"}, {u"102", u"佐藤　花子", u"サトウ　ハナコ"}};

/// The company that these masters make.
KnownCompany typed_company();

/// The rows of the master tables, as they stood when this was made, to be compared with the same rows later.
class TablesBefore {
public:
    explicit TablesBefore(const base::Settings& settings);

    /// What of the typed masters isn't among the rows that came since, and what came besides: a line each.
    QStringList faults() const;

private:
    const base::Settings& m_settings;
    QList<QStringList> m_rows;
};

} // namespace tour
