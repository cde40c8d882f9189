#include "e2e/road/walker.h"

#include "e2e/road/files.h"
#include "frame/backup.h"
#include "platform/from_cp932.h"
#include "platform/paths.h"
#include "store/server.h"
#include "support/stored.h"
#include "ui/paper/print_shop.h"

#include <QElapsedTimer>
#include <QTest>

namespace e2e {

using namespace base;

namespace {

constexpr QSize usual_window(1366, 768);

void demand_none(const QStringList& faults) {
    demand(faults.isEmpty(), faults.join(u"\n  "_s));
}

void demand_same(const QStringList& wanted, const QStringList& there) {
    QStringList faults;
    for (qsizetype i = 0; i < std::max(wanted.size(), there.size()); ++i)
        if (wanted.value(i) != there.value(i))
            faults << u"%1: \"%2\" wanted, \"%3\" there"_s.arg(i).arg(wanted.value(i), there.value(i));
    demand_none(faults);
}

struct Place {
    QString grid;
    int row, col;
};

int column_called(const QString& name, const base::Sheet& sheet) {
    bool is_number = false;
    if (const int number = name.toInt(&is_number); is_number)
        return number;
    for (int col = 0; col < sheet.Cols(); ++col)
        if (sheet(0, col) == name)
            return col;
    throw RoadError(u"no column is called "_s + name);
}

Place place_of(const QString& word, Clerk clerk) {
    const QStringList parts = word.split(u' ');
    demand(parts.size() == 3, u"a cell is grid, row and column"_s);
    return {parts[0], parts[1].toInt(), column_called(parts[2], clerk.grid(parts[0]).sheet())};
}

QString line_of(const base::Sheet& sheet, int row, int first, int count) {
    QStringList cells;
    for (int col = first; col < first + count; ++col)
        cells << (sheet.Contains(row, col) ? sheet(row, col) : u"nothing"_s);
    return cells.join(u'|');
}

} // namespace

Walker::Walker(Desk& desk, Pictures& pictures, const QString& root) : m_desk(desk), m_pictures(pictures), m_root(root) {
    m_desk.started.clear();
    m_desk.opened.clear();
}

const QMap<QString, Walker::Act> Walker::acts{
    // walk ROAD | ARGUMENT...
    {u"walk"_s, [](Walker& at, const Step& step) { at.walk(step.word(0), step.words.sliced(1)); }},
    // press BUTTON
    {u"press"_s, [](Walker& at, const Step& step) { at.clerk().press_button(step.word(0)); }},
    // tick TEXT
    {u"tick"_s, [](Walker& at, const Step& step) { at.clerk().tick(step.word(0)); }},
    // box NAME: clicks into it
    {u"box"_s, [](Walker& at, const Step& step) { at.clerk().click_box(step.word(0)); }},
    // click GRID ROW COLUMN, a column by its heading or its number
    {u"click"_s, [](Walker& at, const Step& step) { at.click(step); }},
    // type WORD..., and keys by their names; each line goes on
    {u"type"_s,
        [](Walker& at, const Step& step) {
            at.clerk().type(step.word(0));
            for (const QStringList& line : step.lines)
                at.clerk().type(line.first());
        }},
    // choose ITEM of the list that has the keyboard
    {u"choose"_s, [](Walker& at, const Step& step) { at.clerk().choose_item(step.word(0)); }},
    // resize WIDTH | HEIGHT
    {u"resize"_s, [](Walker& at, const Step& step) { at.window().resize(step.word(0).toInt(), step.word(1).toInt()); }},
    // await TEXT | BUTTON | PICTURE: of a box that the next step brings; the lines are the rows of its table
    {u"await"_s,
        [](Walker& at, const Step& step) {
            at.m_boxes.await({step.word(0), step.word(1), step.word(2), step.lines});
        }},
    // picture NAME
    {u"picture"_s,
        [](Walker& at, const Step& step) {
            QTest::qWait(0);
            at.m_pictures.take(at.clerk().front(), step.word(0));
        }},
    // focus NAME: the keyboard is there
    {u"focus"_s, [](Walker& at, const Step& step) { demand_same({step.word(0)}, {at.clerk().keyboard_at()}); }},
    // holds TEXT: the box in hand; holds TEXT | BOX: that one
    {u"holds"_s,
        [](Walker& at, const Step& step) {
            Clerk clerk = at.clerk();
            demand_same({step.word(0)}, {(step.words.size() > 1 ? clerk.box(step.word(1)) : clerk.in_hand()).text()});
        }},
    // selected TEXT: of the box in hand, which alone is lit
    {u"selected"_s, [](Walker& at, const Step& step) { demand_same({step.word(0)}, {at.clerk().selected()}); }},
    // reads TEXT: it stands somewhere in sight
    {u"reads"_s, [](Walker& at, const Step& step) { at.clerk().read(step.word(0)); }},
    // painted TEXT...: labels said so, even if for a moment only, since the last such step
    {u"painted"_s,
        [](Walker& at, const Step& step) {
            for (const QStringList words = std::exchange(at.m_painted.words, {}); const QString& word : step.words)
                demand(words.contains(word), word);
        }},
    // down BUTTON...: these alone look pressed
    {u"down"_s,
        [](Walker& at, const Step& step) { demand_same({step.word(0)}, {at.clerk().buttons_down().join(u' ')}); }},
    // fits: nothing is cut off
    {u"fits"_s, [](Walker& at, const Step&) { demand_none(at.clerk().cut_off()); }},
    // whole GRID ROW COLUMN...: these cells are in view, all of each
    {u"whole"_s,
        [](Walker& at, const Step& step) {
            for (const QString& word : step.words) {
                const Place place = place_of(word, at.clerk());
                const ui::GridView& grid = at.clerk().grid(place.grid);
                demand(grid.viewport()->rect().contains(grid.cell_rect({place.row, place.col})), word);
            }
        }},
    // see GRID ROW COLUMN | CELL...; each line is the next row of the grid
    {u"see"_s, [](Walker& at, const Step& step) { at.see(step); }},
    // rows FILE | QUERY; the lines are all its rows
    {u"rows"_s, [](Walker& at, const Step& step) { at.rows(step); }},
    // keep GRID, or tables: remembers what stands there
    {u"keep"_s, [](Walker& at, const Step& step) { at.m_kept[step.word(0)] = at.texts_of(step.word(0)); }},
    // same GRID ROW..., or tables: it stands as it was kept, but for these rows
    {u"same"_s, [](Walker& at, const Step& step) { at.same(step); }},
    // dump NAME: the tables as NAME.txt
    {u"dump"_s,
        [](Walker& at, const Step& step) {
            support::put_bytes(at.m_pictures.folder().filePath(step.word(0) + u".txt"_s),
                at.texts_of(u"tables"_s).join(u'\n').toUtf8() + '\n');
        }},
    // applied: by the exchange manager, all that was posted
    {u"applied"_s, [](Walker& at, const Step&) { wait_for_manager(at.settings()); }},
    // store FILE | STATEMENT: as another PC does
    {u"store"_s,
        [](Walker& at, const Step& step) {
            const DataFile file = file_called(step.word(0), at.settings());
            store::Database::open(file.path, file.kind).exec(step.word(1).toStdString());
        }},
    // away FILE: it can't be found, until: back FILE
    {u"away"_s, [](Walker& at, const Step& step) { at.move(step.word(0), {}, u".away"_s); }},
    {u"back"_s, [](Walker& at, const Step& step) { at.move(step.word(0), u".away"_s, {}); }},
    // printed NAME | PAGES | TEXT...: in the one file that was opened; it becomes NAME.pdf
    {u"printed"_s, [](Walker& at, const Step& step) { at.printed(step); }},
    // opens FILE: beside the roads, in the next dialog that asks for a file
    {u"opens"_s,
        [](Walker& at, const Step& step) {
            at.m_desk.answer_to_open = platform::native(QStringLiteral(ROVENA_ROADS "/") + step.word(0));
        }},
    // file NAME | TEXT...: in the report's CSV file
    {u"file"_s, [](Walker& at, const Step& step) { at.make_file(step); }},
    // opened TEXT: in the address of the only document since the last such step
    {u"opened"_s,
        [](Walker& at, const Step& step) {
            const QStringList opened = std::exchange(at.m_desk.opened, {});
            demand(opened.size() == 1 && opened[0].contains(step.word(0)), opened.join(u' '));
        }},
    // started PROGRAM...: since the last such step
    {u"started"_s,
        [](Walker& at, const Step& step) {
            demand_same({step.word(0)}, {std::exchange(at.m_desk.started, {}).join(u' ')});
        }},
    // restart: the program ends and starts again
    {u"restart"_s, [](Walker& at, const Step&) { at.m_program.reset(), at.start(); }},
    // close: by the close box
    {u"close"_s, [](Walker& at, const Step&) { at.clerk().front().close(); }},
    // another: program is in front for a moment
    {u"another"_s, [](Walker& at, const Step&) { QApplication::setActiveWindow(nullptr), at.clerk().front(); }},
    // leave: by the exit button
    {u"leave"_s, [](Walker& at, const Step&) { at.leave(); }},
    // restore: today's backup, under a second root
    {u"restore"_s, [](Walker& at, const Step&) { at.restore(); }},
};

void Walker::walk(const QString& road, const QStringList& arguments) {
    for (const Step& step : steps_of(road, arguments)) {
        QElapsedTimer clock;
        clock.start();
        try {
            if (!m_program)
                start();
            demand(acts.contains(step.act), u"there is no such act"_s);
            acts[step.act](*this, step);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // as between a person's acts
            if (step.act != u"await")
                demand_none(m_boxes.faults());
            walked(step, std::chrono::milliseconds(clock.elapsed()));
        } catch (const RoadError& error) {
            throw RoadError(u"%1: %2 %3\n  %4"_s.arg(
                step.place, step.act, step.words.join(u" | "_s), QString::fromUtf8(error.what())));
        }
    }
}

void Walker::start() {
    m_program.emplace(m_desk, m_root + u"/Program Files/meridan/qn/rovena100/system/exe/exe"_s);
    demand(m_program->start() == 0 && m_program->running(), u"the program doesn't start"_s);
    if (!m_program->wizard())
        m_program->window().resize(usual_window);
}

QWidget& Walker::window() {
    return m_program->wizard() ? static_cast<QWidget&>(*m_program->wizard()) : m_program->window();
}

QStringList Walker::texts_of(const QString& name) {
    if (name == u"tables")
        return dump_tables(settings());
    const base::Sheet& sheet = clerk().grid(name).sheet();
    QStringList lines;
    for (int row = 0; row < sheet.Rows(); ++row)
        if (sheet.RowHeight(row) > 0)
            lines << line_of(sheet, row, 0, sheet.Cols());
    return lines;
}

void Walker::click(const Step& step) {
    const Place place = place_of(step.word(0), clerk());
    clerk().click_cell(place.grid, place.row, place.col);
}

void Walker::see(const Step& step) {
    const Place place = place_of(step.word(0), clerk());
    QList<QStringList> lines = step.lines;
    if (step.words.size() > 1)
        lines.prepend(step.words.sliced(1));
    QStringList wanted, there;
    for (const QStringList& line : lines) {
        there << line_of(clerk().grid(place.grid).sheet(), place.row + int(wanted.size()), place.col, int(line.size()));
        wanted << line.join(u'|');
    }
    demand_same(wanted, there);
}

void Walker::rows(const Step& step) {
    const DataFile file = file_called(step.word(0), settings());
    QStringList wanted;
    for (const QStringList& line : step.lines)
        wanted << line.join(u'|');
    demand_same(wanted, support::rows_of(file.path, file.kind, step.word(1).toUtf8().toStdString()));
}

void Walker::same(const Step& step) {
    QStringList parts = step.word(0).split(u' ');
    const QString name = parts.takeFirst();
    QStringList wanted = m_kept.value(name), there = texts_of(name);
    for (const QString& row : parts)
        wanted[row.toInt()] = there.value(row.toInt());
    demand_same(wanted, there);
}

void Walker::move(const QString& file, const QString& from, const QString& to) {
    const QString path = file_called(file, settings()).path;
    demand(QFile::rename(path + from, path + to), u"it can't be moved"_s);
}

void Walker::printed(const Step& step) {
    const QStringList opened = std::exchange(m_desk.opened, {});
    demand(opened.size() == 1, u"%1 files were opened: %2"_s.arg(opened.size()).arg(opened.join(u' ')));
    const QString at = platform::portable(opened.first());
    demand(at.startsWith(ui::print_folder(settings())), u"printed elsewhere: "_s + at);
    const QString kept = m_pictures.folder().filePath(step.word(0) + u".pdf"_s);
    QFile::remove(kept);
    demand(QFile::rename(at, kept), u"can't move %1 to %2"_s.arg(at, kept));
    demand_pdf(kept, step.word(1).toInt(), step.words.sliced(2));
}

void Walker::make_file(const Step& step) {
    const QString path = m_pictures.folder().absoluteFilePath(step.word(0) + u".csv"_s);
    m_desk.answer_to_save = platform::native(path);
    clerk().press_button(u"ファイル作成"_s);
    demand_texts(platform::from_cp932(support::bytes_of(path)), step.words.sliced(1));
}

void Walker::leave() {
    clerk().press_button(u"終了"_s);
    demand(!window().isVisible(), u"the main window is still there"_s);
    m_program.reset();
}

void Walker::restore() {
    const QString backup = frame::shared_backup_folder(settings(), m_desk.now().date());
    m_program.reset();
    store::end_waiting_connections(); // as they end with a program of its own
    m_root += u"-restored"_s;
    install({m_root});
    install({u"restore"_s, backup, m_root});
    start();
    demand(
        platform::portable(settings().server_root).startsWith(m_root), u"the restored program works on other data"_s);
}

} // namespace e2e
