#pragma once

// The page of the limits: the month on top, a line an employee with bars in the middle, what is off with the one in
// hand below.

#include "limits/ent_jyougen.h"
#include "ui/parts/acting.h"
#include "ui/parts/picture_button.h"

class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;
class QTableView;

namespace ui {

class LimitsModel;

class ent_jyougen_page : public Acting<QWidget> {
    Q_OBJECT
public:
    /// Loads the form. The session outlives the page.
    explicit ent_jyougen_page(frame::Session& session, QWidget* parent = nullptr);

    const limits::ent_jyougen& form() const { return m_form; }

Q_SIGNALS:
    /// The person left the screen.
    void close_wanted();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPushButton* make_button(const QString& caption, std::function<void()> press);
    PictureButton* make_picture(const frame::Button& button, std::function<void()> press);
    QWidget* make_month();
    QWidget* make_filter_row();
    QWidget* make_employee();
    QCheckBox* make_free(const QString& caption, limits::ent_jyougen::Part part);
    void make_list();
    void change_rules();
    void press(int element);

    int place_in_hand() const;
    void refresh() override;
    void show_employee();
    void widen_nearest();

    frame::Session& m_session;
    limits::ent_jyougen m_form;
    base::EmployeeKey m_in_hand; ///< whose line stays in hand when the list is read anew
    QLabel* m_ym = nullptr;
    QLabel* m_msglab = nullptr;
    QLabel* m_notice;
    LimitsModel* m_employees;
    QTableView* m_list;
    QPlainTextEdit* m_lines = nullptr;
    QCheckBox* m_free_hours = nullptr;
    QCheckBox* m_free_leave = nullptr;
};

} // namespace ui
