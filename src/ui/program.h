#pragma once

// Everything that one run of the desktop program owns: the settings, the settings tables, the turn link and the window:
// on the first start of the product on its data the wizard, on every later one the main frame. The desktop is given to
// it, so that a test can run the same program over a desktop of its own.

#include "base/settings.h"
#include "frame/startup.h"
#include "frame/turn_link.h"
#include "platform/program_lock.h"
#include "store/setting_tables.h"
#include "ui/main_window.h"
#include "ui/pages/fir_start_window.h"
#include "ui/silence_panel.h"

#include <functional>
#include <memory>
#include <thread>

namespace ui {

class Splash;

/// Begins to derive the key of the databases that the program in this folder will open, on a thread of its own. It
/// takes as long as Qt's own start, so main() calls this first of all, before QApplication exists.
[[nodiscard]] std::jthread derive_key_ahead(const QString& program_folder);

/// A crash leaves its dump in the tree of a program that runs from there, also before that has read its settings.
void leave_dumps(const QString& program_folder);

class Program {
public:
    /// `program_folder` is the folder that the program runs from. Nothing is read yet. QApplication must exist.
    Program(platform::Host& host, QString program_folder, quint16 turn_port = frame::turn_port);

    /// Start-up with its splash, up to the window. Returns the exit status: 0 when a window is there, or when the
    /// person gave up on the share (see running()); 1 after an error, which has been told.
    int start();

    /// Whether a window is there: the main frame or the wizard.
    bool running() const { return m_window || m_wizard; }
    MainWindow& window() { return *m_window; }                  ///< only while running() without a wizard
    fir_start_window* wizard() const { return m_wizard.get(); } ///< null but on the first start
    frame::Session& session() { return m_session; }

    /// Brings what the person has to see before all other windows: the window, or the box that it waits for.
    void come_up();

    /// Called once a later start has to go on by itself: the wizard starts the program anew, and who leaves doesn't
    /// come back.
    std::function<void()> makes_place;

private:
    void start_up(Splash& splash);
    void take_place();
    void make_place() const;
    void back_up();
    void show(frame::Start start);
    void show_wizard();
    void show_window();

    platform::Host& m_host;
    QString m_program_folder;
    base::Settings m_settings;
    store::SettingTables m_tables;
    frame::TurnLink m_link;
    frame::Session m_session;
    SilencePanel m_silence;
    std::unique_ptr<platform::ProgramLock> m_place; ///< says on the shared folder that a program runs
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<fir_start_window> m_wizard;
};

} // namespace ui
