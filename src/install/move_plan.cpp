#include "install/move_plan.h"

#include "base/literals.h"
#include "platform/paths.h"
#include "platform/whole_file.h"
#include "store/files.h"

#include <QFile>
#include <QFileInfo>
#include <QUuid>
#include <stdexcept>

namespace install {

using namespace base;
using store::Kind;

namespace {

QString posting_path(const base::Settings& settings) {
    return store::exchange_path(settings, 1);
}

constexpr MovedDatabase databases[]{
    {Kind::Rovdata, store::rovdata_path, true},
    {Kind::Comsys, store::comsys_path, true},
    {Kind::Allsystem, store::allsystem_path, true},
    {Kind::Closings, store::closings_path, false},
    {Kind::Exchange, posting_path, false},
};

constexpr QByteArrayView first_line = "rovena move", to_server = "to-server", to_files = "to-files";
constexpr int line_count = 5; // a sixth, the partitions, may be missing

QString folder_of(const base::Settings& settings) {
    return QFileInfo(store::data_folder(settings)).path();
}

QString plan_path(const QString& folder) {
    return folder + u"/move.plan"_s;
}

} // namespace

std::span<const MovedDatabase> moved_databases() {
    return databases;
}

MovePlan::MovePlan(
    const base::Settings& settings, Goal goal, const QByteArray& connection, int partitions, const QDateTime& now)
    : m_folder(folder_of(settings)), m_goal(goal), m_connection(connection), m_time(now.toString(u"yyyyMMdd-HHmmss"_s)),
      m_mark(QUuid::createUuid().toString(QUuid::Id128).left(12)), m_partitions(partitions) {}

MovePlan::MovePlan(const base::Settings& settings, const QList<QByteArray>& lines)
    : m_folder(folder_of(settings)), m_goal(lines[1] == to_server ? Goal::Server : Goal::Files), m_connection(lines[2]),
      m_time(QString::fromLatin1(lines[3])), m_mark(QString::fromLatin1(lines[4])),
      m_partitions(lines.value(line_count).toInt()) {}

std::optional<MovePlan> MovePlan::standing(const base::Settings& settings) {
    QFile file(plan_path(folder_of(settings)));
    if (!file.exists())
        return std::nullopt;
    const bool readable = file.open(QIODevice::ReadOnly);
    const QList<QByteArray> lines = readable ? file.readAll().split('\n') : QList<QByteArray>();
    if (lines.size() < line_count || lines[0] != first_line || (lines[1] != to_server && lines[1] != to_files))
        throw std::runtime_error(platform::native(file.fileName()).toStdString() + " が読めません。");
    return MovePlan(settings, lines);
}

void MovePlan::write() const {
    const QByteArray goal = (m_goal == Goal::Server ? to_server : to_files).toByteArray();
    const QByteArrayList lines{first_line.toByteArray(), goal, m_connection, m_time.toLatin1(), m_mark.toLatin1(),
        QByteArray::number(m_partitions), {}};
    const QString path = plan_path(m_folder);
    store::check_system(platform::write_new_file(path, lines.join('\n'), platform::Durability::Disk), path);
}

void MovePlan::remove() const {
    if (!QFile::remove(plan_path(m_folder)))
        throw store::Error(store::Code::ReadOnly, plan_path(m_folder), {}, {});
}

QString MovePlan::schema(const QString& path) {
    return store::schema_of(path);
}

QString MovePlan::schema_in_the_making(const QString& path) const {
    return schema(path) + u'-' + m_mark;
}

QString MovePlan::set_aside(const QString& schema) const {
    return schema + u'-' + m_time;
}

QString MovePlan::beside(const QString& path) {
    return path + u".moving"_s;
}

QString MovePlan::folder_set_aside() const {
    return m_folder + u"/files-"_s + m_time;
}

QString MovePlan::file_set_aside(const QString& path) const {
    return folder_set_aside() + u'/' + QFileInfo(path).fileName();
}

void refuse_half_moved(const base::Settings& settings) {
    if (MovePlan::standing(settings))
        throw std::runtime_error(
            "この会社の移動が途中で終わっています。先に rovena-install move をもう一度行ってください。");
}

} // namespace install
