#pragma once

// The desktop of a road: the real one, except for what leaves the program. It is always the morning of 2026-10-05 when
// a road begins. Printed is only by the first printer, which writes PDF files, documents are kept in mind instead of
// opened in another program, of other programs only the exchange manager is started, and a save dialog is answered at
// once.

#include "base/literals.h"
#include "ui/paper/pdf_file.h"
#include "ui/qt_host.h"

#include <QFileInfo>
#include <utility>

namespace e2e {

class Desk : public ui::QtHost {
public:
    std::optional<QString> answer_to_save; ///< to the next dialog; one without an answer is cancelled
    std::optional<QString> answer_to_open; ///< likewise
    QStringList opened, started;           ///< documents, and base names of programs, until they are taken

    QDateTime now() override { return QDateTime::currentDateTime().addMSecs(m_behind); }
    QStringList printers() override { return {ui::pdf_printer.toString(), QStringLiteral("Office")}; }
    bool open_document(const QString& address) override { return opened << address, true; }
    bool start_program(const QString& file, const QStringList& arguments) override {
        started << QFileInfo(file).baseName();
        return started.last() != QLatin1String("jyusinkanri") || ui::QtHost::start_program(file, arguments);
    }
    std::optional<QString> save_path(const platform::SaveDialog&) override {
        return std::exchange(answer_to_save, std::nullopt);
    }

    std::optional<QString> open_path(const platform::OpenDialog&) override {
        return std::exchange(answer_to_open, std::nullopt);
    }

private:
    qint64 m_behind = QDateTime::currentDateTime().msecsTo(QDateTime({2026, 10, 5}, {9, 0}));
};

/// The one desktop of the program that walks: errors are told on it as well.
inline Desk& desk() {
    static Desk only;
    return only;
}

} // namespace e2e
