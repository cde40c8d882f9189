#include "ui/pages/printer_box.h"

#include "ui/parts/page_parts.h"

namespace ui {

PrinterBox::PrinterBox(std::function<void(int item)> choose, QWidget* parent) : QComboBox(parent) {
    setObjectName("prconb");
    setAccessibleName(QStringLiteral("プリンター"));
    setMinimumHeight(box_height);
    connect(this, &QComboBox::activated, this, std::move(choose));
}

void PrinterBox::show_list(const setup::PrinterList& list, const QString& otherwise) {
    if (count() != list.items.size()) {
        clear();
        addItems(list.items);
    }
    setPlaceholderText(otherwise);
    setCurrentIndex(list.index);
}

} // namespace ui
