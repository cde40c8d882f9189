#pragma once

// A row of `jyusin`, read. Every field of the table is text; the field of ordinal n is named n + 1, and the one of
// ordinal 1 says which table the row is for:
//   "51"  `rovmei`    a day's clock times          "53"  `kinnisu`  a month's count of days
//   "52"  `kinjisyu`  a day's hours of a category  "54"  `kyumei`   a day's leave
// What each kind carries, and where it goes, stands in one table of constants: `targets`.

#include "store/database.h"

#include <QString>
#include <array>
#include <span>
#include <string_view>

namespace exchange {

/// What a number means: a date is a day that the calendar has, the month's own day 32, or a January key, which is the
/// bare day + 8800.
enum class Meaning { Number, Date, Month };

/// A field of a posted row that goes into the target table.
struct PostedField {
    int ordinal;
    QStringView name; ///< as the reason of an unreadable row calls it
    Meaning meaning = Meaning::Number;
};

struct Target {
    QByteArrayView kind;
    /// Number fields in the order of the target's columns, the employee and the date or month first; each must hold a
    /// number of its meaning.
    std::span<const PostedField> numbers;
    /// Text fields, the target's last columns; they may be empty, and hold 255 characters.
    std::span<const PostedField> texts;
    int counting;      ///< place among the numbers of the one whose 0 means that there is nothing to insert; -1: none
    bool several_rows; ///< several rows make up what one employee has on one date: only the first removes
    std::string_view remove;
    std::string_view insert;
};

inline constexpr int target_count = 4;
extern const std::array<Target, target_count> targets;

inline constexpr int most_numbers = 6;

struct PostedRow {
    const Target* target = nullptr; ///< nothing for a row of an unknown kind
    std::array<qint64, most_numbers> numbers{};
    std::array<QByteArrayView, 2> texts{}; ///< in UTF-8; stand as long as the row that was read
    QString reason;                        ///< why the row can't be read, in Japanese; empty for a good row

    qint64 employee() const { return numbers[0]; }
    qint64 date() const { return numbers[1]; } ///< the month number in a count of days
    bool inserts() const { return target->counting < 0 || numbers[size_t(target->counting)] != 0; }
};

/// The query that read_row() understands: rowid in column 0, ordinal n in column n, in the order of posting.
inline constexpr std::string_view posted_rows_query =
    R"(select rowid,"2","3","4","5","6","7","8","9","10","11","12","13","14","15","16" from jyusin order by rowid)";

/// A number is digits with an optional minus, blanks around it passed over; an empty field is half a record.
PostedRow read_row(const store::Row& row);

} // namespace exchange
