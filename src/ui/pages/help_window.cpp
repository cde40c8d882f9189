#include "ui/pages/help_window.h"

#include "base/literals.h"
#include "ui/parts/page_parts.h"

#include <QFile>
#include <QHBoxLayout>
#include <QImage>
#include <QPushButton>
#include <QShortcut>
#include <QTextBrowser>
#include <QUrl>

namespace ui {

using namespace base;

namespace {

constexpr QSize usual_size(900, 680);
constexpr int beside_pictures = 60; ///< pixels: the margins of a page and the scroll bar
constexpr QStringView parts_of_a_page[] = {u"header", u"nav", u"main", u"footer", u"figure", u"figcaption"};

/// Reads the pages for itself, so that they come in the window's words, its style and its width.
class HelpBrowser : public QTextBrowser {
public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& name) override {
        const QUrl url = document()->baseUrl().resolved(name);
        switch (type) {
        case QTextDocument::HtmlResource:
            return page(url);
        case QTextDocument::StyleSheetResource:
            return QTextBrowser::loadResource(type, url.resolved(QUrl(u"window.css"_s)));
        case QTextDocument::ImageResource:
            return picture(url);
        }
        return {};
    }

private:
    static QString page(const QUrl& url) {
        QFile file(url.toLocalFile());
        if (!file.open(QIODevice::ReadOnly))
            return u"<p>ページがありません：%1</p>"_s.arg(url.toLocalFile().toHtmlEscaped());
        return page_in_blocks(QString::fromUtf8(file.readAll()));
    }

    QImage picture(const QUrl& url) const {
        const QImage whole(url.toLocalFile());
        const int room = width() - beside_pictures;
        return whole.width() > room ? whole.scaledToWidth(room, Qt::SmoothTransformation) : whole;
    }
};

} // namespace

HelpWindow::HelpWindow() : m_browser(new HelpBrowser(this)) {
    setAttribute(Qt::WA_QuitOnClose, false);
    resize(usual_size);
    m_browser->setFrameShape(QFrame::NoFrame);
    auto* back = new QPushButton(u"戻る"_s, this);
    auto* end = new QPushButton(u"閉じる"_s, this);
    back->setEnabled(false);
    auto* row = new QHBoxLayout;
    row->setContentsMargins(page_margin, page_gap, page_margin, 0);
    row->addWidget(back);
    row->addStretch();
    row->addWidget(end);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(no_margins);
    column->addLayout(row);
    column->addWidget(m_browser, 1);
    connect(back, &QPushButton::clicked, m_browser, &QTextBrowser::backward);
    connect(end, &QPushButton::clicked, this, &QWidget::close);
    connect(new QShortcut(Qt::Key_Escape, this), &QShortcut::activated, this, &QWidget::close);
    connect(m_browser, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    connect(m_browser, &QTextBrowser::sourceChanged, this, [this] { setWindowTitle(m_browser->documentTitle()); });
}

void HelpWindow::show_page(const QUrl& page) {
    show();
    m_browser->setSource(page);
    m_browser->setFocus();
    raise();
    activateWindow();
}

QString page_in_blocks(QString html) {
    for (const QStringView part : parts_of_a_page) {
        html.replace(u"<%1>"_s.arg(part), u"<div class=\"%1\">"_s.arg(part));
        html.replace(u"</%1>"_s.arg(part), u"</div>"_s);
    }
    html.replace(u"rel=\"stylesheet\""_s, u"rel=\"stylesheet\" type=\"text/css\""_s);
    return html.replace(u"<table>"_s, u"<table width=\"99%\" cellspacing=\"0\">"_s);
}

} // namespace ui
