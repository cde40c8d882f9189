#include "e2e/road/walker.h"

#include "base/numbers.h"
#include "e2e/road/files.h"
#include "e2e/road/printed.h"
#include "frame/backup.h"
#include "platform/paths.h"
#include "support/stored.h"
#include "ui/paper/print_shop.h"

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
        cells << (sheet.contains(row, col) ? sheet(row, col) : u"nothing"_s);
    return cells.join(u'|');
}

} // namespace

Walker::Walker(Desk& desk, Pictures& pictures, const QString& root) : m_desk(desk), m_pictures(pictures), m_root(root) {
    m_desk.started.clear();
    m_desk.opened.clear();
}

const QMap<QString, Walker::Act>& Walker::acts() {
    static const QMap<QString, Act> acts{{u"walk"_s, &Walker::walk_road}, {u"press"_s, &Walker::press},
        {u"click"_s, &Walker::click}, {u"box"_s, &Walker::box}, {u"tick"_s, &Walker::tick}, {u"type"_s, &Walker::type},
        {u"choose"_s, &Walker::choose}, {u"resize"_s, &Walker::resize}, {u"see"_s, &Walker::see},
        {u"rows"_s, &Walker::rows}, {u"keep"_s, &Walker::keep}, {u"same"_s, &Walker::same}, {u"dump"_s, &Walker::dump},
        {u"applied"_s, &Walker::applied}, {u"away"_s, &Walker::take_away}, {u"back"_s, &Walker::bring_back},
        {u"await"_s, &Walker::await}, {u"picture"_s, &Walker::picture}, {u"printed"_s, &Walker::printed},
        {u"file"_s, &Walker::make_file}, {u"started"_s, &Walker::started}, {u"restart"_s, &Walker::restart},
        {u"leave"_s, &Walker::leave}, {u"restore"_s, &Walker::restore}};
    return acts;
}

void Walker::walk(const QString& road, const QStringList& arguments) {
    for (const Step& step : steps_of(road, arguments)) {
        try {
            if (!m_program)
                start();
            const Act act = acts().value(step.act);
            demand(act != nullptr, u"there is no such act"_s);
            (this->*act)(step);
            if (step.act != u"await")
                demand_none(m_boxes.faults());
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

Clerk Walker::clerk() {
    return Clerk(window());
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

void Walker::walk_road(const Step& step) {
    walk(step.word(0), step.words.sliced(1));
}

void Walker::press(const Step& step) {
    clerk().press_button(step.word(0));
}

void Walker::click(const Step& step) {
    const Place place = place_of(step.word(0), clerk());
    clerk().click_cell(place.grid, place.row, place.col);
}

void Walker::box(const Step& step) {
    clerk().click_box(step.word(0));
}

void Walker::tick(const Step& step) {
    clerk().tick(step.word(0));
}

void Walker::type(const Step& step) {
    clerk().type(step.word(0));
    for (const QStringList& line : step.lines)
        clerk().type(line.first());
}

void Walker::choose(const Step& step) {
    clerk().choose_item(step.word(0));
}

void Walker::resize(const Step& step) {
    window().resize(step.word(0).section(u' ', 0, 0).toInt(), step.word(0).section(u' ', 1, 1).toInt());
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

void Walker::keep(const Step& step) {
    m_kept[step.word(0)] = texts_of(step.word(0));
}

void Walker::same(const Step& step) {
    QStringList parts = step.word(0).split(u' ');
    const QString name = parts.takeFirst();
    QStringList wanted = m_kept.value(name), there = texts_of(name);
    for (const QString& row : parts)
        wanted[row.toInt()] = there.value(row.toInt());
    demand_same(wanted, there);
}

void Walker::dump(const Step& step) {
    support::put_bytes(
        m_pictures.folder().filePath(step.word(0) + u".txt"_s), (dump_tables(settings()).join(u'\n') + u'\n').toUtf8());
}

void Walker::applied(const Step&) {
    wait_for_manager(settings());
}

void Walker::take_away(const Step& step) {
    const QString path = file_called(step.word(0), settings()).path;
    demand(QFile::rename(path, path + u".away"_s), u"it can't be moved"_s);
}

void Walker::bring_back(const Step& step) {
    const QString path = file_called(step.word(0), settings()).path;
    demand(QFile::rename(path + u".away"_s, path), u"it can't be moved"_s);
}

void Walker::await(const Step& step) {
    m_boxes.await({step.word(0), step.word(1), step.word(2)});
}

void Walker::picture(const Step& step) {
    QWidget& front = clerk().front();
    QTest::qWait(0);
    m_pictures.take(front, step.word(0));
}

void Walker::printed(const Step& step) {
    const QStringList opened = std::exchange(m_desk.opened, {});
    demand(opened.size() == 1, u"%1 files were opened: %2"_s.arg(opened.size()).arg(opened.join(u' ')));
    const QString at = platform::portable(opened.first());
    demand(at.startsWith(ui::print_folder(settings())), u"printed elsewhere: "_s + at);
    const QString kept = m_pictures.folder().filePath(step.word(0) + u".pdf"_s);
    QFile::remove(kept);
    demand(QFile::rename(at, kept), u"can't move %1 to %2"_s.arg(at, kept));
    demand_none(faults_of_pdf(kept, step.word(1).toInt(), step.words.sliced(2)));
}

void Walker::make_file(const Step& step) {
    const QString path = m_pictures.folder().absoluteFilePath(step.word(0) + u".csv"_s);
    m_desk.answer_to_save = platform::native(path);
    clerk().press_button(u"ファイル作成"_s);
    demand_none(faults_of_csv(path, step.word(1), clerk().grid(u"hyou"_s).sheet()));
}

void Walker::started(const Step& step) {
    demand_same(step.word(0).split(u' ', Qt::SkipEmptyParts), std::exchange(m_desk.started, {}));
}

void Walker::restart(const Step&) {
    m_program.reset();
    start();
}

void Walker::leave(const Step&) {
    clerk().press_button(u"終了"_s);
    demand(!window().isVisible(), u"the main window is still there"_s);
    m_program.reset();
}

void Walker::restore(const Step&) {
    const QString backup = frame::shared_backup_folder(settings(), m_desk.now().date());
    m_program.reset();
    m_root += u"-restored"_s;
    install({m_root});
    install({u"restore"_s, backup, m_root});
    start();
    demand(settings().server_root.startsWith(m_root), u"the restored program works on other data"_s);
}

} // namespace e2e
