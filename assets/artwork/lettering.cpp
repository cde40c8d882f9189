#include "lettering.h"

#include <QtGui/QFontMetricsF>

namespace artwork {

double width_of(const Lettering& lettering, QStringView text) {
    const QFontMetricsF metrics(lettering.font);
    double width = lettering.gap * double(text.size() - 1);
    for (const QChar letter : text)
        width += metrics.horizontalAdvance(letter);
    return width;
}

void draw_text(QPainter& painter, const Lettering& lettering, QStringView text, double left, double middle) {
    const QFontMetricsF metrics(lettering.font);
    // Kanji and kana fill a square of which about an eighth lies below the baseline.
    const double baseline = middle + lettering.font.pixelSize() * 0.38;
    painter.setFont(lettering.font);
    for (const QChar letter : text) {
        painter.drawText(QPointF(left, baseline), QString(letter));
        left += metrics.horizontalAdvance(letter) + lettering.gap;
    }
}

} // namespace artwork
