#include "common/typed_time.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "base/time.h"

#include <algorithm>

namespace common {

using namespace base;

namespace {

constexpr qint64 last_hour_of_day = 23;
constexpr qint64 longest_usual_break = 8; ///< a bare figure up to here is rather meant as hours

QString bare_hours(qint64 figure, QStringView unit) {
    return u"%1 は 0:%2 です（%1%3は %4）"_s.arg(figure).arg(figure, 2, 10, QChar(u'0')).arg(unit).arg(figure * 100);
}

bool is_digit(QChar c) {
    return c >= u'0' && c <= u'9';
}

} // namespace

QString how_time_is_typed(TypedTime kind) {
    return kind == TypedTime::Clock ? u"数字で入力します（8:30 は 830）"_s : u"数字で入力します（1時間は 100）"_s;
}

QString typed_time_notice(TypedTime kind, const QString& typed) {
    const QString figures = text_to_time(typed);
    if (!std::ranges::all_of(figures, is_digit))
        return how_time_is_typed(kind);
    const qint64 past_hour = Val(last_four(figures).right(2));
    if (past_hour > 59)
        return u"%1 は時刻になりません（分は 59 まで）"_s.arg(time_to_text(typed));
    const qint64 most = kind == TypedTime::Break ? longest_usual_break : last_hour_of_day;
    const bool bare = typed.size() <= 2 && past_hour >= 1 && past_hour <= most;
    return bare ? bare_hours(past_hour, kind == TypedTime::Clock ? u"時" : u"時間") : QString();
}

} // namespace common
