#include "platform/file_set.h"

#include "base/literals.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <algorithm>
#include <optional>

namespace platform {

using namespace base;

namespace {

QString in(const QString& folder, QStringView name) {
    return u"%1/%2"_s.arg(folder, name);
}

/// Passing names by the names that they stand for. A name is one of this folder: what has a path in it is none.
using Names = QMap<QString, QString>;

/// A list that names nothing is one that the disk lost, and none.
std::optional<Names> listed(const QString& folder) {
    QFile list(in(folder, file_set_list));
    if (!list.open(QIODevice::ReadOnly))
        return std::nullopt;
    Names names;
    for (const QString& line : QString::fromUtf8(list.readAll()).split(u'\n', Qt::SkipEmptyParts))
        if (const QStringList words = line.split(u' '); words.size() == 2 && !line.contains(u'/'))
            names[words[0]] = words[1];
    return names.isEmpty() ? std::nullopt : std::optional(names);
}

void remove_others(const QString& folder, const Names& names) {
    QDir there(folder);
    for (const QString& file : there.entryList(QDir::Files | QDir::Hidden | QDir::System))
        if (!names.contains(file) && file != file_set_list)
            there.remove(file);
}

} // namespace

QString file_of_set(const QString& folder, const QString& name) {
    const std::optional<Names> names = listed(folder);
    if (names && !names->contains(name))
        return {};
    const QString passing = names ? in(folder, names->value(name)) : QString();
    const QString file = QFileInfo::exists(passing) ? passing : in(folder, name);
    return QFileInfo::exists(file) ? file : QString();
}

std::error_code settle_set(const QString& folder) {
    const std::optional<Names> names = listed(folder);
    if (!names)
        return {};
    for (const auto& [name, passing] : names->asKeyValueRange())
        if (QFileInfo::exists(in(folder, passing)))
            if (const std::error_code failure = rename_over(in(folder, passing), in(folder, name)))
                return failure;
    remove_others(folder, *names);
    return QFile::remove(in(folder, file_set_list)) ? std::error_code() : std::make_error_code(std::errc::io_error);
}

std::error_code FileSet::make(const QString& name) {
    m_members.push_back({name, std::make_unique<NewFile>(in(m_folder, name))});
    return m_members.back().file->make();
}

const QString& FileSet::passing_path(const QString& name) const {
    return std::ranges::find(m_members, name, &Member::name)->file->passing_path();
}

std::error_code FileSet::place() {
    QString list;
    for (const Member& member : m_members) {
        if (const std::error_code failure = member.file->flush())
            return failure;
        list += u"%1 %2\n"_s.arg(member.name, QFileInfo(member.file->passing_path()).fileName());
    }
    if (const std::error_code failure = replace_file(in(m_folder, file_set_list), list.toUtf8(), Durability::Disk))
        return failure;
    for (const Member& member : m_members)
        member.file->leave();
    return settle_set(m_folder);
}

} // namespace platform
