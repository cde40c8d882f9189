#pragma once

// The page of the day kinds: their list, and name, class and standard mark of the one in hand.

#include "masters/mst_kyuka.h"
#include "ui/masters/field_page.h"

#include <QButtonGroup>
#include <QCheckBox>

namespace ui {

class mst_kyuka_page : public FieldPage {
    Q_OBJECT
public:
    explicit mst_kyuka_page(frame::Session& session, QWidget* parent = nullptr);

    const masters::mst_kyuka& form() const { return m_form; }

protected:
    masters::FieldScreen& form_of_fields() override { return m_form; }
    void show_form() override;

private:
    QLayout* make_classes();
    QLayout* make_mark();

    masters::mst_kyuka m_form;
    QButtonGroup* m_Op_kyusyu = nullptr;
    QCheckBox* m_ch_hyou;
};

} // namespace ui
