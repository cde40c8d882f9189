#include "style.h"

#include <array>

namespace artwork {

namespace {

constexpr QColor rgb(int value) {
    return QColor((value >> 16) & 0xff, (value >> 8) & 0xff, value & 0xff);
}

const QColor band(200, 200, 255);
const QColor page(240, 240, 240);

// In the order of Shape.
const std::array<ShapeStyle, 5> shapes{{
    {{124, 44}, band, 7, 14, 22, 1.7},
    {{240, 44}, page, 8, 15, 20, 1.8},
    {{96, 32}, page, 6, 14, 17, 2.0},
    {{136, 32}, page, 6, 14, 17, 2.0},
    {{300, 40}, page, 8, 19, 20, 1.8},
}};

// In the order of Tone.
const std::array<ToneStyle, 7> tones{{
    {rgb(0xffffff), rgb(0xf2f2ff), rgb(0xa2a6de), rgb(0x2a2d5e), rgb(0x4a4fb4), rgb(0xd8daf9), rgb(0xd3d5f6),
        rgb(0xdfe1fb)},
    {rgb(0xffffff), rgb(0xf6f6fd), rgb(0xb9bce0), rgb(0x2a2d5e), rgb(0x4a4fb4), rgb(0xe2e4fa), rgb(0xd6d8f3),
        rgb(0xe1e3f9)},
    {rgb(0xffffff), rgb(0xf4faf9), rgb(0xaccdca), rgb(0x1c4546), rgb(0x1f7b78), rgb(0xd5ecea), rgb(0xc9e2e0),
        rgb(0xd7ecea)},
    {rgb(0xffffff), rgb(0xf5f5f8), rgb(0xb7b9c8), rgb(0x363950), rgb(0x5b6080), rgb(0xe1e3ec), rgb(0xd5d7e1),
        rgb(0xe0e2ea)},
    {rgb(0x6268cb), rgb(0x4e53b8), rgb(0x41469f), rgb(0xffffff), rgb(0xffffff), rgb(0x8287d8), rgb(0x3f4499),
        rgb(0x474ca8)},
    {rgb(0x3b9b97), rgb(0x2a827e), rgb(0x226c69), rgb(0xffffff), rgb(0xffffff), rgb(0x66b4b1), rgb(0x216764),
        rgb(0x277472)},
    {rgb(0xffffff), rgb(0xfdf5f5), rgb(0xdcb3b4), rgb(0x7d2b30), rgb(0xb2484d), rgb(0xf6dcdc), rgb(0xf0d2d2),
        rgb(0xf6dede)},
}};

} // namespace

const ShapeStyle& shape_style(Shape shape) {
    return shapes[static_cast<std::size_t>(shape)];
}

const ToneStyle& tone_style(Tone tone) {
    return tones[static_cast<std::size_t>(tone)];
}

QFont label_font(int size) {
    QFont font;
    font.setFamilies({QStringLiteral("Noto Sans CJK JP"), QStringLiteral("IPAゴシック"), QStringLiteral("IPAGothic"),
        QStringLiteral("sans-serif")});
    font.setWeight(QFont::Bold);
    font.setHintingPreference(QFont::PreferNoHinting);
    font.setPixelSize(size);
    return font;
}

} // namespace artwork
