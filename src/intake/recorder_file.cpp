#include "intake/recorder_file.h"

#include "base/literals.h"
#include "platform/from_cp932.h"

#include <QFile>
#include <QStringDecoder>
#include <algorithm>
#include <array>

namespace intake {

using namespace base;

namespace {

constexpr qint64 largest_file = qint64(64) << 20;

struct Text {
    QString text;
    QString encoding;
};

bool is_ascii(QByteArrayView line) {
    return std::ranges::all_of(line, [](char byte) { return static_cast<uchar>(byte) < 0x80; });
}

/// A damaged line doesn't decide about the others.
bool is_mostly_utf8(QByteArrayView bytes) {
    int utf8 = 0;
    int other = 0;
    for (qsizetype begin = 0; begin < bytes.size();) {
        const qsizetype found = bytes.indexOf('\n', begin);
        const qsizetype end = found < 0 ? bytes.size() : found;
        const QByteArrayView line = bytes.sliced(begin, end - begin);
        if (!is_ascii(line))
            ++(line.isValidUtf8() ? utf8 : other);
        begin = end + 1;
    }
    return utf8 >= other;
}

Text decoded(QByteArrayView bytes) {
    if (bytes.startsWith("\xff\xfe") || bytes.startsWith("\xfe\xff"))
        return {QStringDecoder(QStringDecoder::Utf16)(bytes), u"UTF-16"_s};
    if (bytes.startsWith("\xef\xbb\xbf"))
        return {QString::fromUtf8(bytes.sliced(3)), u"UTF-8"_s};
    if (is_mostly_utf8(bytes))
        return {QString::fromUtf8(bytes), u"UTF-8"_s};
    return {platform::from_cp932(bytes), u"CP932"_s};
}

struct Separator {
    QChar character;
    QStringView name;
};
constexpr Separator blanks{u' ', u"空白"};
constexpr std::array separators{Separator{u'\t', u"タブ"}, Separator{u',', u"コンマ"}, Separator{u';', u"セミコロン"}};

Separator separator_of(const QList<QStringView>& lines) {
    const auto having = [&](const Separator& separator) {
        return std::ranges::count_if(lines, [&](QStringView line) { return line.contains(separator.character); });
    };
    const auto most = std::ranges::max_element(separators, {}, having);
    return 2 * having(*most) >= lines.size() ? *most : blanks;
}

/// Where the closing mark of the quoted cell that begins here stands; -1 if it is an ordinary one.
qsizetype closing_mark(QStringView line, qsizetype begin, QChar separator) {
    for (qsizetype i = begin + 1; i < line.size(); ++i) {
        if (line[i] != u'"')
            continue;
        if (i + 1 == line.size() || line[i + 1] == separator)
            return i;
        if (line[++i] != u'"') // a mark within the cell is doubled
            return -1;
    }
    return -1;
}

/// Moves `at` behind the separator that ends the cell.
QString take_cell(QStringView line, qsizetype& at, QChar separator) {
    const qsizetype begin = at;
    const qsizetype closing = at < line.size() && line[at] == u'"' ? closing_mark(line, at, separator) : -1;
    const qsizetype found = closing >= 0 ? closing + 1 : line.indexOf(separator, at);
    const qsizetype end = found < 0 ? line.size() : found;
    at = end + 1;
    if (closing < 0)
        return line.sliced(begin, end - begin).trimmed().toString();
    return line.sliced(begin + 1, closing - begin - 1).toString().replace(u"\"\""_s, u"\""_s).trimmed();
}

QStringList cells_of(QStringView line, QChar separator) {
    QStringList cells;
    if (separator == blanks.character)
        return line.toString().simplified().split(separator);
    for (qsizetype at = 0; at <= line.size();)
        cells << take_cell(line, at, separator);
    return cells;
}

/// Control characters that end a file, or fill it up, are no cells.
QString without_fill(QString text) {
    return text.remove(QChar(0)).remove(QChar(0x1a)).replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
}

} // namespace

int RecorderFile::columns() const {
    qsizetype most = 0;
    for (const RecorderLine& line : lines)
        most = std::max(most, line.cells.size());
    return static_cast<int>(most);
}

RecorderFile read_recorder_file(QByteArrayView bytes) {
    const auto [raw, encoding] = decoded(bytes);
    const QString text = without_fill(raw);
    const QList<QStringView> all = QStringView(text).split(u'\n');
    QList<QStringView> filled = all;
    filled.removeIf([](QStringView line) { return line.trimmed().isEmpty(); });
    const Separator separator = separator_of(filled);
    RecorderFile file{{}, encoding, separator.name.toString()};
    file.lines.reserve(filled.size());
    for (int i = 0; i < all.size(); ++i)
        if (!all[i].trimmed().isEmpty())
            file.lines.append({i + 1, cells_of(all[i], separator.character)});
    return file;
}

OpenedFile open_recorder_file(const QString& path) {
    QFile bytes(path);
    if (!bytes.open(QIODevice::ReadOnly))
        return {{}, u"ファイルを開けません。"_s};
    if (bytes.size() > largest_file)
        return {{}, u"ファイルが大きすぎます。"_s};
    return {read_recorder_file(bytes.readAll()), {}};
}

} // namespace intake
