#include "ui/main_window.h"

#include "base/literals.h"
#include "ui/parts/page_parts.h"
#include "ui/parts/picture_button.h"
#include "ui/parts/style.h"
#include "ui/parts/work_bar.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QThread>
#include <QVBoxLayout>

namespace ui {

using namespace base;

namespace {

constexpr QRgb mainpic_back = qRgb(200, 200, 255);
constexpr QSize smallest(1020, 660);
constexpr QMargins band_air(10, 8, 16, 8);

/// Inside a wait or a question the program is in the middle of something, and the window has to stay.
bool in_the_middle_of_something() {
    return QThread::currentThread()->loopLevel() > 1;
}

QLabel* status(Lettering as, const QString& name, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setAccessibleName(name);
    letter(*label, as);
    return label;
}

} // namespace

MainWindow::MainWindow(frame::Session session, std::span<const PageRow> table, std::function<void()> backup)
    : m_session(session), m_pages(new PageArea(m_session, m_form, table, this)),
      m_form(session, *m_pages, std::move(backup)), m_work(new WorkBar(m_form.work, this)),
      m_flab(status(Lettering::Comment, u"状態"_s, this)), m_stalab(status(Lettering::Mark, u"サーバー接続"_s, this)) {
    setWindowTitle(u"就業録"_s);
    setWindowIcon(QIcon(frame::program_icon_path(session.settings)));
    setMinimumSize(smallest);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(no_margins);
    column->setSpacing(0);
    column->addWidget(make_band(frame::picture_folder(session.settings)));
    column->addWidget(m_pages, 1);
    m_form.changed = [this] { refresh(); };
    m_form.work.changed = [this] { show_work(); };
    m_form.work.take_input = [] { QCoreApplication::processEvents(); };
}

// The pages refer to the form, so they go before it.
MainWindow::~MainWindow() {
    delete m_pages;
}

QWidget* MainWindow::make_band(const QString& pictures) {
    auto* band = new QWidget(this);
    band->setAutoFillBackground(true);
    QPalette palette = band->palette();
    palette.setColor(QPalette::Window, QColor::fromRgb(mainpic_back));
    band->setPalette(palette);
    auto* line = new QHBoxLayout(band);
    line->setContentsMargins(band_air);
    line->setSpacing(8);
    for (const frame::Button& button : frame::midasi_buttons()) {
        auto* midasi = new PictureButton(pictures, button, band);
        connect(midasi, &PictureButton::clicked, this, [this, index = button.index] { m_form.midasi_Click(index); });
        line->addWidget(midasi);
        m_midasi << midasi;
    }
    line->addStretch(1);
    line->addWidget(m_work);
    line->addWidget(m_flab);
    line->addWidget(m_stalab);
    return band;
}

void MainWindow::refresh() {
    m_flab->setText(m_form.flab);
    m_stalab->setText(m_form.stalab);
}

/// While work runs, its cancel button is all that takes input.
void MainWindow::show_work() {
    const bool running = m_form.work.running();
    m_work->refresh();
    m_pages->setEnabled(!running);
    for (PictureButton* midasi : m_midasi)
        midasi->setEnabled(!running);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    const bool at_work = m_form.work.running() || in_the_middle_of_something();
    event->setAccepted(!at_work && m_form.Form_QueryUnload());
}

} // namespace ui
