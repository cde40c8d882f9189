#include "icon_file.h"

#include <QtCore/QBuffer>
#include <QtCore/QDataStream>

namespace artwork {

namespace {

constexpr int header_size = 6;
constexpr int entry_size = 16;
constexpr quint16 kind_icon = 1;
constexpr quint16 planes = 1;
constexpr quint16 bits = 32;
constexpr int side_as_png = 256; // smaller ones aren't read as PNG by every program

QByteArray png(const QImage& picture) {
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    picture.save(&bytes, "PNG");
    return bytes.data();
}

// A bitmap without its file header, lowest line first, of twice the height: below the colours lies a mask of one bit a
// pixel, which counts for nothing beside the transparency of the colours.
QByteArray bitmap(const QImage& picture) {
    const int side = picture.width();
    const int mask_line = (side + 31) / 32 * 4;
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint32(40) << qint32(side) << qint32(2 * side) << planes << bits;
    for (int unused = 0; unused < 6; ++unused)
        out << quint32(0);
    const QImage colours = picture.convertToFormat(QImage::Format_ARGB32);
    for (int y = side - 1; y >= 0; --y)
        for (int x = 0; x < side; ++x)
            out << quint32(colours.pixel(x, y));
    return bytes + QByteArray(qsizetype(mask_line) * side, '\0');
}

} // namespace

QByteArray icon_file(const QList<QImage>& pictures) {
    QByteArray head, body;
    QDataStream out(&head, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    out << quint16(0) << kind_icon << quint16(pictures.size());
    for (const QImage& picture : pictures) {
        const QByteArray bytes = picture.width() < side_as_png ? bitmap(picture) : png(picture);
        const auto side = quint8(picture.width()); // 256 is written as 0
        out << side << side << quint16(0) << planes << bits << quint32(bytes.size())
            << quint32(header_size + entry_size * pictures.size() + body.size());
        body += bytes;
    }
    return head + body;
}

} // namespace artwork
