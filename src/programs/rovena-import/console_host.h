#pragma once

// The desktop of a program without a display: what it would say in a box goes to standard error, and nobody answers.

#include "platform/host.h"

class ConsoleHost : public platform::Host {
public:
    /// The answer that changes nothing: Ok to what is only told, else the one that gives up.
    platform::Answer ask(const QString& text, const QString& title, platform::Buttons buttons) override;
    std::optional<QString> input(const QString&) override { return std::nullopt; }
    std::optional<QString> save_path(const platform::SaveDialog&) override { return std::nullopt; }
    std::optional<QString> open_path(const platform::OpenDialog&) override { return std::nullopt; }
    bool open_document(const QString&) override { return false; }
    bool start_program(const QString& file, const QStringList& arguments) override;
    bool program_running(const QString& title, const QString& folder) override;
    QDateTime now() override { return QDateTime::currentDateTime(); }
    std::chrono::steady_clock::time_point steady_now() override { return std::chrono::steady_clock::now(); }
    QStringList printers() override { return {}; }
    bool connect_share(const QString& share, const QString& user, const QString& password) override;
    void yield() override { wait(std::chrono::milliseconds(0)); }
    void wait(std::chrono::milliseconds time) override;
};
