#pragma once

// The desktop of a PC where nobody looks and nothing else runs.

#include "base/literals.h"
#include "platform/host.h"

#include <QFile>
#include <stdexcept>

namespace bench {

class Desktop : public platform::Host {
public:
    platform::Answer ask(const QString& text, const QString&, platform::Buttons) override {
        throw std::runtime_error(text.toStdString());
    }
    std::optional<QString> input(const QString&) override { return {}; }
    std::optional<QString> save_path(const platform::SaveDialog&) override { return {}; }
    std::optional<QString> open_path(const platform::OpenDialog&) override { return {}; }
    bool open_document(const QString& address) override { return QFile::remove(address); }
    bool start_program(const QString&, const QStringList&) override { return false; }
    bool program_running(const QString&, const QString&) override { return false; }
    QDateTime now() override { return QDateTime(QDate(2026, 12, 1), QTime(9, 0)); }
    std::chrono::steady_clock::time_point steady_now() override { return {}; }
    QStringList printers() override { return {QStringLiteral("PDF")}; }
    bool connect_share(const QString&, const QString&, const QString&) override { return true; }
    void yield() override {}
    void wait(std::chrono::milliseconds) override {}
};

} // namespace bench
