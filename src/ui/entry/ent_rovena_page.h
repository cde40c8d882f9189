#pragma once

// The page of attendance entry: shows the form's state and passes the person's acts on. After every act it takes over
// all that the form says; nothing is decided here.

#include "frame/session.h"
#include "ui/entry/ent_rovena_controls.h"
#include "ui/parts/acting.h"

#include <QTimer>
#include <QWidget>
#include <functional>

namespace ui {

class LookPanel;
class MomentNote;

class ent_rovena_page : public Acting<QWidget> {
    Q_OBJECT
public:
    /// Loads the form. The session must outlive the page.
    explicit ent_rovena_page(frame::Session& session, QWidget* parent = nullptr);

    const entry::ent_rovena& form() const { return m_form; }
    const ent_rovena_controls& controls() const { return m_controls; }

    void open_day(const frame::MonthInHand& day);

    /// Commits the cell in edit; asks where what was typed can't be kept.
    bool may_close();

Q_SIGNALS:
    /// The person left the screen.
    void close_wanted();
    /// The person wants the time recorder import instead; what is typed lies in the draft.
    void import_wanted();
    /// The same for the limits of hours, breaks and leave.
    void limits_wanted();
    /// The person wants to see the month of all employees.
    void overview_wanted(const frame::MonthInHand& in_hand);

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    EditorActs editor_acts();
    bool type_key(int character);
    MonthActs month_acts(int element);
    void connect_lists();
    void connect_sheet();
    void connect_strip();
    void connect_buttons();
    void connect_keys();
    void press(int botan);
    void press_key(Qt::Key key);
    entry::RowRange row_in_hand() const;
    void save_by_key();
    void leave_for(void (ent_rovena_page::*other)());
    void ask_for_overview();
    void fill_days();
    bool paste_cells(const QString& text);
    bool may_save();
    bool take_answer(const LookPanel& panel);
    void ask_about_clashes();
    void without_input(const std::function<void()>& save);
    void settle_save();
    void give_up_draft();
    void follow_saved_days();

    using MonthOfEmployee = std::pair<QString, int>;
    MonthOfEmployee month_in_hand() const;
    void refresh() override;
    void show_month();
    void report();
    void show_standing();
    void show_also_open();
    void refresh_editors();
    void follow_focus_wish();
    QWidget* control(entry::EntryControl wanted) const;

    frame::Session& m_session;
    entry::ent_rovena m_form;
    ent_rovena_controls m_controls;
    CellEditor* m_atai;
    CellCombo* m_kyucom;
    MomentNote* m_note;
    QTimer m_on_their_way;                    ///< asks whether saved days have come into the tables
    std::optional<MonthOfEmployee> m_put_off; ///< employee and month whose decision was put off
    QTimer m_also_open;                       ///< asks who else has the month open
    MonthOfEmployee m_month_shown{};
    bool m_asking = false; ///< inside the panel of days that were changed elsewhere
};

} // namespace ui
