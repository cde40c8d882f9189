#include "ui/masters/mst_kinjikan_page.h"

#include "base/literals.h"
#include "ui/grid/grid_view.h"
#include "ui/masters/day_line.h"
#include "ui/parts/field_box.h"
#include "ui/parts/page_parts.h"
#include "ui/parts/standing_line.h"

#include <QVBoxLayout>
#include <algorithm>

namespace ui {

using namespace base;

namespace {

constexpr int name_width = 320;

} // namespace

mst_kinjikan_page::mst_kinjikan_page(frame::Session& session, QWidget* parent)
    : MasterPage(session, {u"mst_kinjikan", masters::mst_kinjikan::caption}, MasterButtons::All, parent),
      m_form(session) {
    m_form.Form_Load();
    m_kinjikanmei = new FieldBox(
        FieldText::Words, {.Change = [this](const QString& text) { m_form.kinjikanmei_Change(text); }}, this);
    make_grids();
    make_editors();
    m_picture = new DayLine(this);
    m_kinjino = master_note(this);
    m_rules = standing_line("rules", u"すべての曜日に入れる", [this] { m_form.give_rules_to_all_days(); });
    m_notelab = master_note(this);
    m_notelab->setWordWrap(true);
    m_msglab = master_note(this);
    body()->addWidget(m_hyoulist);
    body()->addLayout(make_work(), 1);
    add_standing(m_form);
    add_foot(m_msglab);
    m_form.msglab_changed = [this] { show_at_once(*m_msglab, m_form.msglab); };
    refresh();
}

void mst_kinjikan_page::make_grids() {
    m_hyoulist = master_grid(m_form.hyoulist, CursorStyle::Row, "hyoulist", this);
    m_hyou_youbi = master_grid(m_form.hyou_youbi, CursorStyle::Cell, "hyou_youbi", this);
    m_hyou = master_grid(m_form.hyou, CursorStyle::Cell, "hyou", this);
    hold_width(*m_hyoulist);
    m_hyou_youbi->setFixedSize(m_hyou_youbi->full_width(false), m_hyou_youbi->full_height(false));
    connect_list(*m_hyoulist, [this](int row) { m_form.hyoulist_Click(row); });
    connect(m_hyou_youbi, &GridView::cell_clicked, this,
        [this] { act([this] { m_form.hyou_youbi_Click(m_form.hyou_youbi.Col()); }); });
    connect_sheet(*m_hyou, m_form);
}

void mst_kinjikan_page::make_editors() {
    EditorActs acts = editor_acts(m_form, [this](const QString& text) { m_form.atai_Change(text); });
    acts.KeyPress = masters::mst_kinjikan::atai_KeyPress;
    acts.Insert = masters::mst_kinjikan::atai_Insert;
    m_atai = new CellEditor(*m_hyou, m_form.atai, std::move(acts));
    for (int element = 0; element < 2; ++element)
        m_atai_com[element] = make_list(element);
}

ChoiceList* mst_kinjikan_page::make_list(int element) {
    return new ChoiceList(*m_hyou, m_form.atai_com[element],
        {.Click = [this, element](int item) { act([&] { m_form.atai_com_Click(element, item); }); },
            .KeyPress =
                [this, element](
                    int character) { return act([&] { return m_form.atai_com_KeyPress(element, character); }); },
            .LostFocus = [this, element] { act([&] { m_form.atai_com_LostFocus(element); }); }});
}

QLayout* mst_kinjikan_page::make_name_row() {
    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    row->addWidget(master_label(u"勤務タイプ名", this));
    m_kinjikanmei->setFixedWidth(name_width);
    row->addWidget(m_kinjikanmei);
    row->addWidget(m_kinjino);
    row->addStretch();
    return row;
}

QLayout* mst_kinjikan_page::make_work() {
    auto* column = new QVBoxLayout;
    column->setSpacing(10);
    column->addLayout(make_name_row());
    column->addWidget(m_hyou_youbi);
    column->addWidget(m_hyou);
    column->addWidget(m_picture);
    column->addWidget(m_rules);
    column->addWidget(m_notelab);
    column->addStretch();
    return column;
}

QStringList mst_kinjikan_page::category_names() const {
    QStringList names;
    for (int item = 0; item < m_form.atai_com[0].items.size(); ++item)
        names << m_form.atai_com[0].choice(item).name;
    return names;
}

QWidget* mst_kinjikan_page::control(masters::Focus wish) {
    if (wish.control == masters::Control::AtaiCom)
        return m_atai_com[wish.element];
    return m_atai;
}

void mst_kinjikan_page::show_form() {
    for (GridView* grid : {m_hyoulist, m_hyou_youbi, m_hyou})
        grid->refresh();
    m_kinjikanmei->show_text(m_form.kinjikanmei);
    m_kinjino->setText(m_form.kinjino);
    m_notelab->setText(m_form.notelab);
    const QString rules = m_form.rules_line();
    m_rules->say(rules, !rules.isEmpty());
    m_msglab->setText(m_form.msglab);
    m_picture->show_day(m_form.picture(), category_names());
    m_atai->refresh();
    for (ChoiceList* list : m_atai_com)
        list->refresh();
}

void mst_kinjikan_page::activate() {
    m_kinjikanmei->setFocus(Qt::OtherFocusReason);
}

/// The band grid is as large as all its columns fit beside the list of types.
void mst_kinjikan_page::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    const int room = width() - 2 * page_margin - m_hyoulist->width() - body()->spacing();
    fit_master_grid(*m_hyou, room);
    const int full = m_hyou->full_width(false);
    m_hyou->setFixedSize(std::min(full, room), m_hyou->full_height(full > room));
    m_picture->setFixedWidth(std::min(full, room));
    layout()->activate();
    show_form();
}

} // namespace ui
