#pragma once

// The file in which Windows wants the icon of a program: one picture in several sizes.

#include <QtCore/QByteArray>
#include <QtGui/QImage>

namespace artwork {

// The pictures are square and at most 256 pixels wide.
QByteArray icon_file(const QList<QImage>& pictures);

} // namespace artwork
