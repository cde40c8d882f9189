#include "store/server_place.h"

#include "base/literals.h"
#include "platform/whole_file.h"
#include "store/files.h"
#include "store/server.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

namespace store {

using namespace base;

namespace {

constexpr qint64 smallest_database = 4096;
constexpr QByteArrayView first_line = "rovena data server";

/// Empty if there is none or it can't be read.
QList<QByteArray> lines_above(QDir folder) {
    do {
        QFile file(folder.filePath(u"data-server"_s));
        if (file.open(QIODevice::ReadOnly))
            return file.readAll().split('\n');
    } while (folder.cdUp());
    return {};
}

constexpr QByteArrayView partitions_word = "partitions ";

int partitions_in(const QList<QByteArray>& lines) {
    for (const QByteArray& line : lines)
        if (line.startsWith(partitions_word))
            return line.mid(partitions_word.size()).trimmed().toInt();
    return 0;
}

} // namespace

std::optional<ServerPlace> server_place(const QByteArray& bytes) {
    const QList<QByteArray> lines = bytes.split('\n');
    if (lines.size() < 3 || lines[0].trimmed() != first_line)
        return std::nullopt;
    return ServerPlace{lines[1].trimmed(), QString::fromUtf8(lines[2].trimmed())};
}

QByteArray bytes_of(const ServerPlace& place) {
    return first_line.toByteArray() + '\n' + place.connection + '\n' + place.schema.toUtf8() + '\n';
}

std::optional<ServerPlace> place_at(const QString& path) {
    QFile file(path);
    if (QFileInfo(path).size() >= smallest_database || !file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return server_place(file.readAll());
}

void make_on_server_below(const QString& folder, const QString& connection, int partitions) {
    const QByteArray words = connection.trimmed().toUtf8();
    check_connection_words(words);
    const QString path = folder + u"/data-server"_s;
    if (partitions == 0)
        partitions = partitions_in(lines_above(folder));
    QByteArray bytes = words + '\n';
    if (partitions > 0)
        bytes += partitions_word.toByteArray() + QByteArray::number(partitions) + '\n';
    check_system(platform::replace_file(path, bytes, platform::Durability::Disk), path);
}

QString schema_of(const QString& path) {
    const QFileInfo file(path);
    return file.fileName() == posting_file_name ? u"jyusin"_s : file.completeBaseName();
}

std::optional<ServerPlace> place_for_new(const QString& path, Kind kind) {
    const QFileInfo file(path);
    const bool of_this_pc = kind == Kind::Exchange && file.fileName() != posting_file_name;
    if (kind == Kind::Losys || kind == Kind::Drafts || of_this_pc)
        return std::nullopt;
    const QList<QByteArray> lines = lines_above(file.absoluteDir());
    if (lines.isEmpty())
        return std::nullopt;
    const bool apart = lines.contains("apart");
    const QString own = apart ? u'-' + QUuid::createUuid().toString(QUuid::Id128).left(12) : QString();
    return ServerPlace{lines[0].trimmed(), schema_of(path) + own, partitions_in(lines)};
}

} // namespace store
