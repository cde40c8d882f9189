#pragma once

// New files that are there whole or not at all: made beside their place under a passing name, then renamed. A program
// that is killed on the way leaves at most the passing name behind.

#include <QByteArray>
#include <QString>
#include <system_error>

namespace platform {

/// What a power failure may take back.
enum class Durability {
    Disk,  ///< nothing: the call waits until the file and its name are on the disk
    Cache, ///< the file: it is in order for every program, but the disk is not waited for
};

/// Whether a file that stands at the place is left there or gives way.
enum class Standing { Stays, GivesWay };

/// A file in the making. It goes again unless it was placed.
class NewFile {
public:
    explicit NewFile(const QString& path);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Makes the empty file under its passing name; where a file stands at the place, with its owner, group and mode
    /// (rights.h). No error means that it stands.
    std::error_code make();

    const QString& passing_path() const { return m_passing; }

    /// Waits until what was written under the passing name is on the disk.
    std::error_code flush() const;

    /// From now on the file stays under its passing name when this goes.
    void leave() { m_made = false; }

    /// Gives the file its name. Where a file stands that stays: std::errc::file_exists.
    std::error_code place(Durability durability, Standing standing = Standing::Stays);

private:
    QString m_path;
    QString m_passing;
    bool m_made = false;
};

/// Renames a file, which takes the place of whatever has the new name, and waits until the names are on the disk.
std::error_code rename_over(const QString& from, const QString& to);

/// Removes what programs that were killed left of this file in the making. Nobody may be making it now.
void remove_leftovers(const QString& path);

/// Writes a file that doesn't exist yet. An existing file stays untouched and gives std::errc::file_exists; other
/// failures give the system's code. No error means that the file stands.
std::error_code write_new_file(const QString& path, const QByteArray& bytes, Durability durability);

/// Writes a file that takes the place of whatever has the name. A program that has the old file open goes on with the
/// old one, nameless now; where the system can't do that (see open_files_can_move) the call fails instead.
std::error_code replace_file(const QString& path, const QByteArray& bytes, Durability durability);

/// Whether a file can be renamed or replaced while a program has it open.
#ifdef Q_OS_WIN
inline constexpr bool open_files_can_move = false;
#else
inline constexpr bool open_files_can_move = true;
#endif

} // namespace platform
