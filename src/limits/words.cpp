#include "limits/words.h"

#include "base/literals.h"
#include "base/month_look.h"
#include "base/numbers.h"

#include <QStringList>

namespace limits {

using namespace base;

namespace {

struct MeasureWords {
    QStringView caption;
    QStringView brief;
};
constexpr std::array<MeasureWords, measure_count> words{{
    {u"時間外（月）", u"時間外"},
    {u"時間外（年）", u"時間外"},
    {u"上限を超えた月", u"時間外"},
    {u"休日含む（月）", u"時間外"},
    {u"休日含む（平均）", u"時間外"},
    {u"年休", u"年休"},
    {u"休憩不足", u"休憩"},
}};

QString duration(qint64 count) {
    return time_to_text(minutes_to_time(minutes(count)));
}

QString half_days(qint64 count) {
    return digits(count / 2) + (count % 2 == 0 ? u""_s : u".5"_s);
}

QString day_text(QDate day) {
    return u"%1/%2（%3）"_s.arg(day.month()).arg(day.day()).arg(weekday_text(day.dayOfWeek() % 7));
}

/// What is missing, and for how long there is time.
QString leave_text(const Judged& leave, const Span& span) {
    if (leave.figure >= leave.limit)
        return figure_text(&leave);
    const QString missing = half_days(leave.limit - leave.figure);
    return leave.level == Level::Over ? u"%1日不足"_s.arg(missing)
                                      : u"あと %1日（残り %2か月）"_s.arg(missing).arg(Span::months - span.over);
}

QString leave_line(const Judged& leave, const Span& span) {
    const qint64 missing = leave.limit - leave.figure;
    return leave.level == Level::Over
               ? u"%1 までの1年で %2日足りませんでした"_s.arg(day_text(span.leave_end), half_days(missing))
               : u"%1 までに、あと %2日"_s.arg(day_text(span.leave_end), half_days(missing));
}

QString month_line(const Judged& month, const Rules& rules) {
    if (month.figure <= month.limit)
        return u"あと %1"_s.arg(duration(month.limit - month.figure));
    const QString above = u"%1 超えています"_s.arg(duration(month.figure - month.limit));
    return rules.special ? above + u"（特別条項）"_s : above;
}

QString hours_line(const Judged& judged) {
    if (judged.level == Level::Over)
        return judged.figure == judged.limit ? u"未満でなければなりません"_s
                                             : u"%1 超えています"_s.arg(duration(judged.figure - judged.limit));
    return u"あと %1"_s.arg(duration(judged.limit - judged.figure));
}

QString months_line(const Judged& months) {
    return months.level == Level::Over ? u"%1か月超えています"_s.arg(months.figure - months.limit)
                                       : u"あと %1か月"_s.arg(months.limit - months.figure);
}

QString told(const Judged& judged, const Rules& rules, const Span& span) {
    switch (judged.measure) {
    case Measure::Month:
        return month_line(judged, rules);
    case Measure::MonthsAbove:
        return months_line(judged);
    case Measure::Leave:
        return leave_line(judged, span);
    case Measure::Average:
        return u"%1か月の平均。%2"_s.arg(judged.months).arg(hours_line(judged));
    case Measure::Year:
    case Measure::AllMonth:
        return hours_line(judged);
    case Measure::Breaks:
        break;
    }
    return {};
}

QString break_line(const ShortBreak& found) {
    return u"%1 勤務 %2　休憩 %3（%4分必要）"_s
        .arg(day_text(found.day.day), duration(found.day.work.count()), duration(found.day.pause.count()))
        .arg(found.needed.count());
}

} // namespace

QStringView caption_of(Measure measure) {
    return words[size_t(measure)].caption;
}

QStringView level_word(Level level) {
    return level == Level::Over ? u"超過" : level == Level::Near ? u"注意" : u"";
}

QString figure_text(const Judged* judged) {
    if (judged == nullptr)
        return {};
    switch (judged->measure) {
    case Measure::Leave:
        return u"%1 / %2日"_s.arg(half_days(judged->figure), half_days(judged->limit));
    case Measure::MonthsAbove:
        return u"%1 / %2か月"_s.arg(judged->figure).arg(judged->limit);
    case Measure::Breaks:
        return judged->figure == 0 ? QString() : u"%1日"_s.arg(judged->figure);
    default:
        return u"%1 / %2"_s.arg(duration(judged->figure), duration(judged->limit));
    }
}

QString nearest_text(const Judgement& judgement, const Span& span) {
    if (judgement.nearest < 0)
        return {};
    const Judged& judged = judgement.judged[judgement.nearest];
    const QString text = judged.measure == Measure::Leave ? leave_text(judged, span) : figure_text(&judged);
    return u"%1 %2"_s.arg(caption_of(judged.measure), text).trimmed();
}

QStringList lines_of(const Judgement& judgement, const Rules& rules, const Span& span) {
    QStringList lines;
    for (const Judged& judged : judgement.judged)
        if (judged.level != Level::Fine && judged.measure != Measure::Breaks)
            lines << u"【%1】%2　%3　%4"_s.arg(
                level_word(judged.level), caption_of(judged.measure), figure_text(&judged), told(judged, rules, span));
    for (const ShortBreak& found : judgement.breaks)
        lines << u"【%1】%2　%3"_s.arg(level_word(Level::Over), caption_of(Measure::Breaks), break_line(found));
    return lines;
}

QString overview_word(const Judgement& judgement) {
    if (judgement.nearest < 0 || judgement.level == Level::Fine)
        return {};
    return u"%1%2"_s.arg(words[size_t(judgement.judged[judgement.nearest].measure)].brief, level_word(judgement.level));
}

} // namespace limits
