#pragma once

// PrintSurface: what a page is painted on, in millimetres. The origin is the corner of what the printer can print on;
// how far that lies from the paper's edge is margin(). The real surface paints on a printer or into a PDF file, the
// recording one keeps what was painted for tests, the preview shows it on the screen.

#include <QString>
#include <memory>
#include <optional>

namespace reports {

enum class Orientation { Portrait, Landscape };
enum class Weight { Normal, Bold };

struct Margin {
    double x = 0; ///< mm
    double y = 0;
};

class PrintSurface {
public:
    virtual ~PrintSurface() = default;

    /// What the printer can't print on at the left and the top; 0 for a PDF file.
    virtual Margin margin() const = 0;

    /// Font of the texts that follow. The size is in points.
    virtual void set_font(QStringView family, double size, Weight weight) = 0;
    /// Paints a text with its upper left corner at (x, y).
    virtual void text(double x, double y, const QString& text) = 0;
    /// Paints a solid line; the width is in units of 1/600 inch.
    virtual void line(double x1, double y1, double x2, double y2, int width) = 0;
    virtual void new_page() = 0;
    /// Ends the job and hands it over. A surface that goes without it has given up its job.
    virtual void end() = 0;
};

struct PrintJob {
    QString printer;                                 ///< device name
    QString name;                                    ///< document name of the job
    Orientation orientation = Orientation::Portrait; ///< always A4
    QString report;                                  ///< title of the report, for the file name of the PDF printer
};

/// Opens print jobs.
class PrintShop {
public:
    virtual ~PrintShop() = default;
    /// Nothing if there is no printer of that name.
    virtual std::unique_ptr<PrintSurface> open(const PrintJob& job) = 0;
};

} // namespace reports
