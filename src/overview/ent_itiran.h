#pragma once

// ent_itiran, "月間一覧": a month of all employees in one picture, and closing it. The form reads the month as the
// tables hold it, which is what a page shows first, and then looks at the employees one by one for drafts and for what
// is off. It runs without a display; a page shows the state, passes the acts on and refreshes after each.
//
// For the page:
// - while looking() is true it calls look_on() again and again, with the interface running in between.
// - `day_wanted`: the person wants to see a day; the page closes and attendance entry opens there.
// - while `busy` the interface may be given time inside close_month(): take no input, don't destroy the form.

#include "frame/month_in_hand.h"
#include "overview/closing.h"
#include "reports/pages/print_surface.h"

namespace overview {

class ent_itiran {
public:
    static constexpr QStringView caption = u"月間一覧";

    /// Opens the month of `in_hand`, or that of today, with the cursor on its day. Both outlive the form.
    ent_itiran(frame::Session& session, frame::MonthInHand& in_hand);

    base::Sheet hyou;
    QString month_text; ///< "2026年11月"
    QString standing;   ///< how the month stands, and how many things are off
    QString msglab;     ///< how printing or writing a file ended
    bool only_off = false;
    bool busy = false;
    bool close_wanted = false;
    std::optional<frame::MonthInHand> day_wanted;

    void Form_Load();

    const base::CompanyMonth& month() const { return m_frame.month; }

    bool looking() const { return m_looks.size() < m_all.size(); }
    /// Looks at further employees for about this long; at one at least, while there are any.
    void look_on(std::chrono::milliseconds time);
    void look_to_the_end();

    void step_month(int by);
    void set_only_off(bool on); ///< kept for the next time that the page opens
    void hyou_Click(base::Cell cell);
    void go_to(base::EmployeeKey employee, int day_row); ///< total_row: the first day of the month

    void botan_Click(int element); ///< 0 leaves the screen

    // Paper and file: what is on the sheet.

    QString title() const; ///< "月間一覧  2026年 11月"
    void print(reports::PrintShop& shop);
    void write_file();

    // Closing.

    bool is_closed() const { return m_closed.has_value(); }
    QList<common::Closing> closings() const;
    QList<Told> against() const; ///< what stands against closing
    /// What differs from the sums at the last closing, in a month that was opened again, too; empty if it never was
    /// closed.
    const QList<Told>& changed() const { return m_changed; }
    void close_month(); ///< what keeps it from being closed is told
    void reopen_month();

private:
    void read_month();
    void draw_picture();
    void tell_standing();
    void after_the_look();
    QList<PictureRow> rows() const;
    QList<PictureRow> shown_rows() const;
    QDate day_in_hand() const;
    void cursor_to(base::EmployeeKey employee, QDate day);

    frame::Session& m_session;
    frame::MonthInHand& m_in_hand;
    Frame m_frame;
    QList<EmployeeMonth> m_all;
    QList<EmployeeLook> m_looks;                ///< of the first employees; of all once nothing is looked at any more
    QHash<base::EmployeeKey, QString> m_limits; ///< what is near or over a limit, in a word
    QList<qsizetype> m_shown;                   ///< the employees of the sheet's rows
    std::optional<common::Noted> m_closed;
    QList<Told> m_changed;
};

} // namespace overview
