#pragma once

// Tour: one company's install tree with the desktop program over it, and what the stages of a tour need to drive it.

#include "boxes.h"
#include "e2e/road/clerk.h"
#include "e2e/road/tables.h"
#include "host.h"
#include "ui/program.h"

#include <QMap>
#include <optional>

namespace tour {

/// What the company's rules make of a day's clock times.
struct Figures {
    QString clock_in;
    QString clock_out;
    QStringList cells; ///< break, work time and the hours of each category, as the sheet shows them
};

/// The month that was typed, for what is made of it later.
struct TypedMonth {
    QString employee_number{};
    QString employee_name{};
    QMap<QString, QString> totals{}; ///< as totals_of() the sheet
};

/// What the stages know of the company and tell each other. The defaults are those of the made-up company.
struct KnownCompany {
    QString name = QStringLiteral("sample"); ///< for files
    int employee_row = 2;                    ///< in the list of attendance entry
    QString leave = QStringLiteral("有休");
    QString sunday_work = QStringLiteral("日曜出勤");
    QList<Figures> weekday_figures{}; ///< of days from Monday to Friday
    TypedMonth typed{};
};

class Tour {
public:
    /// Nothing runs yet. `root` is the folder of the install tree.
    Tour(Host& host, Boxes& boxes, Pictures& pictures, const QString& root);

    /// The same company under another root.
    Tour(const Tour& of, const QString& root);

    KnownCompany company;

    /// Starts the program, unless it runs; the main frame in its usual size.
    void start();
    /// The program ends as its last window would end it, without being asked.
    void end() { m_program.reset(); }

    ui::Program& program() { return *m_program; }
    e2e::Clerk clerk() { return e2e::Clerk(m_program->window()); }
    const base::Settings& settings() { return m_program->session().settings; }
    Boxes& boxes() { return m_boxes; }
    Host& host() { return m_host; }
    const QString& root() const { return m_root; }
    const QDir& out() const { return m_pictures.folder(); }

    void resize_window(QSize size);
    /// A picture of the window. Throws if a message has come that nobody awaited.
    void picture(const QString& name) { picture_of(m_program->window(), name); }
    void picture_of(QWidget& window, const QString& name);

    /// The month that a tour types: the first of a calendar month in which nobody has attendance yet.
    QDate month();
    void open_month();
    const entry::ent_rovena& entry_form() { return clerk().entry().form(); }

private:
    Host& m_host;
    Boxes& m_boxes;
    Pictures& m_pictures;
    QString m_root;
    std::optional<ui::Program> m_program;
};

/// The totals of a month's sheet, of attendance entry or of its report: the times that aren't empty by the heading of
/// their column.
QMap<QString, QString> totals_of(const base::Sheet& hyou);

/// Throws if there are faults, which are told behind `what`.
void demand_none(const QStringList& faults, const QString& what);

/// The program's usual window.
inline constexpr QSize usual_window(1366, 768);

} // namespace tour
