#pragma once

// The first lines of a recorder's file as it was read, and above each column a list that says what it is.

#include "intake/ent_torikomi.h"

#include <QTableWidget>

namespace ui {

class ColumnTable : public QTableWidget {
    Q_OBJECT
public:
    /// The form outlives the table.
    ColumnTable(const intake::ent_torikomi& form, QWidget* parent);

    void refresh();

Q_SIGNALS:
    void assigned(int column, std::optional<intake::Role> role);

private:
    void show_roles();
    void show_lines();

    const intake::ent_torikomi& m_form;
};

} // namespace ui
