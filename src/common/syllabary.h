#pragma once

// The pages of kana from which the first ones of a reading are picked: lines of five kana, each behind a head. On the
// grid the open line is row 0, and the heads stand in rows 1 and 2.

#include "base/sheet.h"

#include <QString>
#include <span>

namespace common {

inline constexpr int kana_a_line = 5;
inline constexpr int kana_row_height = 450; ///< twips
inline constexpr int kana_col_width = 600;

struct SyllabaryPage {
    QStringView name;
    /// A text a column: the line behind the head in row 1, then that behind the head in row 2. An ideographic space is
    /// no kana.
    std::span<const QStringView> columns;

    /// The kana at a place of the line behind a head; empty where there is none.
    QString kana(base::Cell head, int place) const;
    /// The first kana of the line; empty where the page has no such line.
    QString head(base::Cell head) const;
};

/// In the order in which they follow each other.
std::span<const SyllabaryPage> syllabary();

} // namespace common
