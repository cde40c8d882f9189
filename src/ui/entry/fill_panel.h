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
    /// `choices` are the bands that a normal day may begin and end with, `marked` those that are known; without
    /// choices it isn't asked.
    FillPanel(const entry::MonthSheet& sheet, const QList<entry::BandChoice>& choices, entry::NormalDay marked,
        entry::Weekdays weekdays, QWidget* parent);

    entry::FillSource source() const;
    std::optional<entry::RowRange> rows() const;        ///< nothing for all of the month
    entry::Weekdays weekdays() const;                   ///< those that are ticked
    std::optional<entry::NormalDay> normal_day() const; ///< what was chosen, where it was asked

private:
    void add_options(QVBoxLayout* column, QButtonGroup* group, std::span<const QStringView> captions);
    void ask_normal_day(QVBoxLayout* column, const QList<entry::BandChoice>& choices, entry::NormalDay marked);
    QComboBox* add_bands(
        QVBoxLayout* column, const QString& caption, const QList<entry::BandChoice>& choices, int marked);
    QLayout* make_weekdays(entry::Weekdays weekdays);
    QLayout* make_range();
    QWidget* make_buttons();

    QButtonGroup* m_sources;
    QButtonGroup* m_whole;
    std::array<QCheckBox*, 7> m_weekdays; ///< from Sunday on
    QSpinBox* m_first;
    QSpinBox* m_last;
    QComboBox* m_first_band = nullptr;
    QComboBox* m_last_band = nullptr;
};

} // namespace ui
