#pragma once

// The preview: the pages of a report as they will come out of the printer, painted by what paints them there.

#include "frame/session.h"
#include "reports/pages/page.h"
#include "reports/pages/page_constants.h"
#include "reports/tallies/report.h"

class QWidget;

namespace ui {

/// Shows pages of this layout until the person closes them or wants them printed; true for the latter. No page is told
/// and nothing opens.
bool preview_pages(const reports::Pages& pages, reports::Layout layout, frame::Session& session, QWidget* parent);

/// Shows the pages of the report as its sheet stands, until the person prints or closes. Prints by the report's own
/// procedure. A report without pages is told and nothing opens. Returns whether it was printed.
bool preview(const reports::Report& report, frame::Session& session, reports::PrintShop& shop, QWidget* parent);

} // namespace ui
