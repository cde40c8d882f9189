#include "ui/masters/mst_kintype_page.h"

#include "ui/grid/grid_view.h"

namespace ui {

mst_kintype_page::mst_kintype_page(frame::Session& session, QWidget* parent)
    : MasterPage(session, {u"mst_kintype", masters::mst_kintype::caption}, MasterButtons::LeaveOnly, parent),
      m_form(session) {
    m_form.Form_Load();
    m_hyou = master_grid(m_form.hyou, CursorStyle::Cell, "hyou", this);
    m_atai_com = new ChoiceList(*m_hyou, m_form.atai_com,
        {.Click = [this](int item) { act([&] { m_form.atai_com_Click(item); }); },
            .KeyPress = {},
            .LostFocus = [this] { act([this] { m_form.atai_com_LostFocus(); }); }});
    show_only(*m_hyou, m_form);
    refresh();
}

void mst_kintype_page::show_form() {
    m_hyou->refresh();
    m_atai_com->refresh();
}

/// The keyboard stands on the first employee's type, so that Space or Enter opens the list there.
void mst_kintype_page::activate() {
    m_hyou->setFocus(Qt::OtherFocusReason);
}

} // namespace ui
