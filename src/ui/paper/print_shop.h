#pragma once

// The printers of this PC: the platform's own ones, and always the one that writes PDF files. Its files go into the
// print folder of this PC, under a name made of report, date and time, and are opened for the person to see.

#include "frame/session.h"
#include "reports/pages/print_surface.h"

#include <utility>

namespace ui {

class PdfFile;

class DesktopPrintShop : public reports::PrintShop {
public:
    /// The session must outlive the shop. What fails while a job is put out is told to the person.
    explicit DesktopPrintShop(frame::Session& session) : m_session(session) {}

    std::unique_ptr<reports::PrintSurface> open(const reports::PrintJob& job) override;
    void begin_gathering() override;
    void end_gathering() override;
    QString take_file() override { return std::exchange(m_file, {}); }

private:
    std::unique_ptr<reports::PrintSurface> open_pdf(const reports::PrintJob& job);
    bool put_out(PdfFile& file);

    frame::Session& m_session;
    bool m_gathering = false;
    std::shared_ptr<PdfFile> m_gathered; ///< none before the first job
    QString m_file;                      ///< the one put out last, until it was told
};

/// Where the PDF files of this PC lie, with "/".
QString print_folder(const base::Settings& settings);

} // namespace ui
