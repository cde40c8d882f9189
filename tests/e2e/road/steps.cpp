#include "e2e/road/steps.h"

#include "base/literals.h"

#include <QDir>
#include <QMap>

namespace e2e {

using namespace base;

namespace {

using Roads = QMap<QString, QList<Step>>;

QStringList words_of(const QString& text) {
    QStringList words;
    for (const QString& word : text.split(u'|'))
        words << word.trimmed();
    return words;
}

void read(const QFileInfo& at, Roads& roads) {
    QFile file(at.filePath());
    demand(file.open(QIODevice::ReadOnly), u"can't read "_s + at.filePath());
    QList<Step>* road = nullptr;
    int number = 0;
    for (const QString& line : QString::fromUtf8(file.readAll()).split(u'\n')) {
        const QString place = u"%1:%2"_s.arg(at.fileName()).arg(++number), text = line.trimmed();
        if (text.isEmpty() || text.startsWith(u'#'))
            continue;
        if (text.startsWith(u'['))
            road = &roads[text.sliced(1).chopped(1)];
        else if (!road || (line.startsWith(u' ') && road->isEmpty()))
            throw RoadError(place + u" belongs to nothing"_s);
        else if (line.startsWith(u' '))
            road->last().lines << words_of(text);
        else
            road->append({place, text.section(u' ', 0, 0), words_of(text.section(u' ', 1)), {}});
    }
}

Roads read_all() {
    Roads roads;
    for (const QFileInfo& file : QDir(QStringLiteral(ROVENA_ROADS)).entryInfoList({u"*.road"_s}))
        read(file, roads);
    return roads;
}

void fill_in(QStringList& words, const QStringList& arguments) {
    for (int i = 0; i < arguments.size(); ++i)
        words.replaceInStrings(u"$%1"_s.arg(i + 1), arguments[i]);
}

} // namespace

void demand(bool condition, const QString& what) {
    if (!condition)
        throw RoadError(what);
}

QList<Step> steps_of(const QString& road, const QStringList& arguments) {
    static const Roads roads = read_all();
    QList<Step> steps = roads.value(road);
    demand(!steps.isEmpty(), u"there is no road \"%1\""_s.arg(road));
    for (Step& step : steps) {
        fill_in(step.words, arguments);
        for (QStringList& line : step.lines)
            fill_in(line, arguments);
    }
    return steps;
}

} // namespace e2e
