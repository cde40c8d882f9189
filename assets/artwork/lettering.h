#pragma once

// Japanese text set letter by letter with a gap of one's own: the letter spacing of QFont comes out wider on a scaled
// painter than the font metrics promise, so that a label would not stand in the middle.

#include <QtCore/QStringView>
#include <QtGui/QFont>
#include <QtGui/QPainter>

namespace artwork {

struct Lettering {
    QFont font;
    double gap = 0; // between two letters
};

// From the left edge of the first letter to the right edge of the last.
double width_of(const Lettering& lettering, QStringView text);

// Draws with the pen of the painter. `left` is the left edge, `middle` the height at which the letters have their
// middle.
void draw_text(QPainter& painter, const Lettering& lettering, QStringView text, double left, double middle);

} // namespace artwork
