#include "ui/parts/radio_group.h"

#include <QRadioButton>

namespace ui {

QButtonGroup* radio_group(QWidget& parent, std::span<const QStringView> captions) {
    auto* made = new QButtonGroup(&parent);
    for (int element = 0; element < static_cast<int>(captions.size()); ++element)
        made->addButton(new QRadioButton(captions[element].toString(), &parent), element);
    return made;
}

QHBoxLayout* in_a_row(const QButtonGroup& group) {
    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    for (QAbstractButton* button : group.buttons())
        row->addWidget(button);
    row->addStretch();
    return row;
}

} // namespace ui
