#pragma once

// The lines of a preview as a table: nothing is copied, so that tens of thousands of lines cost nothing to show.

#include "intake/ent_torikomi.h"

#include <QAbstractTableModel>

namespace ui {

class PreviewModel : public QAbstractTableModel {
    Q_OBJECT
public:
    enum Column { Take, Line, Employee, Date, Times, State, Clock, Reason, column_count };

    /// The form outlives the model.
    explicit PreviewModel(const intake::ent_torikomi& form, QObject* parent)
        : QAbstractTableModel(parent), m_form(form) {}

    /// Only lines of this state are shown; all of them where none is given.
    void show_state(std::optional<intake::State> state);

    /// The form has read, looked or accepted anew.
    void refresh();

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

Q_SIGNALS:
    void chosen(int day, bool accept);

private:
    const intake::PreviewLine& line(const QModelIndex& index) const;
    QString text(const intake::PreviewLine& line, int column) const;
    QVariant tick(const intake::PreviewLine& line) const;

    const intake::ent_torikomi& m_form;
    std::optional<intake::State> m_state;
    QList<int> m_lines; ///< those that are shown
};

} // namespace ui
