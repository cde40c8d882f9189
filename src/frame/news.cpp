#include "frame/news.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "platform/from_cp932.h"

#include <QStringDecoder>
#include <algorithm>

namespace frame {

using namespace base;

namespace {

constexpr int code_width = 2;
constexpr int starts_item = 1;
constexpr int text_line = 2;

constexpr int longest_name = 80; ///< in UTF-8 still within the 255 bytes that file systems take
constexpr QStringView not_in_names = u"/\\:*?\"<>|";
constexpr QStringView picture_endings[]{u".png", u".jpg", u".jpeg", u".bmp", u".gif"};
constexpr QStringView device_names[]{u"con", u"prn", u"aux", u"nul", u"com", u"lpt"};
constexpr QByteArrayView picture_beginnings[]{"\x89PNG\r\n\x1a\n", "\xff\xd8\xff", "BM", "GIF8"};

bool is_invisible(QChar character) {
    return character.category() == QChar::Other_Control || character.category() == QChar::Other_Format;
}

QString decoded(const QByteArray& file) {
    QStringDecoder utf8(QStringDecoder::Utf8);
    QString text = utf8(file);
    return utf8.hasError() ? platform::from_cp932(file) : text;
}

/// The record without what can't be seen, a tab being a blank.
QString visible(QStringView line) {
    QString text = line.left(most_news_characters).toString();
    text.replace(u'\t', u' ');
    text.removeIf(is_invisible);
    return text;
}

class Reader {
public:
    void take(const QString& record) {
        const int code = int_val(record.left(code_width));
        const QString text = Trim(record.sliced(qMin(code_width, record.size())));
        if (code == starts_item)
            start_item(text);
        else if (m_items.isEmpty() || m_full)
            return;
        else if (code == text_line)
            add_line(text);
        else
            m_items.last().link = text;
    }

    QList<NewsItem> items() && { return std::move(m_items); }

private:
    void start_item(const QString& picture) {
        m_full = m_items.size() == most_news_items;
        if (!m_full)
            m_items.append({is_picture_name(picture) ? picture : QString(), {}, {}});
        m_lines = 0;
    }

    void add_line(const QString& text) {
        if (m_lines++ < most_news_lines)
            m_items.last().text += m_lines > 1 ? u"\r\n"_s + text : text;
    }

    QList<NewsItem> m_items;
    int m_lines = 0;
    bool m_full = false;
};

/// A device of Windows keeps its name whatever ending follows it: "nul.png", "com1.bmp".
bool names_device(const QString& name) {
    QString stem = name.section(u'.', 0, 0).toLower();
    if (stem.size() == 4 && stem.back().isDigit())
        stem.chop(1);
    return std::ranges::find(device_names, stem) != std::end(device_names);
}

} // namespace

QList<NewsItem> read_news(const QByteArray& file) {
    QString text = decoded(file.first(qMin(file.size(), most_news_bytes)));
    text.replace(u"\r\n"_s, u"\n"_s).replace(u'\r', u'\n');
    Reader reader;
    for (const QStringView line : QStringView(text).split(u'\n', Qt::SkipEmptyParts))
        if (const QString record = visible(line); !Trim(record).isEmpty())
            reader.take(record);
    return std::move(reader).items();
}

bool is_picture_name(const QString& name) {
    const auto unfit = [](QChar c) { return is_invisible(c) || c.isSurrogate() || not_in_names.contains(c); };
    const auto ends_name = [&](QStringView ending) { return name.endsWith(ending, Qt::CaseInsensitive); };
    return name.size() <= longest_name && !name.startsWith(u'.') && !name.contains(u".."_s) &&
           std::ranges::none_of(name, unfit) && std::ranges::any_of(picture_endings, ends_name) && !names_device(name);
}

bool begins_as_picture(const QByteArray& file) {
    return std::ranges::any_of(
        picture_beginnings, [&](QByteArrayView beginning) { return file.startsWith(beginning); });
}

std::optional<QUrl> web_address(const QString& text) {
    const QUrl address(text, QUrl::TolerantMode);
    const bool web = address.scheme() == u"http" || address.scheme() == u"https";
    return web && address.isValid() && !address.host().isEmpty() && address.userInfo().isEmpty()
               ? std::optional(address)
               : std::nullopt;
}

std::optional<QUrl> news_server(const QString& setting) {
    const QString text = Trim(setting);
    std::optional<QUrl> address = web_address(text.contains(u"://"_s) ? text : u"http://"_s + text);
    const bool bare = address && address->scheme() == u"http" && (address->path().isEmpty() || address->path() == u"/");
    if (!bare || address->hasQuery() || address->hasFragment())
        return std::nullopt;
    address->setPath(u"/"_s);
    return address;
}

} // namespace frame
