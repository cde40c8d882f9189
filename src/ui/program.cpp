#include "ui/program.h"

#include "base/literals.h"
#include "entry/draft_store.h"
#include "frame/backup.h"
#include "frame/error_list.h"
#include "platform/file_error.h"
#include "platform/paths.h"
#include "store/files.h"
#include "store/key.h"
#include "ui/application.h"
#include "ui/pages/backup_panel.h"
#include "ui/parts/style.h"
#include "ui/splash.h"

#include <QApplication>
#include <QLabel>
#include <QPixmap>
#include <QScreen>

namespace ui {

using namespace base;

namespace {

constexpr QSize wanted_size(1366, 768);

bool holds(QSize room, QSize size) {
    return size.boundedTo(room) == size;
}

/// A screen hardly larger than the window is given to the window as a whole.
void fit_to_screen(QWidget& window) {
    constexpr QSize window_frame(40, 60);
    const QSize room = window.screen()->availableSize();
    window.resize(wanted_size.boundedTo(room).expandedTo(window.minimumSize()));
    if (holds(room, window.minimumSize()) && !holds(room, wanted_size + window_frame))
        window.setWindowState(Qt::WindowMaximized);
}

/// The settings with the root of this PC that will be found unless it was set up otherwise.
base::Settings expected_settings(const QString& program_folder) {
    base::Settings expected;
    expected.local_root = platform::install_root(platform::install_drive(program_folder));
    return expected;
}

/// Qt keeps a font that it has found for the next text in it.
void find_fonts_ahead() {
    for (const Lettering lettering : {Lettering::Heading, Lettering::Comment, Lettering::Mark}) {
        QLabel label(u"就業録"_s);
        letter(label, lettering);
        label.sizeHint();
    }
}

/// Qt keeps a picture that it has read for the next one that asks for it. What isn't there is told by that one.
void read_pictures_ahead(const base::Settings& settings) {
    const QPixmap splash(frame::splash_path(settings));
    const QString folder = frame::picture_folder(settings);
    for (const frame::Button& button : frame::midasi_buttons())
        const QPixmap read(folder + button.up.toString());
}

} // namespace

std::jthread derive_key_ahead(const QString& program_folder) {
    return store::derive_ahead(store::losys_path(expected_settings(program_folder)));
}

void leave_dumps(const QString& program_folder) {
    frame::leave_dumps(expected_settings(program_folder));
}

Program::Program(platform::Host& host, QString program_folder, quint16 turn_port)
    : m_host(host), m_program_folder(std::move(program_folder)), m_tables(m_settings),
      m_link(
          m_settings, host,
          [this](const QString& mark) {
              if (m_window)
                  m_window->form().show_link_state(mark);
          },
          turn_port),
      m_session{m_settings, host, m_tables, m_link} {}

int Program::start() {
    const auto failed = [this](const QString& text) {
        m_window.reset();
        m_wizard.reset();
        m_host.tell(text, error_title.toString());
        return EXIT_FAILURE;
    };
    try {
        Splash splash(m_settings);
        start_up(splash);
        return EXIT_SUCCESS;
    } catch (const store::Error& error) {
        return failed(error.text());
    } catch (const platform::FileError& error) {
        return failed(error.text());
    } catch (const std::exception& error) {
        return failed(QString::fromUtf8(error.what()));
    }
}

void Program::start_up(Splash& splash) {
    frame::stg stg(m_session, m_program_folder, [&] { splash.refresh(stg); });
    splash.show();
    // Start-up waits for the key; what needs no key is done before.
    find_fonts_ahead();
    read_pictures_ahead(expected_settings(m_program_folder));
    stg.Form_Activate([this](frame::Start start) {
        m_place = frame::take_place(m_settings);
        show(start);
    });
}

void Program::show(frame::Start start) {
    if (start == frame::Start::fir_start)
        show_wizard();
    else
        show_window();
}

void Program::show_wizard() {
    make_place();
    m_wizard = std::make_unique<Whole<fir_start_window>>(m_session, m_program_folder);
    m_wizard->adjustSize();
    m_wizard->move(m_wizard->screen()->availableGeometry().center() - m_wizard->rect().center());
    m_wizard->show();
}

void Program::show_window() {
    m_window = std::make_unique<MainWindow>(m_session, page_table(), [this] { back_up(); });
    fit_to_screen(*m_window);
    m_window->form().Form_Load();
    m_window->form().flab = entry::waiting_words(m_settings);
    m_window->form().changed();
    m_window->show();
}

void Program::come_up() {
    QWidget* window = QApplication::activeModalWidget();
    if (window == nullptr)
        window = m_window.get();
    if (m_window && m_window->isMinimized())
        m_window->setWindowState(m_window->windowState() & ~Qt::WindowMinimized);
    if (window == nullptr)
        return; // it is about to come
    window->raise();
    window->activateWindow();
}

void Program::make_place() const {
    if (makes_place)
        makes_place();
}

void Program::back_up() {
    make_place();
    BackupPanel panel(*m_window);
    frame::バックアップ処理(
        m_settings, m_host, [&](const QString& text, frame::StepsDone steps) { panel.show_step(text, steps); });
}

} // namespace ui
