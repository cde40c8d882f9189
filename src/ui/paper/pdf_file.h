#pragma once

// A PDF file in the making. It stands in memory until it is whole, so that neither a cancelled job nor a full disk
// leaves half a file behind.

#include "reports/pages/print_surface.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <system_error>

namespace ui {

/// The name of the printer that writes PDF files.
inline constexpr QStringView pdf_printer = u"PDF";

class PdfFile {
public:
    explicit PdfFile(const reports::PrintJob& job);

    const QString& report() const { return m_report; }
    /// Stands on the page begun last; inactive before the first one.
    QPainter& painter() { return m_painter; }
    bool has_pages() const { return m_painter.isActive(); }
    void new_page(reports::Orientation orientation);

    /// What was written, or why it wasn't.
    struct Written {
        QString path;
        std::error_code failure;
    };
    /// Writes the file into the folder ("/" at its end), which is made if it isn't there. The name is made of the
    /// report's title and the time, and a number where such a file stands already: "社員一覧表_20041005_090000_2.pdf".
    /// Needs a page; none can be added afterwards.
    Written write(const QString& folder, const QDateTime& time);

private:
    QString m_report;
    QBuffer m_bytes;
    QPdfWriter m_writer;
    QPainter m_painter;
};

} // namespace ui
