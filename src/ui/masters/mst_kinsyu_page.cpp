#include "ui/masters/mst_kinsyu_page.h"

#include "ui/grid/grid_view.h"

namespace ui {

mst_kinsyu_page::mst_kinsyu_page(frame::Session& session, QWidget* parent)
    : MasterPage(session, {u"mst_kinsyu", u"勤務種類"}, MasterButtons::All, parent), m_form(session) {
    m_form.Form_Load();
    m_hyou = master_grid(m_form.hyou, CursorStyle::Cell, "hyou", this);
    m_atai = new CellEditor(
        *m_hyou, m_form.atai, editor_acts(m_form, [this](const QString& text) { m_form.atai_Change(text); }));
    add_standing(m_form);
    show_only(*m_hyou, m_form);
    refresh();
}

void mst_kinsyu_page::show_form() {
    m_hyou->refresh();
    m_atai->refresh();
    const auto& notice = m_form.notice;
    say(notice ? notice->text : QString(), *m_hyou->viewport(),
        m_hyou->cell_rect(notice ? notice->place : base::Cell{}));
}

/// The box is out of sight then, its whole text selected as in any cell that is come to.
void mst_kinsyu_page::activate() {
    act([this] { m_form.Form_Activate(); });
    m_atai->selectAll();
}

} // namespace ui
