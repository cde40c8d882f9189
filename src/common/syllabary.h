#pragma once

// The pages of kana from which the first ones of a reading are picked: up to ten lines of five kana a page, each behind
// a head. On the grid five heads stand in a row, two rows below the open line.

#include "base/sheet.h"

#include <QString>
#include <span>

namespace common {

inline constexpr int kana_a_line = 5;
inline constexpr int heads_a_row = 5;
inline constexpr int kana_row_height = 450; ///< twips
inline constexpr int kana_col_width = 600;

struct SyllabaryPage {
    QStringView name;
    std::span<const QStringView> lines; ///< five characters each; an ideographic space is no kana

    /// The kana at a place of a line; empty where there is none.
    QString kana(int line, int place) const;
    /// The first kana of a line; empty where the page has no such line.
    QString head(int line) const;
};

/// In the order in which they follow each other.
std::span<const SyllabaryPage> syllabary();

/// The line whose head stands in a cell of rows 1 and 2; -1 for the last column, which has none.
int line_of(base::Cell head);

} // namespace common
