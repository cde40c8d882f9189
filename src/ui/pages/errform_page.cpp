#include "ui/pages/errform_page.h"

#include "base/literals.h"
#include "frame/help.h"
#include "ui/masters/master_page.h"
#include "ui/parts/page_parts.h"

#include <QShowEvent>

namespace ui {

using namespace base;

namespace {

constexpr frame::Button botan_buttons[] = {
    frame::endbotan,
    {1, u"印刷", u"zen_print.BMP", u"zen_print_b.BMP"},
};

} // namespace

errform_page::errform_page(frame::Session& session, QWidget* parent)
    : Acting(parent), m_session(session), m_shop(session), m_form(session, m_shop),
      m_hyou(master_grid(m_form.hyou, CursorStyle::Row, "hyou", this)), m_msg_tai(long_note("msg_tai", this)) {
    setWindowTitle(reports::errform::caption.toString());
    const PageParts parts = lay_parts(*this);
    parts.head->addWidget(page_heading(reports::errform::caption, this));
    parts.body->addWidget(m_hyou);
    for (const int element : {1, 0}) {
        m_botan[element] = make_button(botan_buttons[element], [this, element] { press(element); });
        parts.foot->addWidget(m_botan[element]);
    }
    parts.foot->addWidget(make_button(
        frame::help_button, [this] { frame::ヘルプ表示(m_session.settings, m_session.host, u"errform"_s); }));
    parts.foot->addWidget(m_msg_tai, 1);
}

PictureButton* errform_page::make_button(const frame::Button& button, std::function<void()> on_press) {
    auto* made = new PictureButton(frame::picture_folder(m_session.settings), button, this);
    connect(made, &PictureButton::clicked, this, std::move(on_press));
    return made;
}

void errform_page::press(int element) {
    act([&] { m_form.botan_Click(element); });
    if (m_form.close_wanted)
        Q_EMIT close_wanted();
}

/// What has come meanwhile is there each time the page comes into view.
void errform_page::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (event->spontaneous())
        return;
    act([this] { m_form.Form_Load(); });
    m_hyou->setFocus();
}

void errform_page::refresh() {
    show_long_note(*m_msg_tai, m_form.msg_tai);
    m_hyou->refresh();
}

void errform_page::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_hyou->refresh();
}

} // namespace ui
