#pragma once

// A print job from the printer's name to the painted pages.

#include "frame/session.h"
#include "reports/pages/page.h"
#include "reports/pages/page_constants.h"

namespace reports {

enum class Printed {
    Yes,
    Nothing,   ///< there is no page, so nothing was put out
    NoPrinter, ///< no printer of the name that is set; the person has been told
    Failed,    ///< the printer or the file failed; the person has been told
};

/// What is taken off every place of a page: the printer's margin and what is set for it. Of a margin's decimal text
/// only the first three characters count: 1.4567 gives 1.4, and 12.345 gives 12.
Place print_offset(Place margin, const PrinterSetting& setting);

/// The text primitive: paints the text with its upper left corner at this place of the paper.
void 印字出力(PrintSurface& surface, Place offset, const QString& 文字列, Place place);

/// Paints a page in the reports' font onto the page that the surface has begun.
void paint(const Page& page, Place offset, PrintSurface& surface);

/// Gives the job the name under which it stands in the printer's queue, whichever report is printed.
void 印刷ジョブ名設定(PrintJob& job);

/// Where a print goes.
struct PrintTarget {
    frame::Session& session;
    PrintShop& shop;
};

/// Prints the pages that `make` gives for today on the printer of this PC. `report` is the report's title. The pages
/// are made once the printer is there; if making them throws, the job is given up.
Printed print_pages(
    const PrintTarget& target, Layout layout, const QString& report, const std::function<Pages(QDate today)>& make);

} // namespace reports
