#include "store/server_names.h"

#include <QSysInfo>
#include <algorithm>

namespace store {

namespace {

constexpr auto how = QByteArray::Base64UrlEncoding | QByteArray::OmitTrailingEquals;
constexpr char encoded = '='; ///< stands before what isn't plain
constexpr qsizetype room_of_pc = 40;

bool is_plain(const QString& text) {
    return !text.startsWith(QLatin1Char(encoded)) &&
           std::ranges::all_of(text, [](QChar c) { return c > u' ' && c < u'\x7f'; });
}

} // namespace

QByteArray in_ascii(QString text, qsizetype room) {
    if (is_plain(text))
        return text.left(room).toLatin1();
    while (text.toUtf8().toBase64(how).size() >= room)
        text.chop(1);
    return encoded + text.toUtf8().toBase64(how);
}

QString from_ascii(const QByteArray& ascii) {
    return QString::fromUtf8(ascii.startsWith(encoded) ? QByteArray::fromBase64(ascii.sliced(1), how) : ascii);
}

QByteArray connection_name() {
    return program_word.toByteArray() + ' ' + in_ascii(QSysInfo::machineHostName(), room_of_pc);
}

QString pc_of(const QByteArray& connection_name) {
    const QList<QByteArray> words = connection_name.split(' ');
    return words.size() > 1 && words[0] == program_word ? from_ascii(words[1]) : QString();
}

} // namespace store
