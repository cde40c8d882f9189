#pragma once

// FieldPage: a master page of text boxes beside a list, after masters::FieldScreen. `toubotan` takes keys here.

#include "masters/field_screen.h"
#include "ui/masters/master_page.h"
#include "ui/parts/field_box.h"

#include <QGridLayout>

namespace ui {

class FieldPage : public MasterPage {
    Q_OBJECT
public:
    /// Null for element 0, the number that nobody types, and for what the master has no field for.
    FieldBox* atai(int element) const { return m_atai[element]; }
    GridView* hyou() const { return m_hyou; }

protected:
    using Key = std::function<bool(int key_code)>;

    FieldPage(frame::Session& session, MasterName name, QWidget* parent);

    virtual masters::FieldScreen& form_of_fields() = 0;
    masters::Screen& screen() override { return form_of_fields(); }
    QWidget* control(masters::Focus wish) override { return m_atai[wish.element]; }
    void show_form() override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void activate() override;

    /// The list with what stands over it, and the column of the boxes beside it.
    void add_list(QLayout* above, std::function<void(int row)> choose);
    /// `element` from 1. `key_down` gives back whether the form took the key.
    void add_box(int element, QStringView label, FieldText text, Key key_down);
    void add_row(QStringView label, QLayout* controls);
    /// After the last row: the room below and the buttons at the foot.
    void close_fields();
    void set_toubotan_key(Key key_down) { m_toubotan_key = std::move(key_down); }

private:
    bool toubotan_takes(QEvent* event);

    GridView* m_hyou = nullptr;
    QGridLayout* m_fields;
    std::array<FieldBox*, 4> m_atai{};
    Key m_toubotan_key;
};

} // namespace ui
