#include "entry/notices.h"

#include "base/literals.h"
#include "base/text.h"
#include "entry/cells.h"
#include "entry/editing.h"

namespace entry {

using namespace base;

namespace {

constexpr int hours_of_day = 24;
constexpr int longest_usual_break = 8; ///< a bare figure up to here is rather meant as hours

struct Typed {
    qint64 hours;
    qint64 past_hour;
};

Typed parts_of(const QString& typed) {
    const QString four = last_four(text_to_time(typed));
    return {Val(QStringView(four).first(2)), Val(QStringView(four).last(2))};
}

QString past_midnight(const Typed& time, const QString& shown) {
    return u"%1 は %2 と入力します"_s.arg(shown, digits((time.hours - hours_of_day) * 100 + time.past_hour));
}

QString bare_hours(qint64 figure, QStringView unit) {
    return u"%1 は 0:%2 です（%1%3は %4）"_s.arg(figure).arg(figure, 2, 10, QChar(u'0')).arg(unit).arg(figure * 100);
}

} // namespace

QString typed_notice(int column, const QString& typed) {
    if (column == col::remark)
        return Trim(typed).size() > longest_remark ? u"備考は %1文字までです"_s.arg(longest_remark) : QString();
    const Typed time = parts_of(typed);
    const QString shown = time_to_text(typed);
    if (time.past_hour > 59)
        return u"%1 は時刻になりません（分は 59 まで）"_s.arg(shown);
    const bool is_break = column == col::break_time;
    if (!is_break && time.hours >= 2 * hours_of_day)
        return u"%1 は時刻になりません"_s.arg(shown);
    if (!is_break && time.hours >= hours_of_day)
        return past_midnight(time, shown);
    const qint64 most = is_break ? longest_usual_break : hours_of_day - 1;
    const bool bare = typed.size() <= 2 && time.past_hour >= 1 && time.past_hour <= most;
    return bare ? bare_hours(time.past_hour, is_break ? u"時間" : u"時") : QString();
}

QString refused_notice(int column) {
    return column == col::break_time ? u"数字で入力します（1時間は 100）"_s : u"数字で入力します（8:30 は 830）"_s;
}

} // namespace entry
