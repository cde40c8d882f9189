#pragma once

// The controls of attendance entry and where they lie: at the left the employee, the month, the list of employees and
// the buttons; at the right the month sheet over the count strip. Everything that stands beside the sheet stands in the
// left column, so that a whole month is in view on a low screen.

#include "entry/ent_rovena.h"
#include "ui/entry/function_bar.h"
#include "ui/entry/why_panel.h"
#include "ui/grid/cell_editor.h"
#include "ui/grid/grid_view.h"
#include "ui/parts/month_box.h"
#include "ui/parts/picture_button.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <array>
#include <span>

namespace ui {

struct ent_rovena_controls {
    /// Makes the controls as children of the page. `pictures` is the folder of the buttons' bitmaps.
    /// `acts` are those of the boxes of year and month.
    ent_rovena_controls(
        QWidget& page, entry::ent_rovena& form, const std::array<MonthActs, 2>& acts, const QString& pictures);

    /// Lays the controls into a page of this size. The sheets get the largest whole-pixel rows at which all of them is
    /// in view, never below their own size, and no more room than they fill; the list of employees grows with them.
    /// The width that is left beside the month goes to its remarks.
    /// The explanation of a day lies at the right of the sheets where that leaves them whole, else over the list.
    /// The function keys lie at the foot of the sheets, on a low screen below the left column.
    void lay_out(QSize page);

    QWidget* left; ///< the column beside the sheets
    GridView* hyou;
    GridView* hyou_day;
    GridView* hyou_syain;
    QLabel* syalab;
    QLabel* lab2;
    QLabel* msglab;
    std::array<MonthBox*, 2> ym;
    QButtonGroup* sortlist;
    QButtonGroup* kyuflg;
    std::array<PictureButton*, 2> botan; ///< 0 leaves the screen, 1 saves
    PictureButton* imghelp;
    QWidget* toubotan;    ///< takes the focus when a button is pressed, so that a cell in edit is committed
    QLabel* also_open;    ///< who else has the month open; hidden while nobody has
    QLabel* standing;     ///< how the month stands, and what was said of the last key
    QPushButton* give_up; ///< "入力を取り消す"
    QCheckBox* goes_on;
    QPushButton* torikomi; ///< the time recorder import
    QPushButton* jyougen;  ///< the limits of hours, breaks and leave
    FunctionBar* keys;
    WhyPanel* why; ///< out of sight unless asked for

private:
    void wrap_words();
    void fill_left_column();
    void place_keys(QSize page);
    void place_why(QSize page);
    void order_by_tab();
    QRect sheets_room(QSize page) const;
    void zoom_to(int row_height);
    bool fits(QSize page) const;
    bool keys_fit_at_foot(QSize page);
    bool why_fits_at_right(QSize page);
    void place_sheets(QRect room);

    bool m_keys_at_foot = false;
    bool m_why_at_right = false;
};

} // namespace ui
