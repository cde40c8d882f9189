#pragma once

// The page of attendance entry: shows the form's state and passes the person's acts on. After every act it takes over
// all that the form says; nothing is decided here.

#include "frame/session.h"
#include "ui/entry/ent_rovena_controls.h"
#include "ui/parts/acting.h"

#include <QWidget>

namespace ui {

class ent_rovena_page : public Acting<QWidget> {
    Q_OBJECT
public:
    /// Loads the form. The session must outlive the page.
    explicit ent_rovena_page(frame::Session& session, QWidget* parent = nullptr);

    const entry::ent_rovena& form() const { return m_form; }
    const ent_rovena_controls& controls() const { return m_controls; }

Q_SIGNALS:
    /// The person left the screen.
    void close_wanted();

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    EditorActs editor_acts();
    MonthActs month_acts(int element);
    void connect_lists();
    void connect_sheet();
    void connect_strip();
    void connect_buttons();
    void press(int botan);

    void refresh() override;
    void show_month();
    void report();
    void refresh_editors();
    void follow_focus_wish();

    frame::Session& m_session;
    entry::ent_rovena m_form;
    ent_rovena_controls m_controls;
    CellEditor* m_atai;
    CellCombo* m_kyucom;
};

} // namespace ui
