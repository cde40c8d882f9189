#pragma once

// The tour's desktop: the real one, except for what leaves the program. Its only printer is the one that writes PDF
// files, documents are kept in mind instead of opened in another program, and the save dialog is answered at once.

#include "base/literals.h"
#include "ui/paper/pdf_file.h"
#include "ui/qt_host.h"

#include <QStringList>
#include <utility>

namespace tour {

class Host : public ui::QtHost {
public:
    /// The path that answers the next save dialog. One without an answer is cancelled.
    void answer_save(const QString& path) { m_save_path = path; }
    /// The documents that were opened since the last call.
    QStringList take_opened() { return std::exchange(m_opened, {}); }

    QStringList printers() override { return {ui::pdf_printer.toString()}; }
    bool open_document(const QString& address) override {
        m_opened << address;
        return true;
    }
    std::optional<QString> save_path(const platform::SaveDialog&) override {
        return std::exchange(m_save_path, std::nullopt);
    }

private:
    std::optional<QString> m_save_path;
    QStringList m_opened;
};

} // namespace tour
