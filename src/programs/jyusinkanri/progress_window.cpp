#include "progress_window.h"

#include "base/literals.h"
#include "store/files.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QVBoxLayout>

using namespace base;

namespace {

constexpr QSize size_shown(320, 80);
constexpr QSize air(16, 48); ///< between the window and the corner: its frame lies there

/// Where it lies over as little as may be of what the person works on.
QPoint corner_of_screen() {
    const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
    return room.bottomRight() - QPoint(size_shown.width() + air.width(), size_shown.height() + air.height());
}

} // namespace

ProgressWindow::ProgressWindow() : m_text(u"勤務データを登録しています"_s) {
    setWindowTitle(store::manager_program.toString());
    setAttribute(Qt::WA_ShowWithoutActivating);
    setWindowFlag(Qt::WindowDoesNotAcceptFocus);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(&m_text);
    layout->addWidget(&m_bar);
    m_bar.setRange(0, 0); // how much there is to do isn't known
    m_bar.setTextVisible(false);
    setFixedSize(size_shown);
    move(corner_of_screen());
}

void ProgressWindow::show_rows(qint64 rows) {
    m_text.setText(u"勤務データを登録しています (%1件)"_s.arg(rows));
    QGuiApplication::processEvents();
}

void ProgressWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
}
