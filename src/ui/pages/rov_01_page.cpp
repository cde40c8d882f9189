#include "ui/pages/rov_01_page.h"

#include "base/literals.h"
#include "frame/help.h"
#include "ui/masters/master_page.h"
#include "ui/pages/ken_mst_dialog.h"
#include "ui/paper/print_preview.h"
#include "ui/parts/moment_note.h"
#include "ui/parts/page_parts.h"

#include <QLabel>
#include <QMouseEvent>
#include <QScopeGuard>
#include <utility>

namespace ui {

using namespace base;

namespace {

constexpr frame::Button botan_buttons[] = {
    frame::endbotan,
    {1, u"抽出", u"zen_chu.BMP", u"zen_chu_b.BMP"},
    {2, u"印刷", u"zen_print.BMP", u"zen_print_b.BMP"},
};
constexpr frame::Button preview_button{0, u"プレビュー", u"zen_prev.BMP", u"zen_prev_b.BMP"};
constexpr frame::Button csvex_button{0, u"ファイル作成", u"zen_file.BMP", u"zen_file_b.BMP"};

} // namespace

// The conditions come first, so that Tab comes to them first.
rov_01_page::rov_01_page(frame::Session& session, frame::mainform& main_form, QWidget* parent)
    : Acting(parent), m_session(session), m_mainform(main_form), m_shop(session),
      m_form(session, main_form, m_shop, windows()),
      m_conditions(new rov_01_conditions(
          m_form, [this](const auto& of_the_person) { act(of_the_person); }, this)),
      m_Image1(new QLabel(this)), m_chulab(master_note(this)), m_pic_msg(new QWidget(this)),
      m_hyou(master_grid(m_form.report.hyou, CursorStyle::Row, "hyou", this)),
      m_hyou_day(master_grid(m_form.report.hyou_day, CursorStyle::Cell, "hyou_day", this)),
      m_karibotan(new KeyStop({}, Qt::ClickFocus, this)), m_jyoulab(master_note(this)),
      m_msg_tai(long_note("msg_tai", this)), m_said(long_note("said", this)), m_note(new MomentNote(*this)) {
    setWindowTitle(reports::rov_01::caption.toString());
    m_form.Form_Load();
    const PageParts parts = lay_parts(*this);
    make_head(parts.head);
    parts.body->addWidget(m_conditions);
    make_sheets(parts.body);
    make_foot(parts.foot);
    m_form.jyoulab_changed = [this] { show_at_once(*m_jyoulab, m_form.jyoulab); };
    refresh();
}

rov_01_page::~rov_01_page() {
    close_search();
}

QWidget* rov_01_page::Image1() const {
    return m_Image1;
}

QWidget* rov_01_page::pic_msg() const {
    return m_pic_msg;
}

ken_mst_dialog* rov_01_page::search() const {
    return m_search;
}

void rov_01_page::make_head(QHBoxLayout* head) {
    m_Image1->installEventFilter(this);
    auto* row = new QHBoxLayout(m_pic_msg);
    row->setContentsMargins(no_margins);
    row->setSpacing(12);
    for (QLabel*& midasi : m_midasi)
        row->addWidget(midasi = master_label({}, m_pic_msg));
    head->addWidget(m_Image1);
    head->addWidget(m_chulab);
    head->addWidget(m_said, 1);
    m_said->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    head->addWidget(m_pic_msg);
}

void rov_01_page::make_sheets(QVBoxLayout* body) {
    body->addWidget(m_hyou, 1);
    body->addWidget(m_hyou_day);
    m_hyou_day->setVisible(m_form.report.hyou_day.Rows() > 0);
}

void rov_01_page::make_foot(QHBoxLayout* foot) {
    for (const int element : {1, 2}) {
        m_botan[element] = make_button(botan_buttons[element], [this, element] { m_form.botan_Click(element); });
        foot->addWidget(m_botan[element]);
    }
    foot->addWidget(m_preview = make_button(preview_button, [this] { m_form.preview_Click(); }));
    foot->addWidget(m_csvex = make_button(csvex_button, [this] { m_form.csvex_Click(); }));
    foot->addWidget(m_botan[0] = make_button(botan_buttons[0], [this] { m_form.botan_Click(0); }));
    foot->addWidget(make_button(frame::help_button,
        [this] { frame::ヘルプ表示(m_session.settings, m_session.host, u"rov_01"_s, m_form.report.帳票番号); }));
    foot->addWidget(m_karibotan);
    foot->addWidget(m_jyoulab);
    foot->addWidget(m_msg_tai, 1);
}

PictureButton* rov_01_page::make_button(const frame::Button& button, std::function<void()> on_press) {
    auto* made = new PictureButton(frame::picture_folder(m_session.settings), button, this);
    connect(made, &PictureButton::clicked, this, [this, on_press = std::move(on_press)] { press(on_press); });
    return made;
}

// The search for an employee.

reports::rov_01::Windows rov_01_page::windows() {
    return {[this](int mode, int element) { open_search(mode, element); },
        [this](const reports::Report& report) { ui::preview(report, m_session, m_shop, this); }};
}

void rov_01_page::open_search(int mode, int element) {
    close_search();
    m_search = マスター検索呼出(mode, m_session.settings, m_mainform.mstkenflg, this);
    connect(m_search, &ken_mst_dialog::ended, this, [this, element](const std::optional<QString>& number) {
        window()->activateWindow();
        act([&] { m_form.search_ended(element, number); });
    });
}

void rov_01_page::close_search() {
    delete m_search;
}

// Acts of the person.

/// The hidden stop takes the focus first, so that the box in hand is left.
void rov_01_page::press(const std::function<void()>& button) {
    m_karibotan->setFocus();
    act(button);
    if (m_form.close_wanted)
        Q_EMIT close_wanted();
}

bool rov_01_page::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_Image1 && event->type() == QEvent::MouseButtonRelease)
        act([this] { m_form.Image1_Click(); });
    return QWidget::eventFilter(watched, event);
}

void rov_01_page::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous())
        act([this] { m_form.Form_Activate(); });
}

void rov_01_page::hideEvent(QHideEvent* event) {
    if (!event->spontaneous())
        close_search();
    QWidget::hideEvent(event);
}

/// While work runs, the frame takes the page out of hand: the sheets aren't painted as they are filled, and nobody
/// changes what they are filled from.
void rov_01_page::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::EnabledChange)
        return;
    for (GridView* sheet : {m_hyou, m_hyou_day})
        sheet->setUpdatesEnabled(isEnabled());
    if (!isEnabled())
        close_search();
}

void rov_01_page::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    fit_sheets();
}

// Showing the form.

void rov_01_page::refresh() {
    m_conditions->refresh();
    show_texts();
    m_botan[1]->setDown(m_form.extract_lit);
    fit_sheets();
    follow_focus_wish();
    show_notice();
}

void rov_01_page::show_notice() {
    const auto& notice = m_form.notice;
    const QString words = notice ? notice->text : QString();
    m_said->setText(words);
    const QWidget* box = notice ? m_conditions->control(notice->place) : nullptr;
    m_note->say(words, box ? *box : *this);
}

void rov_01_page::show_texts() {
    if (m_form.Image1.isEmpty())
        m_Image1->setText(m_form.report.midasi[0]);
    else if (m_Image1->pixmap().isNull())
        m_Image1->setPixmap(load_picture(m_form.Image1));
    m_chulab->setText(m_form.report.chulab);
    m_pic_msg->setVisible(m_form.pic_msg);
    for (size_t i = 0; i < m_midasi.size(); ++i)
        m_midasi[i]->setText(m_form.report.midasi[i]);
    m_jyoulab->setText(m_form.jyoulab);
    show_long_note(*m_msg_tai, m_form.msg_tai);
}

void rov_01_page::fit_sheets() {
    for (GridView* sheet : {m_hyou, m_hyou_day})
        fit_master_grid(*sheet, m_hyou->width());
    const bool cut = m_hyou_day->full_width(false) > m_hyou->width();
    m_hyou_day->setFixedHeight(m_hyou_day->full_height(cut));
}

void rov_01_page::follow_focus_wish() {
    const auto wish = std::exchange(m_form.focus, std::nullopt);
    if (!wish)
        return;
    QWidget* control = m_conditions->control(*wish);
    (control ? control : m_karibotan)->setFocus(Qt::OtherFocusReason);
}

} // namespace ui
