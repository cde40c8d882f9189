#include "ui/masters/mst_syain_page.h"

#include "ui/parts/radio_group.h"

#include <QPushButton>

namespace ui {

namespace {

struct Box {
    int element;
    QStringView label;
    FieldText text;
};

constexpr Box boxes[] = {
    {masters::mst_syain::number_field, u"社員番号", FieldText::Number},
    {masters::mst_syain::name_field, u"社員名", FieldText::Words},
    {masters::mst_syain::reading_field, u"フリガナ", FieldText::Words},
};

} // namespace

mst_syain_page::mst_syain_page(frame::Session& session, QWidget* parent)
    : FieldPage(session, {u"mst_syain", masters::mst_syain::caption}, parent), m_form(session),
      m_sortlist(radio_group(*this, masters::mst_syain::sortlist_captions)) {
    m_form.Form_Load();
    add_list(make_order_row(), [this](int row) { m_form.hyou_Click(row); });
    for (const Box& box : boxes)
        add_box(box.element, box.label, box.text,
            [this, element = box.element](int code) { return m_form.atai_KeyDown(element, code); });
    set_toubotan_key([this](int code) { return m_form.toubotan_KeyDown(code); });
    close_fields();
    refresh();
}

QLayout* mst_syain_page::make_order_row() {
    auto* row = in_a_row(*m_sortlist);
    auto* extract = new QPushButton(masters::mst_syain::Command1_caption.toString(), this);
    extract->setAutoDefault(false);
    row->addWidget(extract);
    connect(m_sortlist, &QButtonGroup::idClicked, this,
        [this](int element) { act([&] { m_form.sortlist_Click(element); }); });
    connect(extract, &QPushButton::clicked, this, [this] { act([this] { m_form.Command1_Click(); }); });
    return row;
}

void mst_syain_page::show_form() {
    FieldPage::show_form();
    say(m_form.notice, *atai(masters::mst_syain::number_field));
    m_sortlist->button(m_form.sortlist)->setChecked(true);
}

} // namespace ui
