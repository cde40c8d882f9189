#include "progress_window.h"

#include "base/literals.h"
#include "store/files.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QVBoxLayout>

using namespace base;

ProgressWindow::ProgressWindow() : m_text(u"勤務データを登録しています"_s) {
    setWindowTitle(store::manager_program.toString());
    setAttribute(Qt::WA_ShowWithoutActivating);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(&m_text);
    layout->addWidget(&m_bar);
    m_bar.setRange(0, 0); // how much there is to do isn't known
    m_bar.setTextVisible(false);
    setFixedSize(320, 80);
}

void ProgressWindow::show_rows(qint64 rows) {
    m_text.setText(u"勤務データを登録しています (%1件)"_s.arg(rows));
    QCoreApplication::processEvents();
}

void ProgressWindow::closeEvent(QCloseEvent* event) {
    event->ignore();
}
