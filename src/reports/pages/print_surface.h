#pragma once

// PrintSurface: what a page is painted on, in millimetres. Places count from the corner of what the printer can print
// on; where that lies on the paper is margin(). The real surface paints on a printer or into a PDF file, the recording
// one keeps what was painted for tests, the preview shows it on the screen.

#include "reports/pages/place.h"

#include <QString>
#include <memory>

namespace reports {

enum class Orientation { Portrait, Landscape };
enum class Weight { Normal, Bold };

class PrintSurface {
public:
    virtual ~PrintSurface() = default;

    /// What the printer can't print on at the left and the top; 0 for a PDF file.
    virtual Place margin() const = 0;

    /// Starts a page, the first one too: nothing is painted before it. A job without a page puts out nothing.
    virtual void new_page() = 0;
    /// Font of the texts that follow, over new pages too. The size is in points.
    virtual void set_font(QStringView family, double size, Weight weight) = 0;
    /// Paints a text in one line: the place is the upper left corner of the square that its first character fills.
    virtual void text(Place place, const QString& text) = 0;
    /// Paints a solid line whose middle runs between the places; the width is in units of 1/600 inch.
    virtual void line(Place from, Place to, int width) = 0;
    /// Ends the job and hands it over. False: it couldn't be, and the person has been told.
    /// A surface that goes without it has given up its job.
    virtual bool end() = 0;
};

struct PrintJob {
    QString DeviceName;                              ///< the printer
    QString name;                                    ///< document name of the job
    Orientation orientation = Orientation::Portrait; ///< always A4
    QString report;                                  ///< title of the report, for the file name of the PDF printer
};

/// Opens print jobs.
class PrintShop {
public:
    virtual ~PrintShop() = default;
    /// Nothing if there is no printer of that name. The shop must outlive the surface.
    virtual std::unique_ptr<PrintSurface> open(const PrintJob& job) = 0;

    /// Between these two, jobs for a printer that writes files go one behind the other into one file, which is put out
    /// at the end. A printer with paper isn't touched by it. Use ContinuousPrinting.
    virtual void begin_gathering() {}
    virtual void end_gathering() {}

    /// The file that was put out last, in the platform's form; told once. Empty if there is none, as of a printer with
    /// paper.
    virtual QString take_file() { return {}; }
};

/// While it lives, many jobs follow each other; what was ended before it goes is put out, whatever made it go.
class ContinuousPrinting {
public:
    explicit ContinuousPrinting(PrintShop& shop) : m_shop(shop) { m_shop.begin_gathering(); }
    ~ContinuousPrinting() { m_shop.end_gathering(); }
    ContinuousPrinting(const ContinuousPrinting&) = delete;
    ContinuousPrinting& operator=(const ContinuousPrinting&) = delete;

private:
    PrintShop& m_shop;
};

} // namespace reports
