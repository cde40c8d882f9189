#include "base/numbers.h"

#include <QLocale>
#include <QRegularExpression>
#include <algorithm>
#include <limits>

namespace base {

namespace {

bool is_digit(QChar c) {
    return c >= u'0' && c <= u'9';
}

qint64 append_digit(qint64 value, int digit) {
    constexpr qint64 top = std::numeric_limits<qint64>::max();
    return value > (top - digit) / 10 ? top : value * 10 + digit;
}

} // namespace

qint64 Val(QStringView text) {
    qsizetype at = 0;
    while (at < text.size() && (text[at] == u' ' || text[at] == u'\t' || text[at] == u'\n' || text[at] == u'\r'))
        ++at;
    const bool negative = at < text.size() && text[at] == u'-';
    if (at < text.size() && (text[at] == u'-' || text[at] == u'+'))
        ++at;
    qint64 value = 0;
    for (; at < text.size() && is_digit(text[at]); ++at)
        value = append_digit(value, text[at].unicode() - u'0');
    return negative ? -value : value;
}

int int_val(QStringView text) {
    return static_cast<int>(
        std::clamp<qint64>(Val(text), std::numeric_limits<int>::min(), std::numeric_limits<int>::max()));
}

double decimal_val(QStringView text) {
    static const QRegularExpression leading_number(
        QStringLiteral("^[ \\t\\r\\n]*([+-]?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+))"));
    return leading_number.match(text.toString()).captured(1).toDouble();
}

QString digits(qint64 number) {
    return QString::number(number);
}

QString grouped(qint64 number) {
    return number == 0 ? QString() : QLocale(QLocale::Japanese, QLocale::Japan).toString(number);
}

} // namespace base
