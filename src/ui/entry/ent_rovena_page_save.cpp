// What the page of attendance entry asks around a save: what is off, whose day stands, and whether to wait for the
// turn.

#include "ui/entry/clash_panel.h"
#include "ui/entry/ent_rovena_page.h"
#include "ui/entry/look_panel.h"
#include "ui/entry/wait_panel.h"

#include <QScopeGuard>
#include <QScopedValueRollback>
#include <memory>

namespace ui {

/// What is off is told before anything is posted. Nothing off: nothing shown.
bool ent_rovena_page::may_save() {
    const QList<entry::Finding> found = m_form.look_before_saving();
    if (found.isEmpty())
        return true;
    LookPanel panel(
        m_form.sheet, found, m_form.kinds_left_out(), [this] { return m_form.export_days_not_read_back(); }, this);
    panel.exec();
    return take_answer(panel);
}

bool ent_rovena_page::take_answer(const LookPanel& panel) {
    m_form.leave_out(panel.left_out());
    if (panel.asks_no_more_for_month())
        m_form.ask_no_more_for_month();
    if (const auto day = panel.day_to_go_to())
        act([&] { m_form.hyou_Click({*day, entry::col::clock_in}); });
    if (panel.answer() == LookPanel::Answer::CalculateAndSave)
        act([this] { m_form.calculate_all(); });
    return panel.answer() != LookPanel::Answer::Back;
}

ent_rovena_page::MonthOfEmployee ent_rovena_page::month_in_hand() const {
    return {m_form.syainsyscd, m_form.sheet.month.month_key()};
}

/// Who puts the decision off is asked again on coming back to the month.
void ent_rovena_page::ask_about_clashes() {
    const auto month = month_in_hand();
    if (m_put_off != month)
        m_put_off.reset();
    if (m_asking || m_put_off || m_form.clashes().isEmpty())
        return;
    const QScopedValueRollback asking(m_asking, true);
    ClashPanel panel(m_form.sheet, m_form.clashes(), ClashPanel::Occasion::Draft, this);
    if (panel.exec() != QDialog::Accepted) {
        m_put_off = month;
        return;
    }
    act([&] {
        for (const auto choice : panel.choices())
            m_form.decide(0, choice);
    });
}

/// While the form saves it may give the interface time.
void ent_rovena_page::without_input(const std::function<void()>& save) {
    setEnabled(false);
    const auto open_again = qScopeGuard([this] {
        setEnabled(true);
        m_controls.toubotan->setFocus();
    });
    std::unique_ptr<WaitPanel> panel; // most turns come at once
    const auto show_wait = [&](const frame::TurnLink::Waiting& wait) {
        if (!panel)
            panel = std::make_unique<WaitPanel>(window());
        return panel->show_wait(wait);
    };
    const QScopedValueRollback<std::function<bool(const frame::TurnLink::Waiting&)>> told_of_the_turn(
        m_session.link.on_waiting, show_wait);
    const QScopedValueRollback<std::function<void()>> told_of_its_end(m_session.link.on_waited, [&] { panel.reset(); });
    act(save);
}

/// Others may save again while the person decides; then their days are asked about.
void ent_rovena_page::settle_save() {
    const QScopedValueRollback asking(m_asking, true);
    while (!m_form.clashes_of_save().isEmpty()) {
        ClashPanel panel(m_form.sheet, m_form.clashes_of_save(), ClashPanel::Occasion::Save, this);
        if (panel.exec() != QDialog::Accepted)
            return;
        without_input([&] { m_form.settle_and_save(panel.choices()); });
    }
}

} // namespace ui
