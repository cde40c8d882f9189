#pragma once

// The main frame as logic: which page a top button opens, what closes when, and how the program ends. At most one page
// is on view; a click on a top button closes what is open, without asking, and opens its page. The exit button alone
// asks, before anything closes.

#include "common/date_entry.h"
#include "frame/button.h"
#include "frame/month_in_hand.h"
#include "frame/pages.h"
#include "frame/session.h"
#include "frame/work_line.h"

#include <functional>
#include <span>

namespace frame {

/// The top buttons, `midasi` 1 to 5.
std::span<const Button> midasi_buttons();

class mainform {
public:
    /// `backup` runs last of all on closing. The frame starts with no page; Form_Load() brings the first one.
    mainform(Session session, Pages& pages, std::function<void()> backup = {});

    void Form_Load();
    /// By index of midasi_buttons(). The exit button asks first; if the person stays, everything is as it was.
    void midasi_Click(int index);

    /// Shows the landing page, unless this is a tailored installation. Every page calls it when it closes itself.
    void show_info();

    /// The frame is about to close: asks, unless the exit button has asked already, closes the pages and runs the
    /// backup. False if the person wants to stay; then everything is as it was.
    bool Form_QueryUnload();

    /// `stalab`: shows the state mark of the turn link.
    void show_link_state(const QString& mark);

    QString Tag;       ///< "end" once the exit button has asked
    QString gamenno;   ///< 画面番号: "0", or the index of the button after top button 2
    QString flab;      ///< the frame's status line, cleared on each click
    QString stalab;    ///< "●", "◎", "○" or empty
    QString mstkenflg; ///< not empty while the search popup is open
    int report_no = 0; ///< the report chosen on `rov_00`

    MonthInHand overview_at;                ///< where the month overview opens
    std::optional<MonthInHand> day_to_open; ///< where attendance entry opens once; nothing: as it opens by itself

    WorkLine work;                ///< long work of a page, in the status line
    common::DateEntry date_entry; ///< knows the date accepted last on any screen

    /// Called when a text of the frame has changed.
    std::function<void()> changed;

private:
    bool wants_to_end();
    void notify() const;

    Session m_session;
    Pages& m_pages;
    std::function<void()> m_backup;
};

} // namespace frame
