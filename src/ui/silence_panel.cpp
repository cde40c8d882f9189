#include "ui/silence_panel.h"

#include "base/literals.h"
#include "store/silence.h"
#include "ui/parts/colours.h"

#include <QApplication>
#include <algorithm>

namespace ui {

using namespace base;

namespace {

constexpr int around = 14;

QWidget* window_in_hand() {
    if (QWidget* window = QApplication::activeModalWidget())
        return window;
    if (QWidget* window = QApplication::activeWindow())
        return window;
    const QWidgetList all = QApplication::topLevelWidgets();
    const auto shown = std::ranges::find_if(all, &QWidget::isVisible);
    return shown == all.end() ? nullptr : *shown;
}

} // namespace

SilencePanel::SilencePanel() {
    store::tell_silence({[this] { show(); }, [this] { delete m_label; }});
}

SilencePanel::~SilencePanel() {
    store::tell_silence({});
    delete m_label;
}

void SilencePanel::show() {
    QWidget* window = window_in_hand();
    if (!window || m_label)
        return;
    m_label = new QLabel(u"データサーバーの返事を待っています…"_s, window);
    m_label->setFrameShape(QFrame::Box);
    m_label->setMargin(around);
    m_label->setAutoFillBackground(true);
    QPalette palette = m_label->palette();
    palette.setColor(QPalette::Window, QColor::fromRgb(colours::notice));
    palette.setColor(QPalette::WindowText, QColor::fromRgb(colours::text));
    m_label->setPalette(palette);
    m_label->adjustSize();
    m_label->move(window->rect().center() - m_label->rect().center());
    m_label->show();
    m_label->repaint();
}

} // namespace ui
