#pragma once

// How the program looks apart from its pictures: one widget style, one font and one light set of colours on every
// desktop, since the bitmaps and the colours that forms give to cells are made for it.

class QApplication;
class QLabel;

namespace ui {

void apply_style(QApplication& application);

/// What a label on a page is, by its looks.
enum class Lettering { Heading, Section, Comment, Quiet, Link, Mark };
void letter(QLabel& label, Lettering as);

} // namespace ui
