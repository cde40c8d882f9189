#pragma once

// Files of one folder that belong together. New ones take the place of the old ones all at once: they are made under
// passing names, and a list that is written last says which passing name stands for which file. From the list on the
// new ones count; what is left then is renaming, and whoever comes next brings that to its end. Before it the old ones
// stand untouched.

#include "platform/whole_file.h"

#include <memory>
#include <vector>

namespace platform {

/// The list's name in the folder. It is there only until the renaming has ended.
inline constexpr QStringView file_set_list = u"generation.list";

/// Where the set's file of this name lies, under its passing name or its own; empty if the set hasn't got it. Without a
/// list the files of the folder are the set.
QString file_of_set(const QString& folder, const QString& name);

/// Ends the renaming of a set that has its list, and removes every other file of the folder. Without a list nothing is
/// done.
std::error_code settle_set(const QString& folder);

/// A set in the making. What isn't in place goes again.
class FileSet {
public:
    explicit FileSet(QString folder) : m_folder(std::move(folder)) {}

    /// Makes an empty file of this name, to be filled under the passing name. Each name once; the folder is there.
    std::error_code make(const QString& name);
    const QString& passing_path(const QString& name) const; ///< of a file that was made

    /// Puts all files on the disk and in place. After an error the set stands whole or not at all.
    std::error_code place();

private:
    struct Member {
        QString name;
        std::unique_ptr<NewFile> file;
    };
    QString m_folder;
    std::vector<Member> m_members;
};

} // namespace platform
