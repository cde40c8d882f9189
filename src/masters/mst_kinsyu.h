#pragma once

// mst_kinsyu: the form of the work categories, a grid of one column that saves each row as the cursor leaves it.
//
// A row is saved only if it carries the change mark, and only a change that lands on a filled cell sets the mark. A
// new name that arrives in one single change (one key, one paste, one conversion of the input method) is therefore not
// saved until it is changed once more. This is how the screen works, not a slip.

#include "base/notice.h"
#include "masters/grid_screen.h"

namespace masters {

class mst_kinsyu : public EditorScreen {
public:
    /// Columns of `hyou`: number (hidden, empty on a row never saved), name, change mark (hidden, "1" or empty).
    /// Rows: heading, one a category, one empty row for a new entry.
    enum Column { number_col, name_col, mark_col };

    /// Said of a row that was left with a name and isn't saved; until the next key.
    std::optional<base::Notice<base::Cell>> notice;

    explicit mst_kinsyu(frame::Session& session);

    // Operations.

    void 書式設定();     ///< the empty grid
    void マスター呼出(); ///< the rows from the table, by number
    void 入力フォーム() override;
    void マスター登録(int row); ///< writes a marked row, draws its number if it has none, and takes the mark away
    void マスター削除(); ///< the row under the cursor, if the person says yes; nothing on the heading or an empty one

    bool mark_unregistered() override; ///< a name without a number too, which leaving the cell doesn't save

    // Acts of the person.

    void Form_Load();
    void Form_Activate(); ///< the box takes row 1 unseen, so that typing at once lands there

    void atai_Change(const QString& text); ///< one change of the box's text: a key, a paste, a committed conversion

private:
    void say_if_not_saved(int row);
    void leave_cell() override;
    void rows_are_back() override;
    void press(int element) override; ///< 2 deletes; 1 does nothing more, since leaving the cell is what saves
};

} // namespace masters
