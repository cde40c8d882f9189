#pragma once

// Walker: one company's install tree with the desktop program over it, walked along a road. At the first thing that
// isn't as it must be it throws a RoadError that names the row.

#include "e2e/road/boxes.h"
#include "e2e/road/clerk.h"
#include "e2e/road/desk.h"
#include "ui/program.h"

#include <QMap>
#include <optional>

namespace e2e {

class Walker {
public:
    /// `root` is the folder of the install tree. The program is started with the first step.
    Walker(Desk& desk, Pictures& pictures, const QString& root);

    void walk(const QString& road, const QStringList& arguments = {});

private:
    using Act = void (Walker::*)(const Step& step);
    static const QMap<QString, Act>& acts();

    void start();
    Clerk clerk();
    QWidget& window();
    const base::Settings& settings() { return m_program->session().settings; }
    QStringList texts_of(const QString& name);

    void walk_road(const Step& step);  // walk ROAD | ARGUMENT...
    void press(const Step& step);      // press BUTTON
    void click(const Step& step);      // click GRID ROW COLUMN, a column by its heading or number
    void box(const Step& step);        // box NAME: clicks into it
    void tick(const Step& step);       // tick TEXT
    void type(const Step& step);       // type WORD..., or lines of them; keys by name
    void choose(const Step& step);     // choose ITEM: of the list that has the keyboard
    void resize(const Step& step);     // resize WIDTH HEIGHT
    void see(const Step& step);        // see GRID ROW COLUMN | CELL...; each line is the next row of the grid
    void rows(const Step& step);       // rows FILE | QUERY; the lines are all its rows
    void keep(const Step& step);       // keep GRID, or tables: remembers what stands there
    void same(const Step& step);       // same GRID ROW..., or tables: stands as kept, but for these rows
    void dump(const Step& step);       // dump NAME: the tables as NAME.txt
    void applied(const Step& step);    // applied: by the exchange manager, all that was posted
    void take_away(const Step& step);  // away FILE: it can't be found
    void bring_back(const Step& step); // back FILE
    void await(const Step& step);      // await TEXT | BUTTON | PICTURE: of the next box
    void picture(const Step& step);    // picture NAME
    void printed(const Step& step);    // printed NAME | PAGES | TEXT...: the one file that was opened; it is moved
    void make_file(const Step& step);  // file NAME | TITLE: the report's CSV file
    void started(const Step& step);    // started PROGRAM...: since the last such step
    void restart(const Step& step);    // restart: the program ends and starts again
    void leave(const Step& step);      // leave: by the exit button
    void restore(const Step& step);    // restore: today's backup, under a second root

    Desk& m_desk;
    Pictures& m_pictures;
    Boxes m_boxes{m_pictures};
    QString m_root;
    std::optional<ui::Program> m_program;
    QMap<QString, QStringList> m_kept;
};

} // namespace e2e
