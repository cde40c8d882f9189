#pragma once

// A sheet as a text file: the headings a line each, then every row of the sheet, hidden ones too, with the cells of the
// visible columns joined by ",". No quoting; a "," inside a cell is left out. Code page 932, CR LF.

#include "base/sheet.h"
#include "platform/host.h"

#include <QStringList>
#include <span>

namespace common {

enum class Written { Whole, Replaced, Failed };

/// Writes the sheet over whatever stands at the path. Replaced: a character that the code page lacks became "?".
/// Failed: the system refused; what is written by then stays.
Written write_csv(std::span<const QString> headings, const base::Sheet& hyou, const QString& path);

/// The headings and cells with such characters, in words.
QStringList replaced_places(std::span<const QString> headings, const base::Sheet& hyou);

/// Tells how the writing ended where there is something to tell: a file that can't be written, and what became "?".
void tell_written(Written written, std::span<const QString> headings, const base::Sheet& hyou, platform::Host& host);

} // namespace common
