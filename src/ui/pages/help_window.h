#pragma once

// The help pages in a window of the program's own, for a desktop where no browser opens them. It reads the same files
// as a browser does; of their style it takes window.css, beside style.css, which says what can be shown here.

#include <QWidget>

class QTextBrowser;
class QUrl;

namespace ui {

class HelpWindow : public QWidget {
    Q_OBJECT
public:
    /// Shows no page yet. The window doesn't keep the program from ending.
    HelpWindow();

    /// Shows the page at the place that the address names and comes before the other windows. One that isn't there is
    /// told on the page.
    void show_page(const QUrl& page);

    QTextBrowser* browser() const { return m_browser; }

private:
    QTextBrowser* m_browser;
};

/// A help page in the words that the window understands: parts of a page become blocks with a class of that name.
QString page_in_blocks(QString html);

} // namespace ui
