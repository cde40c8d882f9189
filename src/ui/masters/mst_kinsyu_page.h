#pragma once

// The page of the work categories: one grid of names, typed one below the other.

#include "masters/mst_kinsyu.h"
#include "ui/masters/master_page.h"

namespace ui {

class mst_kinsyu_page : public MasterPage {
    Q_OBJECT
public:
    explicit mst_kinsyu_page(frame::Session& session, QWidget* parent = nullptr);

    const masters::mst_kinsyu& form() const { return m_form; }

protected:
    masters::Screen& screen() override { return m_form; }
    void show_form() override;
    QWidget* control(masters::Focus) override { return m_atai; }
    void activate() override;

private:
    masters::mst_kinsyu m_form;
    GridView* m_hyou;
    CellEditor* m_atai;
};

} // namespace ui
