#include "ui/masters/master_page.h"

#include "base/literals.h"
#include "frame/help.h"
#include "ui/grid/grid_view.h"
#include "ui/parts/colours.h"
#include "ui/parts/moment_note.h"
#include "ui/parts/standing_line.h"
#include "ui/parts/style.h"

#include <QShowEvent>
#include <algorithm>
#include <utility>

namespace ui {

using namespace base;

namespace {

constexpr int row_height = 22; ///< pixels

constexpr frame::Button botan_buttons[] = {
    frame::endbotan,
    {1, u"登録", u"zen_tour.BMP", u"zen_tour_b.BMP"},
    {2, u"削除", u"zen_saku.BMP", u"zen_saku_b.BMP"},
};
constexpr int order_at_foot[] = {1, 2, 0};

/// Its place stands also while it is out of sight.
QLabel* unregistered_legend(QWidget* parent) {
    auto* legend =
        new QLabel(u"<span style='color:%1'>●</span> 未登録"_s.arg(QColor::fromRgb(colours::waiting).name()), parent);
    letter(*legend, Lettering::Quiet);
    legend->setObjectName("unregistered");
    QSizePolicy policy = legend->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    legend->setSizePolicy(policy);
    return legend;
}

} // namespace

MasterPage::MasterPage(frame::Session& session, MasterName name, MasterButtons buttons, QWidget* parent)
    : Acting(parent), m_session(session), m_name(name), m_buttons(buttons), m_toubotan(new QWidget(this)),
      m_body(new QHBoxLayout), m_parts(lay_parts(*this)), m_said(long_note("said", this)),
      m_note(new MomentNote(*this)) {
    setWindowTitle(name.caption.toString());
    m_toubotan->setObjectName("toubotan");
    m_toubotan->setFocusPolicy(Qt::ClickFocus);
    m_toubotan->setFixedSize(1, 1);

    m_parts.head->addWidget(page_heading(name.caption, this));
    m_parts.body->addLayout(m_body);
    m_body->setSpacing(2 * page_gap);
}

void MasterPage::add_foot(QWidget* behind) {
    for (const int element : order_at_foot)
        if (element < static_cast<int>(m_buttons))
            m_parts.foot->addWidget(make_button(element));
    m_parts.foot->addWidget(make_help_button());
    if (m_unregistered)
        m_parts.foot->addWidget(m_unregistered);
    if (behind)
        m_parts.foot->addWidget(behind);
    m_parts.foot->addWidget(m_said, 1);
}

void MasterPage::say(const QString& words, const QWidget& beside, QRect place) {
    m_said->setText(words);
    m_note->say(words, beside, place);
}

void MasterPage::add_standing(masters::MasterScreen& form) {
    m_form = &form;
    m_deletions = standing_line("deletions", u"元に戻す", [&form] { form.undo_deletion(); });
    m_parts.body->addWidget(m_deletions);
    m_unregistered = unregistered_legend(this);
}

StandingLine* MasterPage::standing_line(
    const char* name, QStringView button, const std::function<void()>& act_of_form) {
    auto* line = new StandingLine(button, this);
    line->setObjectName(name);
    connect(line->button(), &QPushButton::clicked, this, [this, act_of_form] { press_after_leaving(act_of_form); });
    return line;
}

PictureButton* MasterPage::make_button(int element) {
    m_botan[element] = new PictureButton(frame::picture_folder(m_session.settings), botan_buttons[element], this);
    connect(m_botan[element], &PictureButton::clicked, this, [this, element] { press(element); });
    return m_botan[element];
}

PictureButton* MasterPage::make_help_button() {
    auto* button = new PictureButton(frame::picture_folder(m_session.settings), frame::help_button, this);
    connect(button, &PictureButton::clicked, this,
        [this] { frame::ヘルプ表示(m_session.settings, m_session.host, m_name.form.toString()); });
    return button;
}

/// What lies over a cell follows it.
void MasterPage::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    show_form();
}

void MasterPage::refresh() {
    if (m_form)
        show_standing();
    show_form();
    const auto wish = std::exchange(screen().focus, std::nullopt);
    if (wish)
        (wish->control == masters::Control::Toubotan ? m_toubotan : control(*wish))->setFocus(Qt::OtherFocusReason);
}

void MasterPage::show_standing() {
    m_unregistered->setVisible(m_form->mark_unregistered());
    m_deletions->say(m_form->deletions.line(), m_form->deletions.can_undo());
}

/// A window that comes back from the task bar goes on where it was left.
void MasterPage::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous())
        activate();
}

/// The cell in edit is left before the hidden box takes the keyboard: one that can't be saved keeps it, and the page
/// stays.
void MasterPage::press_after_leaving(const std::function<void()>& act_of_form) {
    act([this] { screen().leave_cell(); });
    m_toubotan->setFocus();
    act(act_of_form);
}

void MasterPage::press(int element) {
    press_after_leaving([&] { screen().botan_Click(element); });
    if (screen().close_wanted)
        Q_EMIT close_wanted();
}

EditorActs MasterPage::editor_acts(masters::EditorScreen& form, std::function<void(const QString&)> change) {
    return {
        .KeyDown = [this, &form](int key_code) { return act([&] { return form.atai_KeyDown(key_code); }); },
        .KeyPress = [](int) { return true; },
        .Insert = [](const QString& text) { return text; },
        .Change = [this, change = std::move(change)](const QString& text) { act([&] { change(text); }); },
        .LostFocus = [this, &form] { act([&form] { form.atai_LostFocus(); }); },
    };
}

void MasterPage::connect_sheet(GridView& view, masters::GridScreen& form) {
    const auto clicked = [this, &form] { act([&] { form.hyou_Click({form.hyou.Row(), form.hyou.Col()}); }); };
    connect(&view, &GridView::cell_clicked, this, clicked);
    connect(&view, &GridView::edge_clicked, this, clicked);
    connect(&view, &GridView::scrolled, this, [this, &view, &form] {
        form.hyou_Scroll(form.hyou.TopRow(), form.hyou.LeftCol(), view.view_width(), view.view_height());
        show_form();
    });
}

void MasterPage::show_only(GridView& view, masters::GridScreen& form) {
    connect_sheet(view, form);
    hold_width(view);
    m_body->addWidget(&view);
    m_body->addStretch(1);
    add_foot();
}

void MasterPage::connect_list(GridView& view, std::function<void(int row)> choose) {
    connect(&view, &GridView::cell_clicked, this, [this, &view, choose] { act([&] { choose(view.sheet().Row()); }); });
    connect(&view, &GridView::edge_clicked, this, [this, choose] { act([&] { choose(0); }); });
}

GridView* master_grid(base::Sheet& sheet, CursorStyle style, const char* name, QWidget* parent) {
    auto* grid = new GridView(sheet, style, parent);
    grid->setObjectName(name);
    fit_master_grid(*grid, QWIDGETSIZE_MAX);
    return grid;
}

void fit_master_grid(GridView& grid, int room) {
    int height = row_height;
    grid.set_zoom(double(height) / grid.own_row_height());
    while (grid.full_width(true) > room && height > grid.own_row_height())
        grid.set_zoom(double(--height) / grid.own_row_height());
    grid.refresh();
}

void hold_width(GridView& grid) {
    grid.setFixedWidth(grid.full_width(true));
}

QLabel* master_label(QStringView text, QWidget* parent) {
    auto* label = new QLabel(text.toString(), parent);
    letter(*label, Lettering::Comment);
    return label;
}

QLabel* master_note(QWidget* parent) {
    auto* label = master_label({}, parent);
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, QColor::fromRgb(colours::quiet_text));
    label->setPalette(palette);
    return label;
}

QLabel* long_note(const char* name, QWidget* parent) {
    QLabel* label = master_note(parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    return label;
}

void show_long_note(QLabel& note, QString text) {
    constexpr QChar may_break_here = u'\u200b';
    for (const QChar separator : {u'/', u'\\'})
        text.replace(separator, QString(separator) + may_break_here);
    note.setText(text);
}

} // namespace ui
