#pragma once

// PrinterBox: shows a setup::PrinterList, `prconb` of a form.

#include "setup/printer_list.h"

#include <QComboBox>
#include <functional>

namespace ui {

class PrinterBox : public QComboBox {
    Q_OBJECT
public:
    /// `choose` takes the person's choice.
    PrinterBox(std::function<void(int item)> choose, QWidget* parent);

    /// Takes over items and selection. While none is selected `otherwise` stands there in grey.
    void show_list(const setup::PrinterList& list, const QString& otherwise = {});
};

} // namespace ui
