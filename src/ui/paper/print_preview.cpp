#include "ui/paper/print_preview.h"

#include "base/literals.h"
#include "reports/pages/page_layouts.h"
#include "reports/printing/print.h"
#include "ui/paper/print_page_view.h"

#include <QDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace ui {

using namespace base;

namespace {

constexpr QSize usual_size(900, 760);
constexpr QSize frame_around(16, 56);  ///< what the desktop puts around a window, its title among it
constexpr QSize ground_around(16, 16); ///< stays in view beside a page that is shown whole
constexpr double zoom_step = 1.25;
constexpr double smallest_zoom = 0.25;
constexpr double largest_zoom = 4;

class PreviewDialog : public QDialog {
public:
    PreviewDialog(const reports::Pages& pages, reports::Place offset, reports::Orientation orientation, QWidget* parent)
        : QDialog(parent), m_count(int(pages.size())), m_view(new PrintPageView(pages, offset, orientation)) {
        setWindowTitle(u"印刷プレビュー"_s);
        resize(usual_size.boundedTo(screen()->availableSize() - frame_around));
        m_scroll->setWidget(m_view);
        m_scroll->setAlignment(Qt::AlignCenter);
        m_scroll->setBackgroundRole(QPalette::Mid);
        auto* column = new QVBoxLayout(this);
        column->addLayout(make_buttons());
        column->addWidget(m_scroll);
        turn_to(0);
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QDialog::resizeEvent(event);
        if (m_fits)
            fit();
    }

    void keyPressEvent(QKeyEvent* event) override {
        if (event->key() == Qt::Key_PageDown)
            turn_to(m_view->page() + 1);
        else if (event->key() == Qt::Key_PageUp)
            turn_to(m_view->page() - 1);
        else
            QDialog::keyPressEvent(event);
    }

private:
    template <typename Act>
    QPushButton* button(const QString& text, QLatin1StringView name, Act act) {
        auto* made = new QPushButton(text, this);
        made->setObjectName(name);
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, act);
        return made;
    }

    QLayout* make_buttons() {
        m_back = button(u"前のページ"_s, "back"_L1, [this] { turn_to(m_view->page() - 1); });
        m_forward = button(u"次のページ"_s, "forward"_L1, [this] { turn_to(m_view->page() + 1); });
        m_place->setObjectName(u"place"_s);
        auto* row = new QHBoxLayout;
        row->addWidget(m_back);
        row->addWidget(m_place);
        row->addWidget(m_forward);
        row->addSpacing(zoom_gap);
        row->addWidget(button(u"全体表示"_s, "fit"_L1, [this] { fit(); }));
        row->addWidget(button(u"拡大"_s, "larger"_L1, [this] { zoom(m_view->zoom() * zoom_step); }));
        row->addWidget(button(u"縮小"_s, "smaller"_L1, [this] { zoom(m_view->zoom() / zoom_step); }));
        row->addStretch();
        row->addWidget(button(u"印刷"_s, "print"_L1, [this] { accept(); }));
        row->addWidget(button(u"閉じる"_s, "close"_L1, [this] { reject(); }));
        return row;
    }

    void turn_to(int page) {
        m_view->set_page(page);
        m_place->setText(u"%1 / %2 ページ"_s.arg(m_view->page() + 1).arg(m_count));
        m_back->setEnabled(m_view->page() > 0);
        m_forward->setEnabled(m_view->page() + 1 < m_count);
        m_scroll->verticalScrollBar()->setValue(0);
    }

    void fit() {
        m_fits = true;
        m_view->set_zoom(m_view->zoom_to_fit(m_scroll->maximumViewportSize() - ground_around));
    }

    void zoom(double wanted) {
        m_fits = false;
        m_view->set_zoom(std::clamp(wanted, smallest_zoom, largest_zoom));
    }

    static constexpr int zoom_gap = 24;

    int m_count;
    bool m_fits = true; ///< the page follows the size of the window
    PrintPageView* m_view;
    QScrollArea* m_scroll = new QScrollArea(this);
    QLabel* m_place = new QLabel(this);
    QPushButton* m_back = nullptr;
    QPushButton* m_forward = nullptr;
};

} // namespace

bool preview_pages(const reports::Pages& pages, reports::Layout layout, frame::Session& session, QWidget* parent) {
    if (pages.empty()) {
        session.host.tell(reports::no_pages.toString(), u"印刷プレビュー"_s);
        return false;
    }
    const reports::Place offset = reports::print_offset({}, reports::printer_setting(layout, session.tables));
    PreviewDialog dialog(pages, offset, reports::印刷設定取得(layout).orientation, parent);
    return dialog.exec() == QDialog::Accepted;
}

bool preview(const reports::Report& report, frame::Session& session, reports::PrintShop& shop, QWidget* parent) {
    const reports::Pages pages = reports::pages_of(report, session.host.now().date());
    return preview_pages(pages, reports::layout_of(report), session, parent) &&
           reports::print(report, session, shop) == reports::Printed::Yes;
}

} // namespace ui
