#pragma once

// What blank days are filled with, and which. Enter alone fills all of the month from the standard times.

#include "entry/fill.h"

#include <QDialog>
#include <span>

class QButtonGroup;
class QCheckBox;
class QComboBox;
class QSpinBox;
class QVBoxLayout;

namespace ui {

class FillPanel : public QDialog {
    Q_OBJECT
public:
    /// `choices` are the bands that may end a normal day; empty where that isn't to be asked.
    FillPanel(const entry::MonthSheet& sheet, const QList<entry::BandChoice>& choices, entry::Weekdays weekdays,
        QWidget* parent);

    entry::FillSource source() const;
    std::optional<entry::RowRange> rows() const; ///< nothing for all of the month
    entry::Weekdays weekdays() const;            ///< those that are ticked
    std::optional<int> normal_band() const;      ///< the band that was chosen, where it was asked

private:
    void add_options(QVBoxLayout* column, QButtonGroup* group, std::span<const QStringView> captions);
    void ask_normal_band(QVBoxLayout* column, const QList<entry::BandChoice>& choices);
    QLayout* make_weekdays(entry::Weekdays weekdays);
    QLayout* make_range();
    QWidget* make_buttons();

    QButtonGroup* m_sources;
    QButtonGroup* m_whole;
    std::array<QCheckBox*, 7> m_weekdays; ///< from Sunday on
    QSpinBox* m_first;
    QSpinBox* m_last;
    QComboBox* m_bands = nullptr;
};

} // namespace ui
