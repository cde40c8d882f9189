#pragma once

// The employees and their judgements as a table: nothing is copied, so that thousands of employees cost nothing to
// show.

#include "limits/ent_jyougen.h"

#include <QAbstractTableModel>

namespace ui {

class LimitsModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Number, Name, State, Nearest, first_measure };
    static constexpr int column_count = first_measure + limits::measure_count;

    /// What a bar is drawn from; nothing where a cell has none.
    enum Role { Share = Qt::UserRole, Level };

    /// The form outlives the model.
    LimitsModel(const limits::ent_jyougen& form, QObject* parent) : QAbstractTableModel(parent), m_form(form) {}

    /// The form has read anew or shows others.
    void refresh();

    const limits::Looked& employee(int row) const { return m_form.look.employees[m_form.shown[row]]; }

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
    QString text(const QModelIndex& index) const;
    const limits::Judged* judged(const QModelIndex& index) const;

    const limits::ent_jyougen& m_form;
};

} // namespace ui
