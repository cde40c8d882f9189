#pragma once

// The preview of a paste: what came, what was understood of it, and what it would do. Nothing is written before it is
// accepted.

#include "entry/paste.h"

#include <QDialog>

namespace ui {

class PastePanel : public QDialog {
    Q_OBJECT
public:
    PastePanel(const entry::MonthSheet& sheet, const entry::PastePreview& preview, QWidget* parent);
};

} // namespace ui
