#pragma once

// mst_syain, "社員マスター": the form of the employees. It reads `syain` from `rovdata.mdb` and writes through
// 全体マスター変更処理 into every data file of the suite. An empty `atai`(0) is a new employee, a filled one the
// employee shown.

#include "common/employee_order.h"
#include "masters/employee_copies.h"
#include "masters/field_screen.h"

namespace masters {

class mst_syain : public FieldScreen {
public:
    static constexpr QStringView caption = u"社員マスター";
    static constexpr const auto& sortlist_captions = common::employee_order_captions;
    static constexpr QStringView Command1_caption = u"抽出";

    /// Elements of `atai`.
    enum Field { key_field, number_field, name_field, reading_field };

    /// Mode of 全体マスター変更処理: any other value saves too.
    enum Mode { Save = 0, SaveByEnter = 1, Delete = 3 };

    explicit mst_syain(frame::Session& session) : FieldScreen(session) {}

    base::Sheet hyou_syain{0, 2}; ///< the whole row on screen: field names and values, whatever fields there are
    int sortlist = 0;             ///< the element selected
    QString notice; ///< of the number that was left, if somebody else in the list has it as well; until the next key

    // Operations.

    void 書式設定_社員リスト();       ///< the empty list
    void 社員マスター全呼出();        ///< those with a `社員番号`, in the order of `sortlist`
    void 社員表示処理(qint64 number); ///< nothing for 0; one that isn't there any more clears the boxes
    void 画面クリア();                ///< the four boxes
    /// Saves or deletes the employee in `atai`, clears the boxes and reads the list anew. A new one draws a number
    /// first, also to be deleted: it is lost then. A new one without a name is told, and nothing is done.
    void 全体マスター変更処理(int mode);

    // Acts of the person.

    void Form_Load();

    void hyou_Click(int row);
    void Command1_Click();
    void sortlist_Click(int element); ///< only kept as a setting; the list follows with the next "抽出"

    void atai_Change(int element, const QString& text) override;
    void atai_LostFocus(int element) override;
    bool atai_KeyDown(int element, int key_code); ///< whether the key moved the keyboard
    bool toubotan_KeyDown(int key_code);

private:
    void press(int element) override;
    void rows_are_back() override;
    void delete_employee(qint64 number);
    bool prepare_new_row();
    void show_field(const FieldText& field);
};

} // namespace masters
