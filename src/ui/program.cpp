#include "ui/program.h"

#include "platform/file_error.h"
#include "ui/application.h"
#include "ui/splash.h"

#include <QScreen>

namespace ui {

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

} // namespace

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
        show(start_up(splash));
        return EXIT_SUCCESS;
    } catch (const store::Error& error) {
        return failed(error.text());
    } catch (const platform::FileError& error) {
        return failed(error.text());
    } catch (const std::exception& error) {
        return failed(QString::fromUtf8(error.what()));
    }
}

frame::Start Program::start_up(Splash& splash) {
    frame::stg stg(m_session, m_program_folder, [&] { splash.refresh(stg); });
    splash.show();
    return stg.Form_Activate();
}

void Program::show(frame::Start start) {
    if (start == frame::Start::fir_start)
        show_wizard();
    else if (start == frame::Start::mainform)
        show_window();
}

void Program::show_wizard() {
    m_wizard = std::make_unique<fir_start_window>(m_session, m_program_folder);
    m_wizard->adjustSize();
    m_wizard->move(m_wizard->screen()->availableGeometry().center() - m_wizard->rect().center());
    m_wizard->show();
}

void Program::show_window() {
    m_window = std::make_unique<MainWindow>(m_session);
    fit_to_screen(*m_window);
    m_window->form().Form_Load();
    m_window->show();
}

} // namespace ui
