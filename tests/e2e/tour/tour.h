#pragma once

// The tour: the desktop program's own windows, driven by mouse and keyboard over an install tree with a made-up
// company. A month is typed, saved, applied by the exchange manager and opened again; what is read back must be what
// was typed. Each stage leaves a picture, and the tables a text dump.

#include "boxes.h"
#include "e2e/road/clerk.h"
#include "e2e/road/tables.h"
#include "ui/program.h"

#include <QDir>

namespace tour {

class Tour {
public:
    /// `program` has started; pictures and dump go into `out`, which exists.
    Tour(ui::Program& program, Boxes& boxes, const QDir& out);

    /// The whole road. Throws e2e::RoadError at the first thing that isn't as it must be.
    void walk();

    /// Opens the month that a walk has typed and leaves one picture of it.
    void picture_of_month(const QString& name);

private:
    void open_month();
    void type_month();
    void save();
    void read_back();
    void leave_program();

    const entry::ent_rovena& form();
    qint64 employee();
    void resize_window(QSize size);
    void picture(const QString& name);
    static void demand_none(const QStringList& faults, const QString& what);

    ui::Program& m_program;
    Boxes& m_boxes;
    QDir m_out;
    e2e::Clerk m_clerk;
    QDate m_month; ///< the first of the calendar month that is typed
    QList<e2e::TypedDay> m_typed;
    entry::MonthSheet m_saved; ///< as it stood on the screen when it was saved
};

} // namespace tour
