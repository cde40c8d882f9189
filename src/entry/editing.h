#pragma once

// Editing the month sheet: the one input box `atai` and the list `kyucom` that are laid over the cell in hand, what
// each key does, and when a day is calculated. The order is the contract: commit into the cell left, calculation of the
// day left, placement on the new cell.
//
// A day has three states: unchanged (mark ""), changed ("1") and to be calculated ("2"). A typed key sets the mark;
// entering the next cell calculates.

#include "base/cell_editor.h"
#include "base/keys.h"
#include "entry/sheet.h"

#include <QStringList>

namespace entry {

namespace key = base::key;

/// Where the keyboard should go next; the page takes the wish and clears it.
enum class EntryControl { Atai, Kyucom, YmYear, YmMonth, Toubotan };

/// `kyucom`, the list of day kinds. Items have 30 characters: name 10, number 10, `休出` 10.
struct KindList {
    QStringList items;
    int index = 0;
    bool enabled = false; ///< a selection counts as the person's choice only while enabled
    bool visible = false;
    base::Cell cell; ///< the cell it lies over while visible
};

/// Said beside a cell: what it made of what was typed there.
struct CellNotice {
    base::Cell cell;
    QString text;
};

struct Editors {
    base::CellEditor atai;
    KindList kyucom;
    std::optional<EntryControl> focus;
    std::optional<CellNotice> notice; ///< until the next key
};

inline constexpr int longest_remark = 255; ///< characters

/// Places the editor on the sheet's cursor. On the way to a time or remark cell a pending day is calculated.
/// Columns 0 and 1 take no editor; column 7 takes `kyucom` on the days and calculates nothing.
void 入力フォーム(MonthSheet& sheet, Editors& editors);

/// Lays the editor anew over `entry_cell`, as the cell stands now, and moves the cursor there. Calculates nothing.
void place_again(MonthSheet& sheet, Editors& editors);

/// Whether leaving the box would change its cell.
bool box_differs(const MonthSheet& sheet, const Editors& editors);

/// The box leaves its cell (`atai` lost the focus): its text goes into `entry_cell`. Does nothing while the box holds
/// no cell. Times become time text ("830" to "8:30"); minutes above 59 blank the cell; a remark is trimmed and held at
/// 255 characters. What may not be meant so is said in `notice`. The hidden row of category numbers is never written.
void commit(MonthSheet& sheet, Editors& editors);

/// A character typed into `atai` on the cursor's cell (Backspace is 8). True if the key stands; then the day is marked.
bool type_key(MonthSheet& sheet, int character);

/// Text that arrives in one piece (input method, clipboard): gives back what of it stands, and marks the day if any
/// does.
QString accept_text(MonthSheet& sheet, const QString& text);

/// A key that moves the cursor: commit, placement, and the new cell's text in `atai`. False if the key moves nothing.
bool move_by_key(MonthSheet& sheet, Editors& editors, int key_code);

/// Calculates the days that still wait for it, as leaving them would.
void calculate_pending_days(MonthSheet& sheet);

/// A kind chosen from `kyucom` for the cursor's day: marks it and counts all day kinds anew. Only while enabled; a row
/// that is no day takes none.
void choose_kind(MonthSheet& sheet, KindList& kyucom, int index);

/// The sheet was scrolled: the box follows its cell or goes out of sight, `kyucom` goes out of sight.
/// The view's inside size is in twips.
void follow_scroll(MonthSheet& sheet, Editors& editors, int view_width, int view_height);

/// Typing in the count strip, on the count of its current column: digits append, Backspace takes the last one off,
/// "-" begins a negative figure in an empty cell.
void type_count(base::Sheet& hyou_day, int character);

/// The Delete key in the count strip: the count is blanked.
void clear_count(base::Sheet& hyou_day);

} // namespace entry
