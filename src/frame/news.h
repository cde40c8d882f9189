#pragma once

// The news file and all that it names: data from outside, so nothing of it is trusted. Everything here is bounded, file
// names have no way out of their folder, and only addresses of the web are opened.
//
// The file is text, a record a line: two characters of a number, then the record's text.
//   1      an item starts; the text is the file name of its picture, or empty
//   2      a line of the item's text
//   other  the item's link

#include <QByteArray>
#include <QList>
#include <QString>
#include <QUrl>
#include <optional>

namespace frame {

struct NewsItem {
    QString picture; ///< a file name without any path, or empty
    QString text;    ///< lines parted by CR LF
    QString link;
};

inline constexpr qsizetype most_news_bytes = 256 * 1024;
inline constexpr qsizetype most_picture_bytes = 2 * 1024 * 1024;
inline constexpr int most_news_items = 100;
inline constexpr int most_news_lines = 100;       ///< of one item
inline constexpr int most_news_characters = 1000; ///< of one line

/// The items of a news file, in UTF-8 or, where it isn't that, in code page 932. What stands before the first item,
/// blank lines, control characters and everything beyond the bounds is left out; so is a picture's name that
/// is_picture_name() refuses.
QList<NewsItem> read_news(const QByteArray& file);

/// Whether the text is the bare name of a PNG, JPEG, BMP or GIF file that every platform can hold in the pictures'
/// folder.
bool is_picture_name(const QString& name);

/// Whether the bytes begin as a picture of one of those kinds does.
bool begins_as_picture(const QByteArray& file);

/// The address, if it is a complete one of the web (http or https) without a user's name in it.
std::optional<QUrl> web_address(const QString& text);

/// The news server that the setting names: "host", "host:port" or the same behind "http://". Nothing if the text is
/// empty or names anything else.
std::optional<QUrl> news_server(const QString& setting);

} // namespace frame
