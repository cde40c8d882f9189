#pragma once

// The page of the six reports: conditions on top, the sheet in the middle, the buttons at the foot.

#include "ui/grid/grid_view.h"
#include "ui/pages/rov_01_conditions.h"
#include "ui/paper/print_shop.h"
#include "ui/parts/acting.h"
#include "ui/parts/picture_button.h"

#include <QPointer>

class QVBoxLayout;

namespace ui {

class MomentNote;
class ken_mst_dialog;

class rov_01_page : public Acting<QWidget> {
    Q_OBJECT
public:
    /// Shows the report that the frame says.
    rov_01_page(frame::Session& session, frame::mainform& main_form, QWidget* parent = nullptr);
    ~rov_01_page() override;

    const reports::rov_01& form() const { return m_form; }
    rov_01_conditions& conditions() { return *m_conditions; }
    GridView* hyou() const { return m_hyou; }
    QWidget* karibotan() const { return m_karibotan; }
    PictureButton* botan(int element) const { return m_botan[element]; }
    PictureButton* preview() const { return m_preview; }
    QWidget* Image1() const;  ///< the heading picture
    QWidget* pic_msg() const; ///< the headings over the sheet, in sight where the form says so
    /// The search that is open; null if none is.
    ken_mst_dialog* search() const;

Q_SIGNALS:
    /// The person left the screen.
    void close_wanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void make_head(QHBoxLayout* head);
    void make_sheets(QVBoxLayout* body);
    void make_foot(QHBoxLayout* foot);
    PictureButton* make_button(const frame::Button& button, std::function<void()> press);
    reports::rov_01::Windows windows();
    void open_search(int mode, int element);
    void close_search();

    void press(const std::function<void()>& button);
    void refresh() override;
    void show_texts();
    void show_notice();
    void fit_sheets();
    void follow_focus_wish();

    frame::Session& m_session;
    frame::mainform& m_mainform;
    DesktopPrintShop m_shop;
    reports::rov_01 m_form;
    QPointer<ken_mst_dialog> m_search;

    rov_01_conditions* m_conditions;
    QLabel* m_Image1;
    QLabel* m_chulab;
    QWidget* m_pic_msg;
    std::array<QLabel*, 5> m_midasi{};
    GridView* m_hyou;
    GridView* m_hyou_day;
    QWidget* m_karibotan; ///< takes the focus when a button is pressed, so that the box in hand is left
    std::array<PictureButton*, 3> m_botan{};
    PictureButton* m_preview = nullptr;
    PictureButton* m_csvex = nullptr;
    QLabel* m_jyoulab;
    QLabel* m_msg_tai;
    QLabel* m_said; ///< what a box blanked or put back, until the next key
    MomentNote* m_note;
};

} // namespace ui
