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

QString 文字除去(QString text, QChar character) {
    return text.remove(character);
}

QString left_justified(QStringView text, int width) {
    return text.toString().leftJustified(width, u' ', true);
}

QString right_justified(QStringView text, int width) {
    return text.toString().rightJustified(width, u' ', true);
}

QString last_four(QStringView text) {
    return (u"0000"_s + text.toString()).right(4);
}

} // namespace base
