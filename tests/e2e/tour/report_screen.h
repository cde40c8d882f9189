#pragma once

// ReportScreen: one report on the report screen, opened from the menu and worked with by mouse and keyboard. What it
// prints and writes lies beside the pictures of the tour and is looked at.

#include "tour.h"
#include "ui/pages/rov_01_page.h"

namespace tour {

/// A report, and the place on its sheet of a name that must be there once it is extracted.
struct ReportLook {
    int number;
    QStringView title; ///< also what its button in the menu reads
    base::Cell name;
};

class ReportScreen {
public:
    /// Opens the report. Throws, as all below, if something isn't as it must be.
    ReportScreen(Tour& tour, const ReportLook& look);

    ui::rov_01_page& page();
    const reports::Report& report() { return page().form().report; }
    QString cell(base::Cell at) { return report().hyou(at.row, at.col); }

    void choose_month(QDate month);
    /// Both dates, on a screen on which nothing was done yet: the keyboard is in the first of them.
    void type_days(QDate from, QDate to);
    /// Both numbers, which must be employees'.
    void type_employees(const QString& from, const QString& to);
    void tick(const QString& box) { m_clerk.tick(box); }
    /// Searches for the first employee by a kana of the reading and leaves the number in both boxes. Returns it.
    QString search_employee(const QString& picture_name);

    void extract();
    /// All that the buttons make of the sheet as it stands: preview, NAME.pdf and NAME.csv. The texts are printed.
    void put_out(const QString& name, const QStringList& texts);
    /// The one PDF file that was opened for the person becomes NAME.pdf.
    void keep_printed(const QString& name, int pages, QStringList texts);

private:
    void type_into(const QString& box, const QString& text);
    void preview(const QString& picture_name);
    void make_file(const QString& name);

    Tour& m_tour;
    e2e::Clerk m_clerk;
    const ReportLook& m_look;
};

} // namespace tour
