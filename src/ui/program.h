#pragma once

// Everything that one run of the desktop program owns: the settings, the settings tables, the turn link and the main
// window. The desktop is given to it, so that a test can run the same program over a desktop of its own.

#include "frame/settings.h"
#include "frame/turn_link.h"
#include "store/setting_tables.h"
#include "ui/main_window.h"

#include <memory>

namespace ui {

class Splash;

class Program {
public:
    /// `program_folder` is the folder that the program runs from. Nothing is read yet. QApplication must exist.
    Program(platform::Host& host, QString program_folder, quint16 turn_port = frame::turn_port);

    /// Start-up with its splash, up to the main window. Returns the exit status: 0 when the window is there, or when
    /// the person gave up on the share (see running()); 1 after an error, which has been told.
    int start();

    /// Whether the main window is there.
    bool running() const { return m_window != nullptr; }
    MainWindow& window() { return *m_window; }
    frame::Session& session() { return m_session; }

private:
    bool start_up(Splash& splash);
    frame::Settings expected_settings() const;
    void show_window();

    platform::Host& m_host;
    QString m_program_folder;
    frame::Settings m_settings;
    store::SettingTables m_tables;
    frame::TurnLink m_link;
    frame::Session m_session;
    std::unique_ptr<MainWindow> m_window;
};

} // namespace ui
