#pragma once

// The page of the work types: the list of types at the left, the bands of the chosen day at the right, and under them
// the day as a picture that follows the grid as it is typed.

#include "masters/mst_kinjikan.h"
#include "ui/masters/choice_list.h"
#include "ui/masters/master_page.h"

namespace ui {

class DayLine;
class FieldBox;

class mst_kinjikan_page : public MasterPage {
    Q_OBJECT
public:
    explicit mst_kinjikan_page(frame::Session& session, QWidget* parent = nullptr);

    const masters::mst_kinjikan& form() const { return m_form; }

protected:
    masters::Screen& screen() override { return m_form; }
    void show_form() override;
    QWidget* control(masters::Focus wish) override;
    void activate() override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void make_grids();
    void make_editors();
    QLayout* make_name_row();
    QLayout* make_work();
    ChoiceList* make_list(int element);
    QStringList category_names() const;

    masters::mst_kinjikan m_form;
    GridView* m_hyoulist;
    GridView* m_hyou_youbi;
    GridView* m_hyou;
    FieldBox* m_kinjikanmei;
    DayLine* m_picture;
    QLabel* m_kinjino;
    QLabel* m_notelab;
    StandingLine* m_rules;
    QLabel* m_msglab;
    CellEditor* m_atai;
    std::array<ChoiceList*, 2> m_atai_com;
};

} // namespace ui
