#include "ui/limits/share_bar.h"

#include "ui/limits/limits_model.h"
#include "ui/parts/colours.h"

#include <QPainter>
#include <algorithm>

namespace ui {

namespace {

constexpr QRgb bars[] = {0xffcde8df, 0xffffdca6, 0xfff4b3ac}; ///< by level: text is read on each
constexpr int air = 3;
constexpr int text_air = 6;
constexpr double rounding = 3;
constexpr int whole = 1000;

void paint_bar(QPainter& painter, const QRectF& room, int share, int level) {
    painter.setPen(QColor::fromRgb(colours::line));
    painter.setBrush(QColor::fromRgb(colours::ground));
    painter.drawRoundedRect(room, rounding, rounding);
    QRectF bar = room;
    bar.setWidth(room.width() * std::clamp(share, 0, whole) / whole);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(bars[level]));
    painter.drawRoundedRect(bar, rounding, rounding);
}

} // namespace

void ShareBar::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
    const QVariant share = index.data(LimitsModel::Share);
    if (!share.isValid())
        return QStyledItemDelegate::paint(painter, option, index);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (option.state & QStyle::State_Selected)
        painter->fillRect(option.rect, option.palette.highlight());
    const QRectF room = QRectF(option.rect).adjusted(air + 0.5, air + 0.5, -air - 0.5, -air - 0.5);
    paint_bar(*painter, room, share.toInt(), index.data(LimitsModel::Level).toInt());
    painter->setPen(QColor::fromRgb(colours::text));
    painter->setFont(option.font);
    painter->drawText(room.adjusted(text_air, 0, -text_air, 0), index.data(Qt::TextAlignmentRole).toInt(),
        index.data(Qt::DisplayRole).toString());
    painter->restore();
}

} // namespace ui
