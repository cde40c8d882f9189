#pragma once

// The page of the messages that the exchange side has left.

#include "reports/errform.h"
#include "ui/grid/grid_view.h"
#include "ui/paper/print_shop.h"
#include "ui/parts/acting.h"
#include "ui/parts/picture_button.h"

class QLabel;

namespace ui {

class errform_page : public Acting<QWidget> {
    Q_OBJECT
public:
    /// Loads the form. The session outlives the page.
    explicit errform_page(frame::Session& session, QWidget* parent = nullptr);

    const reports::errform& form() const { return m_form; }
    PictureButton* botan(int element) const { return m_botan[element]; }

Q_SIGNALS:
    /// The person left the screen.
    void close_wanted();

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    PictureButton* make_button(const frame::Button& button, std::function<void()> press);
    void press(int element);
    void refresh() override;

    frame::Session& m_session;
    DesktopPrintShop m_shop;
    reports::errform m_form;
    GridView* m_hyou;
    QLabel* m_msg_tai;
    std::array<PictureButton*, 2> m_botan{};
};

} // namespace ui
