#pragma once

// The information page: what the frame opens with. It has to be there at once, so news, pictures and the network wait
// until it has been painted for the first time.

#include "frame/http_fetch.h"
#include "frame/info.h"

#include <QWidget>
#include <functional>

class QCheckBox;
class QLabel;
class QPushButton;

namespace ui {

class Card;
class NewsList;

class info_page : public QWidget {
    Q_OBJECT
public:
    /// `show_errors` opens the list of the messages; without it the page doesn't speak of them.
    info_page(frame::Session& session, std::function<void()> show_errors, QWidget* parent = nullptr);

    frame::info& form() { return m_form; }
    NewsList& hyou() { return *m_hyou; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QWidget* make_head();
    QWidget* make_notice();
    QWidget* make_guide();
    QWidget* make_news();
    QWidget* make_foot();
    void refresh();
    void show_page_picture();

    frame::Session& m_session;
    std::function<void()> m_show_errors;
    frame::HttpFetch m_fetch;
    frame::info m_form;
    bool m_painted = false;

    QWidget* m_content;
    QWidget* m_notice_band;
    QPushButton* m_notice;
    Card* m_pic_info;
    QPushButton* m_osirase;
    QPushButton* m_down;
    QLabel* m_no_news;
    NewsList* m_hyou;
    QLabel* m_page_picture;
    QCheckBox* m_intjyuflg;
};

} // namespace ui
