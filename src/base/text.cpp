#include "base/text.h"

#include "base/literals.h"

namespace base {

QString Trim(QStringView text) {
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text = text.chopped(1);
    return text.toString();
}

QString Trim(const QString& text) {
    return text.startsWith(u' ') || text.endsWith(u' ') ? Trim(QStringView(text)) : text;
}

QString 文字除去(QString text, QChar character) {
    return text.remove(character);
}

QString only_of(QStringView text, QLatin1StringView allowed) {
    QString kept;
    for (const QChar character : text)
        if (allowed.contains(character))
            kept += character;
    return kept;
}

QString left_justified(QStringView text, int width) {
    return text.toString().leftJustified(width, u' ', true);
}

QString right_justified(QStringView text, int width) {
    return text.toString().rightJustified(width, u' ', true);
}

QString whole_left(QStringView text, int length) {
    QStringView kept = text.left(length);
    if (kept.size() < text.size() && !kept.isEmpty() && kept.back().isHighSurrogate())
        kept.chop(1);
    return kept.toString();
}

int byte_length(QStringView text) {
    const auto half_width = [](QChar c) { return c < u'\x80' || c == u'¥' || c == u'‾' || (c >= u'｡' && c <= u'ﾟ'); };
    int bytes = 0;
    for (const QChar c : text)
        bytes += c.isLowSurrogate() ? 0 : half_width(c) ? 1 : 2;
    return bytes;
}

QString left_bytes(QStringView text, int bytes) {
    qsizetype size = text.size();
    while (byte_length(text.first(size)) > bytes)
        --size;
    return whole_left(text, int(size));
}

QString field_text(QStringView text) {
    return whole_left(text, field_room);
}

QString last_four(QStringView text) {
    return (u"0000"_s + text.toString()).right(4);
}

} // namespace base
