#pragma once

// The one list of button pictures. A row is a button; its two files are what the screens load.

#include "icons.h"
#include "style.h"

#include <QtCore/QStringView>

#include <span>

namespace artwork {

struct ButtonPicture {
    QStringView up;
    QStringView pressed; // empty: the picture has no pressed form
    QStringView label;
    IconKind icon;
    Shape shape;
    Tone tone;
};

std::span<const ButtonPicture> button_table();

} // namespace artwork
