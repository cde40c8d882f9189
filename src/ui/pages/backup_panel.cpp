#include "ui/pages/backup_panel.h"

#include "ui/parts/colours.h"
#include "ui/parts/style.h"

#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>

namespace ui {

namespace {

constexpr QSize panel_size(420, 96);
constexpr QMargins air(24, 16, 24, 20);

} // namespace

BackupPanel::BackupPanel(QWidget& window) : QFrame(&window), m_text(new QLabel(this)), m_bar(new QProgressBar(this)) {
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    QPalette ground = palette();
    ground.setColor(QPalette::Window, QColor::fromRgb(colours::ground));
    ground.setColor(QPalette::WindowText, QColor::fromRgb(colours::heading_line));
    setPalette(ground);
    letter(*m_text, Lettering::Section);
    m_bar->setTextVisible(false);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(air);
    column->addWidget(m_text);
    column->addWidget(m_bar);
    resize(panel_size);
    move(window.rect().center() - rect().center());
}

void BackupPanel::show_step(const QString& text, frame::StepsDone steps) {
    m_text->setText(text);
    m_bar->setRange(0, steps.of);
    m_bar->setValue(steps.done);
    show();
    raise();
}

} // namespace ui
