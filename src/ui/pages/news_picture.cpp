#include "ui/pages/news_picture.h"

#include <QImageReader>
#include <array>

namespace ui {

namespace {

constexpr QSize largest(6000, 6000);
constexpr qint64 most_pixels = 16'000'000;

bool is_sensible(QSize size) {
    return !size.isEmpty() && size.boundedTo(largest) == size && qint64(size.width()) * size.height() <= most_pixels;
}

bool is_known(const QByteArray& format) {
    static constexpr std::array<QByteArrayView, 4> known{"png", "jpeg", "bmp", "gif"};
    return std::ranges::find(known, QByteArrayView(format)) != known.end();
}

QByteArray format_of(const QString& path) {
    return QImageReader(path).format();
}

} // namespace

QImage read_news_picture(const QString& path, QSize room) {
    const QByteArray format = format_of(path);
    if (!is_known(format))
        return {};
    QImageReader reader(path, format);
    reader.setAutoDetectImageFormat(false);
    const QSize size = reader.size();
    if (!is_sensible(size))
        return {};
    const QImage picture = reader.read();
    const bool fits = size.boundedTo(room) == size;
    return picture.isNull() || fits ? picture : picture.scaled(room, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace ui
