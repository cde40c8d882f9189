#include "ui/pages/mst_kihon_page.h"

#include "base/literals.h"
#include "ui/pages/own_holidays_panel.h"
#include "ui/pages/printer_box.h"
#include "ui/parts/colours.h"
#include "ui/parts/panel.h"
#include "ui/parts/radio_group.h"

#include <QGridLayout>
#include <QPushButton>

namespace ui {

using namespace base;
using Form = setup::mst_kihon;

namespace {

constexpr int page_width = 760;
constexpr int label_width = 140;
constexpr int number_width = 72;
constexpr int printer_width = 360;

/// The rows of a panel: a label, and the controls behind it.
class Rows {
public:
    Rows(Panel& panel, QGridLayout* grid) : m_panel(panel), m_grid(grid) {
        grid->setColumnMinimumWidth(0, label_width);
        grid->setColumnStretch(1, 1);
        grid->setVerticalSpacing(10);
        panel.body()->addLayout(grid);
    }

    void add(QStringView label, QLayout* controls) {
        const int row = m_grid->rowCount();
        if (!label.isEmpty())
            m_grid->addWidget(master_label(label, &m_panel), row, 0);
        m_grid->addLayout(controls, row, 1);
    }

private:
    Panel& m_panel;
    QGridLayout* m_grid;
};

QHBoxLayout* in_a_row(std::initializer_list<QWidget*> controls) {
    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    for (QWidget* control : controls)
        row->addWidget(control);
    row->addStretch();
    return row;
}

/// What the person should see before registering.
QLabel* notice(QWidget* parent) {
    QLabel* label = master_label({}, parent);
    label->setMargin(4);
    label->setAutoFillBackground(true);
    QPalette palette = label->palette();
    palette.setColor(QPalette::Window, QColor::fromRgb(colours::notice));
    label->setPalette(palette);
    return label;
}

} // namespace

mst_kihon_page::mst_kihon_page(frame::Session& session, QWidget* parent)
    : MasterPage(session, {u"mst_kihon", Form::caption}, MasterButtons::LeaveAndRegister, parent), m_session(session),
      m_form(session), m_waseireki(radio_group(*this, Form::waseireki_captions)), m_msglab(master_note(this)) {
    m_form.Form_Load();
    auto* column = new QVBoxLayout;
    column->setSpacing(14);
    column->addWidget(make_shared());
    column->addWidget(make_of_this_pc());
    column->addStretch();
    body()->addLayout(column);
    body()->addStretch(1);
    add_foot(m_msglab);
    refresh();
    waseireki(m_form.waseireki)->setFocus();
}

QWidget* mst_kihon_page::make_shared() {
    auto* panel = new Panel(u"すべてのパソコンに共通"_s, this);
    panel->setFixedWidth(page_width);
    Rows rows(*panel, new QGridLayout);
    rows.add(u"日付の表示", make_waseireki());
    rows.add(Form::Tag[Form::first_day], in_a_row({make_atai(Form::first_day, Form::Tag[Form::first_day]),
                                             master_label(Form::first_day_notes[0], panel)}));
    rows.add({}, in_a_row({master_label(Form::first_day_notes[1], panel)}));
    rows.add({}, in_a_row({m_in_force = notice(panel)}));
    rows.add(setup::own_holidays::caption, in_a_row({make_own_holidays(panel)}));
    return panel;
}

QWidget* mst_kihon_page::make_of_this_pc() {
    auto* panel = new Panel(u"このパソコン"_s, this);
    panel->setFixedWidth(page_width);
    m_prconb = new PrinterBox([this](int item) { act([&] { m_form.prconb_Click(item); }); }, panel);
    m_prconb->setFixedWidth(printer_width);
    Rows rows(*panel, new QGridLayout);
    rows.add(u"プリンター", in_a_row({m_prconb}));
    rows.add(Form::offset_label, in_a_row({master_label(u"縦", panel), make_atai(Form::offset_y, u"印刷位置調整 縦"),
                                     master_label(u"横", panel), make_atai(Form::offset_x, u"印刷位置調整 横")}));
    rows.add({}, in_a_row({master_label(Form::offset_note, panel)}));
    m_ck = new QCheckBox(Form::ck_caption.toString(), panel);
    connect(m_ck, &QCheckBox::clicked, this, [this](bool ticked) { act([&] { m_form.ck_Click(ticked); }); });
    rows.add(u"お知らせ", in_a_row({m_ck}));
    return panel;
}

QLayout* mst_kihon_page::make_waseireki() {
    connect(m_waseireki, &QButtonGroup::idClicked, this,
        [this](int element) { act([&] { m_form.waseireki_Click(element); }); });
    return in_a_row(*m_waseireki);
}

/// Registers by itself: the button of the page has nothing to do with it.
QPushButton* mst_kihon_page::make_own_holidays(QWidget* parent) {
    auto* button = new QPushButton(u"休日を登録する…"_s, parent);
    connect(button, &QPushButton::clicked, this, [this] { OwnHolidaysPanel(m_session, this).exec(); });
    return button;
}

FieldBox* mst_kihon_page::make_atai(int element, QStringView name) {
    m_atai[element] = new FieldBox(FieldText::Number,
        {.Change = [this, element](const QString& typed) { act([&] { m_form.atai_Change(element, typed); }); },
            .KeyDown = [this, element](int code) { return act([&] { return m_form.atai_KeyDown(element, code); }); }},
        this);
    m_atai[element]->setFixedWidth(number_width);
    m_atai[element]->setAccessibleName(name.toString());
    return m_atai[element];
}

void mst_kihon_page::show_form() {
    m_waseireki->button(m_form.waseireki)->setChecked(true);
    m_ck->setChecked(m_form.ck);
    m_prconb->show_list(m_form.prconb, m_form.atai[Form::printer]);
    for (size_t element = 0; element < m_atai.size(); ++element)
        if (m_atai[element])
            m_atai[element]->show_text(m_form.atai[element]);
    const QString in_force = m_form.first_day_notice();
    m_in_force->setText(in_force);
    m_in_force->setVisible(!in_force.isEmpty());
    m_msglab->setText(m_form.msglab);
    const auto& said = m_form.notice;
    say(said ? said->text : QString(), *m_atai[said ? said->place : Form::first_day]);
}

} // namespace ui
