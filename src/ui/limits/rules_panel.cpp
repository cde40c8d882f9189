#include "ui/limits/rules_panel.h"

#include "base/literals.h"
#include "ui/parts/style.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSpinBox>

namespace ui {

using namespace base;

namespace {

constexpr QSize usual_size(980, 620);
constexpr int list_width = 330;
constexpr QStringView category_counts[]{u"数えない", u"時間外", u"休日労働"};
constexpr QStringView leave_counts[]{u"数えない", u"半日", u"1日"}; ///< by half days

QLabel* lettered(const QString& text, Lettering as, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    letter(*label, as);
    return label;
}

/// A line a row: its name, and a list of what it can count as.
void add_choices(QGridLayout& grid, const QString& heading, std::span<const QStringView> choices,
    const QList<limits::Named>& rows, const std::function<int(qint64)>& chosen,
    const std::function<void(qint64, int)>& choose) {
    QWidget* parent = grid.parentWidget();
    grid.addWidget(lettered(heading, Lettering::Section, parent), grid.rowCount(), 0, 1, 2);
    for (const limits::Named& row : rows) {
        auto* box = new QComboBox(parent);
        for (const QStringView choice : choices)
            box->addItem(choice.toString());
        box->setCurrentIndex(chosen(row.number));
        box->setAccessibleName(row.name);
        QObject::connect(
            box, &QComboBox::activated, box, [choose, number = row.number](int index) { choose(number, index); });
        const int line = grid.rowCount();
        grid.addWidget(new QLabel(row.name, parent), line, 0);
        grid.addWidget(box, line, 1);
    }
}

} // namespace

RulesPanel::RulesPanel(frame::Session& session, const limits::Look& look, QWidget* parent)
    : QDialog(parent), m_form(session, look.kept, look.countable) {
    setWindowTitle(limits::jyougen_kimari::caption.toString());
    resize(usual_size);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(24);
    columns->addWidget(make_figures(), 1);
    columns->addWidget(make_counted());
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(columns, 1);
    rows->addWidget(make_buttons());
    show_figures();
}

QWidget* RulesPanel::make_figures() {
    auto* figures = new QWidget(this);
    auto* grid = new QGridLayout(figures);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(5);
    grid->setColumnStretch(3, 1);
    grid->addWidget(lettered(u"上限（0 は調べません）"_s, Lettering::Section, figures), 0, 0, 1, 4);
    auto* special = new QCheckBox(u"36協定に特別条項がある"_s, figures);
    special->setChecked(m_form.rules.special);
    connect(special, &QCheckBox::toggled, this, [this](bool on) { m_form.rules.special = on; });
    grid->addWidget(special, grid->rowCount(), 0, 1, 4);
    for (int i = 0; i < limits::figure_count; ++i)
        add_figure(*grid, limits::Figure(i));
    grid->setRowStretch(grid->rowCount(), 1);
    return figures;
}

void RulesPanel::add_figure(QGridLayout& grid, limits::Figure figure) {
    const limits::FigureRow& row = limits::row_of(figure);
    auto* box = new QSpinBox(grid.parentWidget());
    box->setRange(row.least, row.most);
    box->setAccessibleName(row.caption.toString());
    connect(box, &QSpinBox::valueChanged, this,
        [this, figure](int value) { m_form.rules.figures[size_t(figure)] = value; });
    m_figures << box;
    const int line = grid.rowCount();
    grid.addWidget(new QLabel(row.caption.toString()), line, 0);
    grid.addWidget(box, line, 1);
    grid.addWidget(new QLabel(row.unit.toString()), line, 2);
    grid.addWidget(lettered(row.source.toString(), Lettering::Quiet, grid.parentWidget()), line, 3);
}

QWidget* RulesPanel::make_counted() {
    auto* list = new QWidget(this);
    auto* grid = new QGridLayout(list);
    grid->setColumnStretch(0, 1);
    limits::jyougen_kimari& form = m_form;
    add_choices(
        *grid, u"勤務種類"_s, category_counts, form.countable.categories,
        [&form](qint64 category) { return int(form.counts_as(category)); },
        [&form](qint64 category, int as) { form.count(category, limits::Counts(as)); });
    add_choices(
        *grid, u"年休として数える休暇"_s, leave_counts, form.countable.day_kinds,
        [&form](qint64 kind) { return form.half_days(kind); },
        [&form](qint64 kind, int half_days) { form.count_leave(kind, half_days); });
    grid->setRowStretch(grid->rowCount(), 1);
    auto* area = new QScrollArea(this);
    area->setFixedWidth(list_width);
    area->setWidgetResizable(true);
    area->setWidget(list);
    return area;
}

QWidget* RulesPanel::make_buttons() {
    auto* buttons = new QDialogButtonBox(this);
    const auto add = [&](const QString& caption, QDialogButtonBox::ButtonRole role) {
        auto* button = buttons->addButton(caption, role);
        button->setAutoDefault(false);
        return button;
    };
    add(u"登録"_s, QDialogButtonBox::AcceptRole);
    add(u"戻る"_s, QDialogButtonBox::RejectRole);
    connect(add(u"はじめの数値に戻す"_s, QDialogButtonBox::ResetRole), &QPushButton::clicked, this, [this] {
        m_form.take_usual_figures();
        show_figures();
    });
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        m_form.register_Click();
        accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

void RulesPanel::show_figures() {
    const auto figures = m_form.rules.figures;
    for (int i = 0; i < limits::figure_count; ++i)
        m_figures[i]->setValue(figures[size_t(i)]);
}

void RulesPanel::reject() {
    if (m_form.may_leave())
        QDialog::reject();
}

} // namespace ui
