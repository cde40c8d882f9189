#pragma once

// `stg`, the start-up form: everything that happens before the main frame is shown, in one pass and in one order. It
// fixes where the data lies, reads the settings that all else consults, loads the era table, brings the shared files up
// to the running version and remakes the exchange files. Nothing here guards against a failing store: store::Error goes
// through to the caller, who says its text and ends the program.

#include "frame/session.h"
#include "platform/program_lock.h"

#include <functional>
#include <memory>

namespace frame {

/// What start-up ends with.
enum class Start {
    fir_start, ///< the first start of this product on this data: the wizard
    mainform,
    End, ///< the share can't be reached and the person gave up
};

/// Says on the shared data, as long as the lock lives, that a program works with it, so that no restore begins
/// meanwhile. std::runtime_error where a restore is at work.
std::unique_ptr<platform::ProgramLock> take_place(const base::Settings& settings);

class stg {
public:
    /// `program_folder` is the folder that the program runs from. `changed` is called when the splash shows something
    /// new, just before the interface gets time to paint it.
    stg(Session session, QString program_folder, std::function<void()> changed = {});

    /// The whole of start-up. `show` brings up what it ends with. A start that fails up to there isn't counted as the
    /// product's first, so that the wizard isn't missed.
    Start Form_Activate(const std::function<void(Start)>& show = {});

    /// The settings alone: where the data lies, what all else consults, and the eras. False if the share can't be
    /// reached and the person gave up.
    bool read_settings();

    QString Label1;              ///< "Ver." and the version
    bool Image1_Visible = false; ///< the splash picture

private:
    struct Account {
        QString user, password;
    };

    bool 起動時データー設定取得();
    Account read_settings_of_pc();
    bool connect_share(Account account);
    void read_shared_settings();
    void load_eras();
    void remake_exchange_files();
    void delete_news() const;
    void paint();

    Session m_session;
    base::Settings& m_settings;
    QString m_program_folder;
    std::function<void()> m_changed;
};

} // namespace frame
