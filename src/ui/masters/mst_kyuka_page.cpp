#include "ui/masters/mst_kyuka_page.h"

#include "ui/parts/radio_group.h"

namespace ui {

mst_kyuka_page::mst_kyuka_page(frame::Session& session, QWidget* parent)
    : FieldPage(session, {u"mst_kyuka", masters::mst_kyuka::caption}, parent), m_form(session),
      m_ch_hyou(new QCheckBox(masters::mst_kyuka::ch_hyou_caption.toString(), this)) {
    m_form.Form_Load();
    auto* above = new QHBoxLayout;
    above->addWidget(master_label(masters::mst_kyuka::list_label, this));
    add_list(above, [this](int row) { m_form.hyou_Click(row); });
    add_box(masters::mst_kyuka::name_field, u"名　称", FieldText::Words,
        [this](int code) { return m_form.atai_KeyDown(code); });
    add_row(masters::mst_kyuka::list_label, make_classes());
    add_row(masters::mst_kyuka::ch_hyou_label, make_mark());
    set_toubotan_key([this](int code) { return m_form.toubotan_KeyDown(code); });
    close_fields();
    refresh();
}

QLayout* mst_kyuka_page::make_classes() {
    m_Op_kyusyu = radio_group(*this, masters::mst_kyuka::Op_kyusyu_captions);
    connect(m_Op_kyusyu, &QButtonGroup::idClicked, this,
        [this](int element) { act([&] { m_form.Op_kyusyu_Click(element); }); });
    return in_a_row(*m_Op_kyusyu);
}

QLayout* mst_kyuka_page::make_mark() {
    auto* row = new QHBoxLayout;
    row->addWidget(m_ch_hyou);
    row->addStretch();
    connect(m_ch_hyou, &QCheckBox::clicked, this, [this](bool ticked) { act([&] { m_form.ch_hyou_Click(ticked); }); });
    return row;
}

void mst_kyuka_page::show_form() {
    FieldPage::show_form();
    m_Op_kyusyu->button(m_form.Op_kyusyu)->setChecked(true);
    m_ch_hyou->setChecked(m_form.ch_hyou);
}

} // namespace ui
