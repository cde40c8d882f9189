#pragma once

// A cell of the limits as a bar behind its text: as long as the share of the limit that is used up, in the colour of
// its level; a cell without a share is an ordinary one.

#include <QStyledItemDelegate>

namespace ui {

class ShareBar : public QStyledItemDelegate {
    Q_OBJECT
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
};

} // namespace ui
