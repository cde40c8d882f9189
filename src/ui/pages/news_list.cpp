#include "ui/pages/news_list.h"

#include "base/literals.h"
#include "base/twips.h"
#include "frame/info.h"
#include "ui/pages/news_picture.h"
#include "ui/parts/colours.h"
#include "ui/parts/page_parts.h"
#include "ui/parts/style.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QTimer>
#include <QVBoxLayout>

namespace ui {

using namespace base;

namespace {

constexpr int picture_height = 100;
constexpr int row_margin = 10;

QLabel* plain_label(const QString& text, Lettering as, QWidget* parent) {
    auto* label = new QLabel(parent);
    label->setTextFormat(Qt::PlainText);
    label->setText(text);
    label->setWordWrap(true);
    label->setAttribute(Qt::WA_TransparentForMouseEvents);
    label->setForegroundRole(QPalette::WindowText); // not that of the button that it lies in
    letter(*label, as);
    return label;
}

/// A thin line in the middle of the height.
QWidget* rule_between(int height, QWidget* parent) {
    auto* space = new QWidget(parent);
    space->setFixedHeight(height);
    auto* column = new QVBoxLayout(space);
    column->setContentsMargins(row_margin, 0, row_margin, 0);
    column->addWidget(rule(space, colours::line, 1), 0, Qt::AlignVCenter);
    return space;
}

} // namespace

NewsRow::NewsRow(const Sheet& hyou, int row, bool is_link, QWidget* parent)
    : QAbstractButton(parent), m_is_link(is_link), m_picture(new QLabel(this)) {
    const QString text = QString(hyou(row, frame::news_text)).remove(u'\r');
    setAccessibleName(text);
    setFocusPolicy(is_link ? Qt::TabFocus : Qt::NoFocus);
    if (is_link)
        setCursor(Qt::PointingHandCursor);
    m_picture->setFixedWidth(hyou.ColWidth(frame::news_picture) / twips_a_pixel);
    m_picture->setAlignment(Qt::AlignTop | Qt::AlignHCenter);
    m_picture->setAttribute(Qt::WA_TransparentForMouseEvents);
    auto* words = new QVBoxLayout;
    words->setSpacing(4);
    words->addWidget(plain_label(text, Lettering::Comment, this));
    if (is_link)
        words->addWidget(plain_label(u"詳しく見る ›"_s, Lettering::Link, this));
    words->addStretch(1);
    auto* line = new QHBoxLayout(this);
    line->setContentsMargins(row_margin, row_margin, row_margin, row_margin);
    line->setSpacing(18);
    line->addWidget(m_picture, 0, Qt::AlignTop);
    line->addLayout(words, 1);
}

void NewsRow::show_picture(const QImage& picture) {
    m_has_picture = true;
    QPixmap pixels = QPixmap::fromImage(picture);
    pixels.setDevicePixelRatio(devicePixelRatioF());
    m_picture->setPixmap(pixels);
}

QSize NewsRow::picture_room() const {
    return QSize(m_picture->width(), picture_height) * devicePixelRatioF();
}

void NewsRow::paintEvent(QPaintEvent*) {
    if (!m_is_link || (!underMouse() && !hasFocus()))
        return;
    constexpr qreal rounding = 5;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(hasFocus() ? QPen(QColor::fromRgb(colours::accent)) : QPen(Qt::NoPen));
    painter.setBrush(QColor::fromRgb(isDown() ? colours::row_in_hand_idle : colours::fixed));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), rounding, rounding);
}

void NewsRow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        click();
    else
        QAbstractButton::keyPressEvent(event);
}

void NewsRow::enterEvent(QEnterEvent* event) {
    QAbstractButton::enterEvent(event);
    update();
}

void NewsRow::leaveEvent(QEvent* event) {
    QAbstractButton::leaveEvent(event);
    update();
}

NewsList::NewsList(const Sheet& hyou, NewsActs acts, QWidget* parent)
    : QScrollArea(parent), m_hyou(hyou), m_acts(std::move(acts)), m_content(new QWidget),
      m_column(new QVBoxLayout(m_content)) {
    setWidget(m_content);
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    const QPalette white(QColor::fromRgb(colours::ground));
    for (QWidget* ground : {viewport(), m_content}) {
        ground->setPalette(white);
        ground->setAutoFillBackground(true);
    }
    m_column->setContentsMargins(no_margins);
    m_column->setSpacing(0);
}

void NewsList::refresh() {
    QStringList texts;
    for (int row = 0; row < m_hyou.Rows(); ++row)
        texts << m_hyou(row, frame::news_text) << m_hyou(row, frame::news_link);
    if (texts != m_shown) {
        m_shown = texts;
        make_rows();
    }
    const bool reading = !m_unread.isEmpty();
    m_unread.clear();
    for (const auto& [row, widget] : m_rows.asKeyValueRange())
        if (!widget->has_picture() && !m_hyou(row, frame::news_picture).isEmpty())
            m_unread << row;
    if (!reading)
        read_later();
}

void NewsList::make_rows() {
    m_rows.clear();
    while (QLayoutItem* old = m_column->takeAt(0)) {
        delete old->widget();
        delete old;
    }
    for (int row = 0; row < m_hyou.Rows(); ++row) {
        const bool between = m_hyou.RowHeight(row) != Sheet::default_row_height;
        if (between) {
            m_column->addWidget(rule_between(m_hyou.RowHeight(row) / twips_a_pixel, m_content));
            continue;
        }
        auto* widget = new NewsRow(m_hyou, row, m_acts.is_link(row), m_content);
        connect(widget, &NewsRow::clicked, this, [this, row] { m_acts.hyou_Click(row); });
        m_column->addWidget(widget);
        m_rows.insert(row, widget);
        widget->show();
    }
    m_column->addStretch(1);
}

void NewsList::read_later() {
    if (!m_unread.isEmpty())
        QTimer::singleShot(0, this, [this] { read_next_picture(); });
}

void NewsList::read_next_picture() {
    if (m_unread.isEmpty())
        return;
    const int row = m_unread.takeFirst();
    NewsRow* widget = m_rows.value(row);
    const QImage picture = read_news_picture(m_hyou(row, frame::news_picture), widget->picture_room());
    if (picture.isNull())
        m_acts.drop_picture(row);
    else
        widget->show_picture(picture);
    read_later();
}

} // namespace ui
