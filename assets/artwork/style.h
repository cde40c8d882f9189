#pragma once

// How the pictures look: a few shapes and a few tones, so that a button says by its looks what kind of button it is.
// All lengths are logical pixels.

#include <QtCore/QSize>
#include <QtGui/QColor>
#include <QtGui/QFont>

namespace artwork {

// A bitmap is written this many times larger than it is shown.
constexpr int pixels_a_point = 2;

enum class Shape {
    Top,     // in the band along the top of the frame
    Menu,    // on a menu page: icon tile, label, chevron
    Action,  // at the foot of a screen
    Wide,    // the same with a longer label
    Heading, // the title picture of a report, not a button
};

enum class Tone {
    Band,      // a place to go, on the top band
    Master,    // a place to go, among the masters
    Report,    // a place to go, among the reports
    Neutral,   // leaves things as they are
    Primary,   // writes
    Secondary, // looks something up
    Danger,    // takes something away
};

struct ShapeStyle {
    QSize size;
    QColor back; // colour of the place where it stands
    double radius;
    int label_size;
    double icon_size;
    double stroke; // width of the icon's lines
};

struct ToneStyle {
    QColor face_top;
    QColor face_bottom;
    QColor edge;
    QColor ink;  // label
    QColor line; // icon lines
    QColor tint; // icon fillings and icon tile
    QColor pressed_top;
    QColor pressed_bottom;
};

const ShapeStyle& shape_style(Shape shape);
const ToneStyle& tone_style(Tone tone);

// The label font: a bold Japanese sans serif, drawn without hinting so that both sizes on the screen look alike.
QFont label_font(int size);

} // namespace artwork
