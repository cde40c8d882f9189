#include "frame/kept_files.h"

#include "base/literals.h"
#include "store/files.h"

#include <QDir>
#include <QFileInfo>
#include <QTimeZone>
#include <algorithm>
#include <utility>

namespace frame {

using namespace base;

namespace {

const QString date_format = u"yyyyMMdd"_s, time_format = u"HHmmss-zzz"_s;

/// Places in time, the clock of the PC at its face value: the hour that a summer time leaves out counts as well.
QDateTime at_face_value(QDate date, QTime time) {
    return {date, time, QTimeZone::utc()};
}

/// How a kept file stands among the others: its time in the name, then the name. No time in a name that no start gave.
using Age = std::pair<QDateTime, QString>;

Age age_of(const QString& name) {
    const QString text = name.section(u'-', 1).section(u'.', 0, 0);
    const QDate date = QDate::fromString(text.section(u'-', 0, 0), date_format);
    const QTime time = QTime::fromString(text.section(u'-', 1), time_format);
    return {date.isValid() && time.isValid() ? at_face_value(date, time) : QDateTime(), name};
}

QString name_of(const QString& exchange_file, const QDateTime& time, QStringView ending) {
    return u"%1-%2-%3.mdb%4"_s.arg(QFileInfo(exchange_file).baseName(), time.date().toString(date_format),
        time.time().toString(time_format), ending);
}

QStringList names(const base::Settings& settings, const QString& filter) {
    QStringList found = QDir(kept_folder(settings)).entryList({filter}, QDir::Files);
    std::ranges::sort(found, {}, age_of);
    return found;
}

} // namespace

QString kept_folder(const base::Settings& settings) {
    return store::exchange_folder(settings) + u"/nokori"_s;
}

QStringList kept_files(const base::Settings& settings) {
    QStringList paths;
    for (const QString& name : names(settings, u"*.mdb"_s))
        paths << kept_folder(settings) + u'/' + name;
    return paths;
}

QString new_kept_path(
    const base::Settings& settings, const QString& exchange_file, const QDateTime& now, QStringView ending) {
    QDateTime time = at_face_value(now.date(), now.time());
    if (const QStringList there = names(settings, u"*.mdb*"_s); !there.isEmpty()) {
        const Age newest = age_of(there.last());
        if (newest >= age_of(name_of(exchange_file, time, ending)))
            time = newest.first.addMSecs(1);
    }
    return kept_folder(settings) + u'/' + name_of(exchange_file, time, ending);
}

} // namespace frame
