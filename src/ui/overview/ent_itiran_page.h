#pragma once

// The page of the month overview: the month and its filter on top, the picture below, the buttons at the foot.

#include "overview/ent_itiran.h"
#include "ui/paper/print_shop.h"
#include "ui/parts/acting.h"
#include "ui/parts/picture_button.h"

#include <QTimer>

class QCheckBox;
class QHBoxLayout;
class QLabel;
class QPushButton;

namespace ui {

class GridView;

class ent_itiran_page : public Acting<QWidget> {
    Q_OBJECT
public:
    /// Loads the form. Session and month in hand outlive the page.
    ent_itiran_page(frame::Session& session, frame::MonthInHand& in_hand, QWidget* parent = nullptr);

    const overview::ent_itiran& form() const { return m_form; }

Q_SIGNALS:
    /// The person left the screen.
    void close_wanted();
    /// The person wants to see a day in attendance entry.
    void day_wanted(const frame::MonthInHand& day);

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* make_month_row();
    QWidget* make_standing_row();
    void make_foot(QHBoxLayout* foot);
    QPushButton* make_button(const QString& caption, std::function<void()> press);
    PictureButton* make_picture(const frame::Button& button, std::function<void()> press);
    void connect_keys();
    void look_on();
    void show_preview();
    void open_closing();
    void close_or_reopen(bool close);

    void refresh() override;
    void show_standing();

    frame::Session& m_session;
    DesktopPrintShop m_shop;
    overview::ent_itiran m_form;
    GridView* m_hyou;
    QLabel* m_month = nullptr;
    QLabel* m_standing = nullptr;
    QCheckBox* m_only_off = nullptr;
    QPushButton* m_closing = nullptr;
    QLabel* m_msglab = nullptr;
    QTimer m_looking; ///< the look goes on whenever nothing else is to be done
};

} // namespace ui
