#pragma once

// The page that gives each employee a work type: a list of the employees with a list of the types over its last column.

#include "masters/mst_kintype.h"
#include "ui/masters/choice_list.h"
#include "ui/masters/master_page.h"

namespace ui {

class mst_kintype_page : public MasterPage {
    Q_OBJECT
public:
    explicit mst_kintype_page(frame::Session& session, QWidget* parent = nullptr);

    const masters::mst_kintype& form() const { return m_form; }

protected:
    masters::Screen& screen() override { return m_form; }
    void show_form() override;
    QWidget* control(masters::Focus) override { return m_atai_com; }
    void activate() override;

private:
    masters::mst_kintype m_form;
    GridView* m_hyou;
    ChoiceList* m_atai_com;
};

} // namespace ui
