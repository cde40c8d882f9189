#pragma once

// The page of the settings: what all PCs share above, what belongs to this PC below.

#include "setup/mst_kihon.h"
#include "ui/masters/master_page.h"
#include "ui/parts/field_box.h"

#include <QButtonGroup>
#include <QCheckBox>

class QGridLayout;
class QPushButton;

namespace ui {

class PrinterBox;

class mst_kihon_page : public MasterPage {
    Q_OBJECT
public:
    explicit mst_kihon_page(frame::Session& session, QWidget* parent = nullptr);

    const setup::mst_kihon& form() const { return m_form; }
    FieldBox* atai(int element) const { return m_atai[element]; } ///< null for an element that has no box of its own
    QAbstractButton* waseireki(int element) const { return m_waseireki->button(element); }
    QCheckBox* ck() const { return m_ck; }
    PrinterBox* prconb() const { return m_prconb; }

protected:
    frame::Screen& screen() override { return m_form; }
    void show_form() override;
    QWidget* control(frame::Focus wish) override { return m_atai[wish.element]; }

private:
    QWidget* make_shared();
    QWidget* make_of_this_pc();
    QLayout* make_waseireki();
    QPushButton* make_own_holidays(QWidget* parent);
    FieldBox* make_atai(int element, QStringView name);

    frame::Session& m_session;
    setup::mst_kihon m_form;
    std::array<FieldBox*, setup::mst_kihon::element_count> m_atai{}; ///< null for the hidden mirrors
    QButtonGroup* m_waseireki;
    QCheckBox* m_ck;
    PrinterBox* m_prconb;
    QLabel* m_in_force;
    QLabel* m_msglab;
};

} // namespace ui
