#include "ui/intake/column_table.h"

#include "base/literals.h"
#include "ui/parts/colours.h"

#include <QComboBox>
#include <QHeaderView>
#include <algorithm>

namespace ui {

using namespace base;

namespace {

constexpr int shown_lines = 4;
constexpr int most_columns = 60; ///< a file that has more isn't one of a recorder
constexpr int row_height = 26;
constexpr int column_width = 132;

} // namespace

ColumnTable::ColumnTable(const intake::ent_torikomi& form, QWidget* parent) : QTableWidget(parent), m_form(form) {
    setObjectName("columns");
    setAccessibleName(u"列の割り当て"_s);
    setEditTriggers(NoEditTriggers);
    setSelectionMode(NoSelection);
    setFocusPolicy(Qt::NoFocus);
    setTabKeyNavigation(false);
    horizontalHeader()->setDefaultSectionSize(column_width);
    horizontalHeader()->hide();
    verticalHeader()->setDefaultSectionSize(row_height);
    verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    setFixedHeight((shown_lines + 1) * row_height + 2 * frameWidth() + 18);
}

void ColumnTable::refresh() {
    const int columns = std::min(m_form.file.columns(), most_columns);
    const int lines = static_cast<int>(std::min<qsizetype>(m_form.file.lines.size(), shown_lines));
    if (columns != columnCount() || lines + 1 != rowCount()) {
        setRowCount(0);
        setColumnCount(columns);
        setRowCount(columns == 0 ? 0 : lines + 1);
    }
    if (columns == 0)
        return;
    show_roles();
    show_lines();
}

void ColumnTable::show_roles() {
    setVerticalHeaderItem(0, new QTableWidgetItem(u"列"_s));
    for (int column = 0; column < columnCount(); ++column) {
        auto* role = qobject_cast<QComboBox*>(cellWidget(0, column));
        if (role == nullptr) {
            role = new QComboBox(this);
            role->setAccessibleName(u"%1列目"_s.arg(column + 1));
            role->addItem(u"（使わない）"_s);
            for (const QStringView caption : intake::role_captions())
                role->addItem(caption.toString());
            connect(role, &QComboBox::activated, this, [this, column](int index) {
                Q_EMIT assigned(column + 1, index == 0 ? std::nullopt : std::optional(intake::Role(index - 1)));
            });
            setCellWidget(0, column, role);
        }
        const auto assigned_role = m_form.role_of(column + 1);
        role->setCurrentIndex(assigned_role ? int(*assigned_role) + 1 : 0);
    }
}

void ColumnTable::show_lines() {
    for (int i = 0; i + 1 < rowCount(); ++i) {
        const intake::RecorderLine& line = m_form.file.lines[i];
        setVerticalHeaderItem(i + 1, new QTableWidgetItem(QString::number(line.number)));
        for (int column = 0; column < columnCount(); ++column) {
            auto* item = new QTableWidgetItem(line.cells.value(column));
            if (i < m_form.profile.heading_lines)
                item->setForeground(QColor::fromRgb(colours::quiet_text));
            setItem(i + 1, column, item);
        }
    }
}

} // namespace ui
