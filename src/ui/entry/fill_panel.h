#pragma once

// What blank days are filled with, and which. Enter alone fills all of the month from the standard times.

#include "entry/fill.h"

#include <QDialog>

class QButtonGroup;
class QComboBox;
class QSpinBox;

namespace ui {

class FillPanel : public QDialog {
    Q_OBJECT
public:
    /// `choices` are the bands that may end a normal day; empty where that isn't to be asked.
    FillPanel(const entry::MonthSheet& sheet, const QList<entry::BandChoice>& choices, QWidget* parent);

    entry::FillSource source() const;
    std::optional<entry::RowRange> rows() const; ///< nothing for all of the month
    std::optional<int> normal_band() const;      ///< the band that was chosen, where it was asked

private:
    QButtonGroup* m_sources;
    QButtonGroup* m_whole;
    QSpinBox* m_first;
    QSpinBox* m_last;
    QComboBox* m_bands = nullptr;
};

} // namespace ui
