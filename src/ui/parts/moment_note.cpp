#include "ui/parts/moment_note.h"

#include "ui/parts/colours.h"

#include <QAccessible>
#include <QApplication>
#include <algorithm>

namespace ui {

namespace {

constexpr int letters = 13; ///< pixels
constexpr int air = 4;      ///< around the words, and between the note and its place
constexpr std::chrono::seconds moment(6);

} // namespace

MomentNote::MomentNote(QWidget& page) : QLabel(&page) {
    setObjectName("moment_note");
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFrameShape(QFrame::Box);
    setAutoFillBackground(true);
    setMargin(air);
    QFont own = font();
    own.setPixelSize(letters);
    setFont(own);
    QPalette colours = palette();
    colours.setColor(QPalette::Window, QColor::fromRgb(colours::notice));
    colours.setColor(QPalette::WindowText, QColor::fromRgb(colours::text));
    setPalette(colours);
    m_moment.setSingleShot(true);
    connect(&m_moment, &QTimer::timeout, this, &QWidget::hide);
    hide();
}

void MomentNote::say(const QString& words, const QWidget& beside, QRect place) {
    if (words == m_said)
        return;
    m_said = words;
    setText(words);
    if (words.isEmpty()) {
        hide();
        return;
    }
    lay({beside.mapTo(parentWidget(), place.topLeft()), place.size()});
    m_moment.start(moment);
    QAccessibleEvent said(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&said);
}

/// Where the keyboard is on the page; no place if it is elsewhere.
QRect MomentNote::box_in_hand() const {
    const QWidget* box = QApplication::focusWidget();
    return box && parentWidget()->isAncestorOf(box) ? QRect(box->mapTo(parentWidget(), QPoint()), box->size())
                                                    : QRect();
}

void MomentNote::lay(QRect beside) {
    const QRect page = parentWidget()->rect().adjusted(air, air, -air, -air);
    setWordWrap(false);
    setWordWrap(sizeHint().width() > page.width());
    const int width = std::min(sizeHint().width(), page.width());
    QRect own(0, 0, width, wordWrap() ? heightForWidth(width) : sizeHint().height());
    own.moveLeft(std::clamp(beside.left(), page.left(), page.right() + 1 - width));
    own.moveTop(beside.top() - own.height() - air);
    if (own.top() < page.top() || own.intersects(box_in_hand()))
        own.moveTop(beside.bottom() + 1 + air);
    setGeometry(own);
    raise();
    show();
}

} // namespace ui
