#pragma once

// The overview on paper: the sheet's rows on A4 in landscape, days and sums side by side. The work categories, for
// which a sheet has no room, are in the text file.

#include "base/sheet.h"
#include "reports/pages/page.h"

#include <QDate>

namespace overview {

struct PageHead {
    QString title;
    QString standing;
};

/// No page for a sheet without employees. What is off is underlined.
reports::Pages overview_pages(const base::Sheet& hyou, const PageHead& head, QDate today);

} // namespace overview
