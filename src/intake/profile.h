#pragma once

// A profile: what the columns of a company's recorder files are. It is assigned once and kept by its name.

#include "intake/recorder_file.h"

#include <array>
#include <span>

namespace intake {

enum class Role {
    Employee, ///< `社員番号`
    Date,     ///< the day; not needed where times carry their own
    In,       ///< clock-in and clock-out in one line
    Out,
    Stamp,     ///< a single time of day, a line each
    Direction, ///< whether the stamp is one of coming or going
};
inline constexpr int role_count = 6;

/// What a column is called where it is assigned, in the order of Role.
std::span<const QStringView> role_captions();

enum class Direction { Unknown, In, Out, Other };

struct Profile {
    QString name{};
    std::array<int, role_count> columns{}; ///< from 1; 0 where the file has no such column
    int heading_lines = 0;                 ///< at the top of the file
    QString in_word{};                     ///< how the recorder marks coming and going, beyond the words that are known
    QString out_word{};

    int& column(Role role) { return columns[size_t(role)]; }
    int column(Role role) const { return columns[size_t(role)]; }
    bool has(Role role) const { return column(role) != 0; }
    bool has_stamps() const { return has(Role::Stamp); }

    /// The line's cell; empty where the line is shorter, or the file has no such column.
    QString cell(const RecorderLine& line, Role role) const { return line.cells.value(column(role) - 1); }

    /// Why no file can be read by it, in words; empty if one can.
    QString problem() const;

    Direction direction(const QString& mark) const;

    friend bool operator==(const Profile&, const Profile&) = default;
};

/// A profile that fits the words of the file's headings; without a name, and without the columns whose headings say
/// nothing that is known.
Profile guessed_profile(const RecorderFile& file);

/// The profile as one text but for its name, and back; what isn't understood of the text counts as not assigned.
QString profile_text(const Profile& profile);
Profile profile_of_text(const QString& name, const QString& text);

} // namespace intake
