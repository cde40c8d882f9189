#include "ui/parts/work_bar.h"

#include "base/literals.h"
#include "ui/parts/page_parts.h"
#include "ui/parts/style.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QShortcut>

namespace ui {

using namespace base;

namespace {

constexpr int bar_width = 180;

} // namespace

WorkBar::WorkBar(frame::WorkLine& line, QWidget* parent)
    : QWidget(parent), m_line(line), m_what(new QLabel(this)), m_bar(new QProgressBar(this)),
      m_cancel(new QPushButton(u"中止"_s, this)) {
    letter(*m_what, Lettering::Comment);
    m_bar->setFixedWidth(bar_width);
    m_bar->setTextVisible(false);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, m_cancel, &QPushButton::click);
    connect(m_cancel, &QPushButton::clicked, this, [this] {
        m_line.cancel();
        m_cancel->setEnabled(false);
    });
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(no_margins);
    row->setSpacing(8);
    for (QWidget* part : {static_cast<QWidget*>(m_what), static_cast<QWidget*>(m_bar), static_cast<QWidget*>(m_cancel)})
        row->addWidget(part);
    hide();
}

void WorkBar::refresh() {
    const bool begins = m_line.running() && isHidden();
    m_what->setText(m_line.what());
    m_bar->setRange(0, m_line.percent() < 0 ? 0 : 100);
    m_bar->setValue(m_line.percent());
    setVisible(m_line.running());
    if (begins) {
        m_cancel->setEnabled(true);
        m_cancel->setFocus();
    }
}

} // namespace ui
