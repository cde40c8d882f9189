#include "ui/entry/day_table.h"

#include "base/literals.h"

#include <QHeaderView>

namespace ui {

using namespace base;

QTableWidget* day_table(const QStringList& headings, QWidget* parent) {
    auto* table = new QTableWidget(0, static_cast<int>(headings.size()), parent);
    table->setHorizontalHeaderLabels(headings);
    table->horizontalHeader()->setStretchLastSection(true);
    table->horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    table->horizontalHeader()->setHighlightSections(false);
    table->verticalHeader()->hide();
    table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table->setSelectionBehavior(QAbstractItemView::SelectRows);
    table->setSelectionMode(QAbstractItemView::SingleSelection);
    table->setTabKeyNavigation(false);
    return table;
}

QTableWidgetItem* day_item(const QString& text) {
    auto* item = new QTableWidgetItem(text);
    item->setToolTip(text);
    return item;
}

QString day_name(const entry::MonthSheet& sheet, int r) {
    if (r == entry::row::total)
        return u"月"_s;
    return u"%1日（%2）"_s.arg(sheet.hyou(r, entry::col::day), sheet.hyou(r, entry::col::weekday));
}

} // namespace ui
