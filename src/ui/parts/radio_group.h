#pragma once

// A group of radio buttons of which one is on, as the forms have them: control arrays whose element is the choice.

#include <QButtonGroup>
#include <QHBoxLayout>
#include <span>

namespace ui {

/// One button a caption, made as children of the parent, each under the number of its element. None is
/// on yet; the group belongs to the parent too.
QButtonGroup* radio_group(QWidget& parent, std::span<const QStringView> captions);

/// The group's buttons side by side, the room behind them left free.
QHBoxLayout* in_a_row(const QButtonGroup& group);

} // namespace ui
