#include "ui/masters/field_page.h"

#include "ui/grid/grid_view.h"
#include "ui/parts/key_codes.h"

#include <QKeyEvent>
#include <QVBoxLayout>

namespace ui {

namespace {

constexpr int first_box = 1; ///< element 0 holds the number, which nobody types
constexpr int box_width = 360;

} // namespace

FieldPage::FieldPage(frame::Session& session, MasterName name, QWidget* parent)
    : MasterPage(session, name, MasterButtons::All, parent), m_fields(new QGridLayout) {
    m_fields->setHorizontalSpacing(14);
    m_fields->setVerticalSpacing(12);
    toubotan()->installEventFilter(this);
}

void FieldPage::add_list(QLayout* above, std::function<void(int row)> choose) {
    m_hyou = master_grid(form_of_fields().hyou, CursorStyle::Row, "hyou", this);
    hold_width(*m_hyou);
    connect_list(*m_hyou, std::move(choose));
    auto* column = new QVBoxLayout;
    column->setSpacing(6);
    column->addLayout(above);
    column->addWidget(m_hyou, 1);
    body()->addLayout(column);
}

void FieldPage::add_box(int element, QStringView label, FieldText text, Key key_down) {
    m_atai[element] = new FieldBox(text,
        {.Change = [this, element](
                       const QString& typed) { act([&] { form_of_fields().atai_Change(element, typed); }); },
            .KeyDown = [this, key_down = std::move(key_down)](int code) { return act([&] { return key_down(code); }); },
            .LostFocus = [this, element] { act([&] { form_of_fields().atai_LostFocus(element); }); }},
        this);
    m_atai[element]->setFixedWidth(box_width);
    m_atai[element]->setAccessibleName(label.toString());
    auto* controls = new QHBoxLayout;
    controls->addWidget(m_atai[element]);
    controls->addStretch();
    add_row(label, controls);
}

void FieldPage::add_row(QStringView label, QLayout* controls) {
    const int row = m_fields->rowCount();
    m_fields->addWidget(master_label(label, this), row, 0);
    m_fields->addLayout(controls, row, 1);
}

void FieldPage::close_fields() {
    auto* column = new QVBoxLayout;
    column->addLayout(m_fields);
    column->addStretch();
    body()->addSpacing(12);
    body()->addLayout(column);
    body()->addStretch(1);
    add_standing(form_of_fields());
    add_foot();
}

/// It is still called while the control is being destroyed.
bool FieldPage::eventFilter(QObject* watched, QEvent* event) {
    return watched == toubotan() ? toubotan_takes(event) : MasterPage::eventFilter(watched, event);
}

bool FieldPage::toubotan_takes(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const int code = key_code(static_cast<QKeyEvent*>(event)->key());
        return code != 0 && act([&] { return m_toubotan_key(code); });
    }
    if (event->type() == QEvent::FocusIn)
        act([this] { form_of_fields().toubotan_GotFocus(); });
    else if (event->type() == QEvent::FocusOut)
        act([this] { form_of_fields().toubotan_LostFocus(); });
    return false;
}

void FieldPage::show_form() {
    m_hyou->refresh();
    for (int element = first_box; element < static_cast<int>(m_atai.size()); ++element)
        if (m_atai[element])
            m_atai[element]->show_text(form_of_fields().atai[element]);
    botan(1)->setDown(form_of_fields().toubotan_lit);
}

void FieldPage::activate() {
    m_atai[first_box]->setFocus(Qt::OtherFocusReason);
}

} // namespace ui
