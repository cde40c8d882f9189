#pragma once

// mst_kyuka, "休暇": the form of the day kinds that can be put on a day in place of normal work. Each kind is leave or
// attendance, and each class should have a standard one; nothing keeps the mark unique. An empty `atai`(0) is a new
// kind, a filled one the kind in hand. Saving is a delete and an add.

#include "masters/field_screen.h"

namespace masters {

class mst_kyuka : public FieldScreen {
public:
    static constexpr QStringView caption = u"休暇";
    static constexpr QStringView list_label = u"休暇・出勤";
    static constexpr QStringView ch_hyou_caption = u"標準";
    static constexpr QStringView ch_hyou_label = u"標準設定";
    static constexpr QStringView Op_kyusyu_captions[] = {u"休暇", u"出勤"};

    /// Elements of `atai`: number, name, standard mark (0 or not), day class (0 leave, 1 attendance; empty counts as
    /// 0).
    enum Field { key_field, name_field, mark_field, class_field };

    /// Mode of 休暇リスト登録.
    enum Mode { Save = 0, Delete = 1 };

    explicit mst_kyuka(frame::Session& session) : FieldScreen(session) {}

    bool ch_hyou = false;
    int Op_kyusyu = 0; ///< the element selected

    // Operations.

    void 書式設定_休暇リスト();    ///< the empty list
    void 休暇マスターリスト表示(); ///< attendance before leave, standard ones before the others, then by number
    void 休暇リスト転記();         ///< from the row of `hyou` under the cursor; nothing on the heading
    /// Saves or deletes the kind in `atai` and begins a new one. A missing name is told, and there is nothing to delete
    /// of a new kind: then all stays as it is.
    void 休暇リスト登録(int mode);

    // Acts of the person.

    void Form_Load();

    void hyou_Click(int row);
    void ch_hyou_Click(bool ticked);
    void Op_kyusyu_Click(int element);

    bool atai_KeyDown(int key_code); ///< Enter leads to `toubotan`; whether it was that
    bool toubotan_KeyDown(int key_code);

private:
    void press(int element) override;
    void rows_are_back() override;
    bool complete(int mode);
    void save();
    void delete_row();
    void start_new_row();
};

} // namespace masters
