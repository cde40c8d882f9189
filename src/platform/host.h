#pragma once

// Host: what stands for the desktop around the program. Everything that talks to a person, to the clock, to other
// programs or to the network share goes through it, so that every rule runs without a display. main() owns the one real
// Host and passes it by reference; tests use a fake with scripted answers and a clock that is set.

#include <QDateTime>
#include <QString>
#include <QStringList>
#include <chrono>
#include <optional>

namespace platform {

enum class Buttons { Ok, OkCancel, YesNo };
enum class Answer { Ok, Cancel, Yes, No };

/// How the save-path dialog opens. Folder and result are in the platform's form.
struct SaveDialog {
    QString title;
    QString folder;
    QString extension; ///< without the dot
    QString filter;    ///< "CSV(*.csv)|*.csv": text and pattern parted by "|"
    QString name = {}; ///< proposed, with its extension; empty proposes none
};

/// How the dialog opens that asks for a file to read; as SaveDialog.
struct OpenDialog {
    QString title;
    QString folder;
    QString filter;
};

class Host {
public:
    virtual ~Host() = default;

    /// Shows a message box and waits for the person. Closing the box by other means counts as Cancel or No.
    virtual Answer ask(const QString& text, const QString& title, Buttons buttons) = 0;
    /// A message with an OK button only.
    void tell(const QString& text, const QString& title) { ask(text, title, Buttons::Ok); }
    /// A line of text from the person; nothing if cancelled.
    virtual std::optional<QString> input(const QString& prompt) = 0;
    /// The path to save to; nothing if cancelled.
    virtual std::optional<QString> save_path(const SaveDialog& dialog) = 0;

    /// The path of a file that is there; nothing if cancelled.
    virtual std::optional<QString> open_path(const OpenDialog& dialog) = 0;

    /// Opens a document or address with the desktop's own program. False if the desktop refused.
    virtual bool open_document(const QString& address) = 0;
    /// Starts a program detached. False if it couldn't be started.
    virtual bool start_program(const QString& file, const QStringList& arguments = {}) = 0;
    /// Whether a program that holds `title` in `folder` is running (see platform/program_lock.h). Throws LockError.
    virtual bool program_running(const QString& title, const QString& folder) = 0;

    virtual QDateTime now() = 0;
    /// A clock that only goes forward, whatever is done to the time of day. Every wait is measured by it.
    virtual std::chrono::steady_clock::time_point steady_now() = 0;
    /// Device names of the printers, in the platform's order.
    virtual QStringList printers() = 0;
    /// Makes the share reachable with this account. False if it can't be reached.
    virtual bool connect_share(const QString& share, const QString& user, const QString& password) = 0;

    /// Gives the interface time to paint and to take events.
    virtual void yield() = 0;
    /// Lets the interface run for about this long; the wait of every loop that waits for something.
    virtual void wait(std::chrono::milliseconds time) = 0;
};

} // namespace platform
