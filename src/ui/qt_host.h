#pragma once

// The real desktop. Boxes and dialogs speak Japanese whatever the desktop speaks. While the program waits, the
// interface paints and sockets work, but the person's keys and clicks are held back until the wait is over: so nobody
// can leave a screen that is in the middle of something.

#include "platform/host.h"

#include <QPointer>

namespace ui {

class HelpWindow;

class QtHost : public platform::Host {
public:
    platform::Answer ask(const QString& text, const QString& title, platform::Buttons buttons) override;
    std::optional<QString> input(const QString& prompt) override;
    std::optional<QString> save_path(const platform::SaveDialog& dialog) override;
    std::optional<QString> open_path(const platform::OpenDialog& dialog) override;
    /// A page of the help that no browser shows comes in a window of the program's own.
    bool open_document(const QString& address) override;
    bool start_program(const QString& file, const QStringList& arguments) override;
    bool program_running(const QString& title, const QString& folder) override;
    QDateTime now() override;
    std::chrono::steady_clock::time_point steady_now() override;
    /// The platform's printers, and last the one that writes PDF files.
    QStringList printers() override;
    bool connect_share(const QString& share, const QString& user, const QString& password) override;
    void yield() override;
    void wait(std::chrono::milliseconds time) override;

private:
    bool open_page(const QUrl& page);
    bool show_help(const QUrl& page);

    QPointer<HelpWindow> m_help; ///< from the first page on that no browser shows; goes with the application
};

/// A filter of the form "CSV(*.csv)|*.csv|すべて|*.*" as Qt's dialogs take it: one text an entry, with its pattern in
/// parentheses.
QStringList name_filters(const QString& filter);

} // namespace ui
