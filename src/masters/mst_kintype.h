#pragma once

// mst_kintype, "社員勤務タイプ設定": the form that says which work type each employee follows. A choice is saved the
// moment it is made, so there is no unsaved state; an assignment can be replaced but not taken back.

#include "base/system_number.h"
#include "masters/combo_box.h"
#include "masters/grid_screen.h"

namespace masters {

class mst_kintype : public GridScreen {
public:
    static constexpr QStringView caption = u"社員勤務タイプ設定";

    /// Columns of `hyou`; the last two are hidden. The type is empty where none is assigned, or one that has no rows
    /// any more.
    enum Column { number_col, name_col, type_name_col, employee_col, type_col };

    explicit mst_kintype(frame::Session& session) : GridScreen(session) {}

    ComboBox atai_com; ///< the work types

    // Operations.

    void 書式設定();                   ///< the empty grid
    void 勤務タイプリスト表示();       ///< the types into the list over the cells
    void 社員マスター全呼出();         ///< the employees into the grid, by number
    void 社員勤務種類マスター全呼出(); ///< the type of each; after the two above
    void 入力フォーム() override;
    void 保存処理(base::EmployeeKey employee, base::WorkTypeKey type); ///< nothing if either is 0

    // Acts of the person.

    void Form_Load();

    void atai_com_Click(int item);
    void atai_com_LostFocus() { leave_cell(); }

private:
    void leave_cell() override { atai_com.close(); }
    void follow(int view_width, int view_height) override;
    void press(int) override {} ///< there is no other button
};

} // namespace masters
