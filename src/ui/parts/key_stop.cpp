#include "ui/parts/key_stop.h"

#include "ui/parts/key_codes.h"

#include <QKeyEvent>
#include <utility>

namespace ui {

KeyStop::KeyStop(StopActs acts, Qt::FocusPolicy policy, QWidget* parent) : QWidget(parent), m_acts(std::move(acts)) {
    setFocusPolicy(policy);
    setFixedSize(1, 1);
}

void KeyStop::keyPressEvent(QKeyEvent* event) {
    const int code = key_code(event->key());
    if (code == 0 || !m_acts.KeyDown || !m_acts.KeyDown(code))
        QWidget::keyPressEvent(event);
}

void KeyStop::focusInEvent(QFocusEvent*) {
    if (m_acts.GotFocus)
        m_acts.GotFocus();
}

void KeyStop::focusOutEvent(QFocusEvent*) {
    if (m_acts.LostFocus)
        m_acts.LostFocus();
}

} // namespace ui
