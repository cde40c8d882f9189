#include "ui/overview/legend_line.h"

#include "base/literals.h"
#include "overview/picture.h"
#include "ui/parts/colours.h"

#include <QPainter>

namespace ui {

using namespace base;

namespace {

constexpr QSize patch(22, 14);
constexpr int gap = 5;
constexpr int between = 14;
constexpr int dot_size = 6;
const QString draft_caption = u"未登録"_s;

void paint_patch(QPainter& painter, const QRect& place, Rgb ground) {
    painter.fillRect(place, QColor::fromRgb(colours::heading_line));
    painter.fillRect(place.adjusted(1, 1, -1, -1), QColor(ground.red, ground.green, ground.blue));
}

void paint_dot(QPainter& painter, const QRect& place) {
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(colours::waiting));
    painter.drawEllipse(place.center(), dot_size / 2, dot_size / 2);
}

} // namespace

LegendLine::LegendLine(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

int LegendLine::width_of(const QString& caption) const {
    return patch.width() + gap + fontMetrics().horizontalAdvance(caption) + between;
}

QSize LegendLine::sizeHint() const {
    int width = width_of(draft_caption);
    for (const overview::Legend& legend : overview::legends())
        width += width_of(legend.caption.toString());
    return {width, fontMetrics().height() + 2};
}

void LegendLine::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    int x = 0;
    const auto place = [&] { return QRect(QPoint(x, (height() - patch.height()) / 2), patch); };
    const auto word = [&](const QString& caption) {
        painter.setPen(QColor::fromRgb(colours::text));
        painter.drawText(
            QRect(x + patch.width() + gap, 0, width(), height()), Qt::AlignVCenter | Qt::AlignLeft, caption);
        x += width_of(caption);
    };
    for (const overview::Legend& legend : overview::legends()) {
        paint_patch(painter, place(), legend.back);
        word(legend.caption.toString());
    }
    paint_dot(painter, place());
    word(draft_caption);
}

} // namespace ui
