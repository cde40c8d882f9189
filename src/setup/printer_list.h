#pragma once

// `prconb`: the list of this PC's printers by device name.

#include "platform/host.h"

namespace setup {

struct PrinterList {
    QStringList items; ///< in the desktop's order
    int index = -1;    ///< the one selected; -1 none

    void fill(platform::Host& host) { items = host.printers(); }
    /// Selects the printer of this name, or none if it isn't in the list.
    void select(const QString& name) { index = static_cast<int>(items.indexOf(name)); }
    /// The name of the one selected; empty if none is.
    QString text() const { return items.value(index); }
};

} // namespace setup
