#include "entry/notices.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "common/typed_time.h"
#include "entry/cells.h"
#include "entry/editing.h"

namespace entry {

using namespace base;
using common::TypedTime, common::how_time_is_typed, common::typed_time_notice;

namespace {

constexpr int hours_of_day = 24;

TypedTime kind_of(int column) {
    return column == col::break_time ? TypedTime::Break : TypedTime::Clock;
}

/// Hours of a time of day from 24 on, which the next calculation takes for those of the next day.
QString late_hours(const QString& typed) {
    const QString four = last_four(text_to_time(typed));
    const qint64 hours = Val(QStringView(four).first(2));
    if (hours < hours_of_day)
        return {};
    const QString shown = time_to_text(typed);
    if (hours >= 2 * hours_of_day)
        return u"%1 は時刻になりません"_s.arg(shown);
    return u"%1 は %2 と入力します"_s.arg(shown, digits((hours - hours_of_day) * 100 + Val(QStringView(four).last(2))));
}

} // namespace

QString typed_notice(int column, const QString& typed) {
    if (column == col::remark)
        return Trim(typed).size() > longest_remark ? u"備考は %1文字までです"_s.arg(longest_remark) : QString();
    const QString words = typed_time_notice(kind_of(column), typed);
    return words.isEmpty() && kind_of(column) == TypedTime::Clock ? late_hours(typed) : words;
}

QString refused_notice(int column) {
    return how_time_is_typed(kind_of(column));
}

} // namespace entry
