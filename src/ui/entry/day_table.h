#pragma once

// The table of days that the panels of attendance entry show: nothing in it can be edited, whole rows are chosen.

#include "entry/sheet.h"

#include <QTableWidget>

namespace ui {

/// The last column takes the width that is left.
QTableWidget* day_table(const QStringList& headings, QWidget* parent);

QTableWidgetItem* day_item(const QString& text);

/// "5日（水）"; "月" for the month's own row.
QString day_name(const entry::MonthSheet& sheet, int r);

} // namespace ui
