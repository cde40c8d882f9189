#include "ui/overview/ent_itiran_page.h"

#include "base/literals.h"
#include "frame/help.h"
#include "overview/overview_pages.h"
#include "ui/grid/grid_view.h"
#include "ui/overview/closing_panel.h"
#include "ui/overview/legend_line.h"
#include "ui/paper/print_preview.h"
#include "ui/parts/page_parts.h"
#include "ui/parts/style.h"

#include <QCheckBox>
#include <QPushButton>
#include <QScopeGuard>
#include <QShortcut>
#include <QSignalBlocker>
#include <utility>

namespace ui {

using namespace base;

namespace {

constexpr frame::Button print_button{0, u"印刷", u"zen_print.BMP", u"zen_print_b.BMP"};
constexpr frame::Button preview_button{0, u"プレビュー", u"zen_prev.BMP", u"zen_prev_b.BMP"};
constexpr frame::Button file_button{0, u"ファイル作成", u"zen_file.BMP", u"zen_file_b.BMP"};
constexpr std::chrono::milliseconds first_picture(50); ///< is painted before the look begins
constexpr std::chrono::milliseconds slice(40);         ///< of the look, in which no key is taken

} // namespace

ent_itiran_page::ent_itiran_page(frame::Session& session, frame::MonthInHand& in_hand, QWidget* parent)
    : Acting(parent), m_session(session), m_shop(session), m_form(session, in_hand),
      m_hyou(new GridView(m_form.hyou, CursorStyle::Cell, this)) {
    setWindowTitle(overview::ent_itiran::caption.toString());
    m_form.Form_Load();
    m_hyou->setObjectName("hyou");
    m_hyou->setAccessibleName(overview::ent_itiran::caption.toString());
    const PageParts parts = lay_parts(*this);
    parts.head->addWidget(page_heading(overview::ent_itiran::caption, this));
    parts.head->addStretch(1);
    parts.head->addWidget(make_month_row());
    parts.body->addWidget(make_standing_row());
    parts.body->addWidget(m_hyou, 1);
    make_foot(parts.foot);
    connect(m_hyou, &GridView::cell_clicked, this, [this] {
        act([this] { m_form.hyou_Click({m_form.hyou.Row(), m_form.hyou.Col()}); });
    });
    connect_keys();
    connect(&m_looking, &QTimer::timeout, this, &ent_itiran_page::look_on);
    refresh();
}

QPushButton* ent_itiran_page::make_button(const QString& caption, std::function<void()> on_press) {
    auto* button = new QPushButton(caption, this);
    button->setFocusPolicy(Qt::TabFocus);
    connect(button, &QPushButton::clicked, this, [this, on_press = std::move(on_press)] { act(on_press); });
    return button;
}

PictureButton* ent_itiran_page::make_picture(const frame::Button& button, std::function<void()> on_press) {
    auto* made = new PictureButton(frame::picture_folder(m_session.settings), button, this);
    connect(made, &PictureButton::clicked, this, [this, on_press = std::move(on_press)] { act(on_press); });
    return made;
}

QWidget* ent_itiran_page::make_month_row() {
    auto* row = new QWidget(this);
    auto* layout = row_in(row);
    layout->addWidget(m_only_off = new QCheckBox(u"確認が必要な社員だけ(&K)"_s, row));
    m_only_off->setFocusPolicy(Qt::TabFocus);
    connect(m_only_off, &QCheckBox::toggled, this, [this](bool on) { act([&] { m_form.set_only_off(on); }); });
    layout->addSpacing(2 * page_gap);
    layout->addWidget(make_button(u"前月 F7"_s, [this] { m_form.step_month(-1); }));
    layout->addWidget(m_month = new QLabel(row));
    letter(*m_month, Lettering::Section);
    m_month->setAlignment(Qt::AlignCenter);
    m_month->setMinimumWidth(m_month->fontMetrics().horizontalAdvance(u"0000年 00月"_s) + 2 * page_gap);
    layout->addWidget(make_button(u"次月 F8"_s, [this] { m_form.step_month(1); }));
    return row;
}

QWidget* ent_itiran_page::make_standing_row() {
    auto* row = new QWidget(this);
    auto* layout = row_in(row);
    layout->addWidget(m_standing = new QLabel(row), 1);
    m_standing->setObjectName("standing");
    layout->addWidget(new LegendLine(row));
    return row;
}

void ent_itiran_page::make_foot(QHBoxLayout* foot) {
    foot->addWidget(make_picture(print_button, [this] { m_form.print(m_shop); }));
    foot->addWidget(make_picture(preview_button, [this] { show_preview(); }));
    foot->addWidget(make_picture(file_button, [this] { m_form.write_file(); }));
    foot->addWidget(make_picture(frame::endbotan, [this] { m_form.botan_Click(0); }));
    foot->addWidget(make_picture(
        frame::help_button, [this] { frame::ヘルプ表示(m_session.settings, m_session.host, u"ent_itiran"_s); }));
    foot->addWidget(m_closing = make_button({}, [this] { open_closing(); }));
    foot->addWidget(m_msglab = new QLabel(this), 1);
    m_msglab->setObjectName("msglab");
}

void ent_itiran_page::connect_keys() {
    const std::pair<int, std::function<void()>> keys[] = {
        {Qt::Key_F7, [this] { m_form.step_month(-1); }},
        {Qt::Key_F8, [this] { m_form.step_month(1); }},
        {Qt::Key_F10, [this] { m_form.botan_Click(0); }},
        {Qt::Key_Escape, [this] { m_form.botan_Click(0); }},
    };
    for (const auto& [key, press] : keys)
        connect(new QShortcut(QKeySequence(key), this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut),
            &QShortcut::activated, this, [this, press] { act(press); });
}

void ent_itiran_page::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    m_hyou->show_cell({m_form.hyou.Row(), m_form.hyou.Col()});
    m_hyou->setFocus();
    m_looking.start(first_picture);
}

/// The picture changes with the last slice. One that fails is tried again after the next act, not at once.
void ent_itiran_page::look_on() {
    m_looking.stop();
    if (m_form.busy)
        return;
    m_form.look_on(slice);
    if (m_form.looking())
        show_standing();
    else
        refresh();
}

void ent_itiran_page::show_preview() {
    m_form.look_to_the_end();
    const auto pages =
        overview::overview_pages(m_form.hyou, {m_form.title(), m_form.standing}, m_session.host.now().date());
    if (preview_pages(pages, reports::Layout::WorkTime, m_session, this))
        m_form.print(m_shop);
}

void ent_itiran_page::open_closing() {
    m_form.look_to_the_end();
    ClosingPanel panel(m_form, this);
    panel.exec();
    if (panel.place())
        m_form.go_to(panel.place()->employee, panel.place()->row);
    else if (panel.answer() != ClosingPanel::Answer::Back)
        close_or_reopen(panel.answer() == ClosingPanel::Answer::Close);
}

void ent_itiran_page::close_or_reopen(bool close) {
    setEnabled(false);
    const auto open_again = qScopeGuard([this] {
        setEnabled(true);
        m_hyou->setFocus();
    });
    close ? m_form.close_month() : m_form.reopen_month();
}

void ent_itiran_page::refresh() {
    m_month->setText(m_form.month_text);
    {
        const QSignalBlocker quiet(m_only_off);
        m_only_off->setChecked(m_form.only_off);
    }
    m_closing->setText(m_form.is_closed() ? u"締めの内容(&S)..."_s : u"締め(&S)..."_s);
    m_msglab->setText(m_form.msglab);
    m_hyou->refresh();
    show_standing();
    if (const auto day = std::exchange(m_form.day_wanted, std::nullopt))
        Q_EMIT day_wanted(*day);
    else if (m_form.close_wanted)
        Q_EMIT close_wanted();
}

void ent_itiran_page::show_standing() {
    m_standing->setText(m_form.standing);
    if (m_form.looking() && isVisible())
        m_looking.start(0);
    else if (!m_form.looking())
        m_looking.stop();
}

} // namespace ui
