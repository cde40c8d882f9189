#pragma once

// The row of conditions on the report screen: month, dates, employees and two check boxes, as far as the report has
// them.

#include "reports/rov_01.h"
#include "ui/parts/field_box.h"
#include "ui/parts/key_stop.h"
#include "ui/parts/month_box.h"

#include <QCheckBox>
#include <QLineEdit>

class QHBoxLayout;
class QLabel;

namespace ui {

class rov_01_conditions : public QWidget {
    Q_OBJECT
public:
    /// Runs an act of the person and shows what it came to.
    using Act = std::function<void(const std::function<void()>&)>;

    /// The form outlives the row.
    rov_01_conditions(reports::rov_01& form, Act act, QWidget* parent);

    void refresh();
    /// The box or stop of a wish; null for `karibotan`, which stands elsewhere.
    QWidget* control(reports::Wish wish) const;

    FieldBox* tancd(int element) const { return m_tancd[element]; }
    QLineEdit* ntancd(int element) const { return m_ntancd[element]; }
    FieldBox* ymd(int element) const { return m_ymd[element]; }
    MonthBox* yyyymm(int element) const { return m_yyyymm[element]; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* make_panel(QStringView label, QHBoxLayout*& row);
    void make_months();
    void make_dates();
    void make_employees();
    QCheckBox* make_check(QStringView caption, void (reports::rov_01::*click)(bool));
    FieldBox* make_employee(int element);
    FieldBox* make_date(int element);
    MonthBox* make_month(int element);
    KeyStop* make_stop();
    bool press(const std::function<bool()>& key);

    reports::rov_01& m_form;
    Act m_act;
    QLabel* m_help; ///< how the boxes are filled in
    QWidget* m_Pic_yyyymm = nullptr;
    QWidget* m_pic_ymd_t1 = nullptr;
    QWidget* m_pic_tantou = nullptr;
    std::array<MonthBox*, 2> m_yyyymm{};
    std::array<FieldBox*, 2> m_ymd{};
    std::array<FieldBox*, 2> m_tancd{};
    std::array<QLineEdit*, 2> m_ntancd{};
    QCheckBox* m_print_zero;
    QCheckBox* m_print_flg;
    KeyStop* m_botabox;
    KeyStop* m_toubotan;
};

} // namespace ui
