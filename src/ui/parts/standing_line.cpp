#include "ui/parts/standing_line.h"

#include "ui/parts/page_parts.h"
#include "ui/parts/style.h"

#include <QHBoxLayout>
#include <algorithm>

namespace ui {

StandingLine::StandingLine(QStringView button, QWidget* parent)
    : QWidget(parent), m_words(new QLabel(this)), m_button(new QPushButton(button.toString(), this)) {
    letter(*m_words, Lettering::Comment);
    m_words->setTextFormat(Qt::PlainText);
    m_words->setWordWrap(true);
    m_button->setAutoDefault(false);
    m_button->setFocusPolicy(Qt::TabFocus);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(no_margins);
    row->setSpacing(page_gap);
    row->addWidget(m_words, 1);
    row->addWidget(m_button);
    row->addStretch();
    setFixedHeight(std::max(box_height, 2 * m_words->fontMetrics().lineSpacing()));
    say({}, false);
}

void StandingLine::say(const QString& words, bool offers) {
    m_words->setText(words);
    m_words->setMaximumWidth(m_words->fontMetrics().horizontalAdvance(words) + page_gap); // the button stands beside
    m_button->setVisible(offers);
}

} // namespace ui
