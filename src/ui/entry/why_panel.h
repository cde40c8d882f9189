#pragma once

// Why the day in hand has its figures, beside the sheet: a line of 24 or 48 hours with the weekday's bands and the
// stay, and below it the minutes in each band, the rules that gave the break and the sums that end in the cells'
// figures.

#include "entry/why.h"
#include "ui/parts/card.h"

class QLabel;

namespace ui {

class StayLine;

class WhyPanel : public Card {
    Q_OBJECT
public:
    static constexpr int least_width = 248; ///< pixels; narrower, its sums would be broken

    explicit WhyPanel(QWidget* parent);

    /// Shows the day of a row; that there is nothing to explain, where there isn't.
    void show_day(const entry::MonthSheet& sheet, int r);

private:
    QLabel* m_day;
    StayLine* m_line;
    QLabel* m_words;
};

} // namespace ui
