#include "entry/pasted_text.h"

#include "base/literals.h"

#include <QRegularExpression>
#include <utility>

namespace entry {

using namespace base;

namespace {

constexpr int longest_bare_hours = 8; ///< a duration up to here is rather meant as hours
constexpr int last_of_hour = 59;

const QString no_time = u"時刻ではありません"_s;

bool ends_cell(const QString& text, qsizetype at) {
    return at >= text.size() || text[at] == u'\t' || text[at] == u'\n';
}

/// Behind the closing mark of the quoted cell that begins here; nothing if it is an ordinary one.
std::optional<qsizetype> end_of_quoted(const QString& text, qsizetype begin) {
    if (text[begin] != u'"')
        return std::nullopt;
    for (qsizetype i = begin + 1; i < text.size(); ++i)
        if (text[i] == u'"') {
            if (ends_cell(text, i + 1))
                return i + 1;
            ++i; // a doubled mark
        }
    return std::nullopt;
}

qsizetype end_of_plain(const QString& text, qsizetype begin) {
    while (!ends_cell(text, begin))
        ++begin;
    return begin;
}

/// Moves `at` to what ends the cell.
QString take_cell(const QString& text, qsizetype& at) {
    const auto quoted = end_of_quoted(text, at);
    const qsizetype begin = std::exchange(at, quoted ? *quoted : end_of_plain(text, at));
    if (!quoted)
        return text.sliced(begin, at - begin);
    return text.sliced(begin + 1, at - begin - 2).replace(u"\"\""_s, u"\""_s).replace(u'\n', u' ');
}

PastedTime time_of(int hours, int past_hour, int seconds) {
    if (past_hour > last_of_hour || seconds > last_of_hour)
        return {{}, u"分と秒は 59 までです"_s};
    return {ClockNumber{hours * 100 + past_hour}, {}};
}

PastedTime bare_time(int figure, TimeMeaning meaning) {
    if (figure != 0 && (meaning == TimeMeaning::Clock || figure <= longest_bare_hours))
        return {{}, u"%1時間か %1分か分かりません"_s.arg(figure)};
    return time_of(0, figure, 0);
}

} // namespace

QList<QStringList> pasted_lines(const QString& text) {
    QString even = text;
    even.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    QList<QStringList> lines;
    QStringList line;
    for (qsizetype at = 0; at < even.size(); ++at) {
        line << take_cell(even, at);
        if (at == even.size() || even[at] == u'\n')
            lines << std::exchange(line, {});
    }
    return line.isEmpty() ? lines : lines << line;
}

PastedTime pasted_time(const QString& text, TimeMeaning meaning) {
    static const QRegularExpression with_colon(u"^(\\d{1,2}):(\\d{2})(?::(\\d{2}))?$"_s);
    static const QRegularExpression with_words(u"^(\\d{1,2})時(?:(\\d{1,2})分|(半))?$"_s);
    static const QRegularExpression figures(u"^\\d{1,4}$"_s);
    const QString even = text.normalized(QString::NormalizationForm_KC).trimmed();
    if (const auto found = with_colon.match(even); found.hasMatch())
        return time_of(found.captured(1).toInt(), found.captured(2).toInt(), found.captured(3).toInt());
    if (const auto found = with_words.match(even); found.hasMatch())
        return time_of(found.captured(1).toInt(), found.hasCaptured(3) ? 30 : found.captured(2).toInt(), 0);
    if (!figures.match(even).hasMatch())
        return {{}, no_time};
    const int figure = even.toInt();
    return even.size() <= 2 ? bare_time(figure, meaning) : time_of(figure / 100, figure % 100, 0);
}

} // namespace entry
