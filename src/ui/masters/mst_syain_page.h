#pragma once

// The page of the employees: their list, and number, name and reading of the one in hand.

#include "masters/mst_syain.h"
#include "ui/masters/field_page.h"

#include <QButtonGroup>

namespace ui {

class mst_syain_page : public FieldPage {
    Q_OBJECT
public:
    explicit mst_syain_page(frame::Session& session, QWidget* parent = nullptr);

    const masters::mst_syain& form() const { return m_form; }

protected:
    masters::FieldScreen& form_of_fields() override { return m_form; }
    void show_form() override;

private:
    QLayout* make_order_row();

    masters::mst_syain m_form;
    QButtonGroup* m_sortlist;
};

} // namespace ui
