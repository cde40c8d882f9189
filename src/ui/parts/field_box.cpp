#include "ui/parts/field_box.h"

#include "ui/parts/key_codes.h"
#include "ui/parts/page_parts.h"

#include <QKeyEvent>
#include <algorithm>
#include <utility>

namespace ui {

FieldBox::FieldBox(FieldText text, FieldActs acts, QWidget* parent)
    : QLineEdit(parent), m_kind(text), m_acts(std::move(acts)) {
    setAttribute(Qt::WA_InputMethodEnabled, text == FieldText::Words);
    setInputMethodHints(text == FieldText::Words ? Qt::ImhNone : Qt::ImhPreferLatin | Qt::ImhNoPredictiveText);
    setMinimumHeight(box_height);
    setTextMargins(4, 0, 4, 0);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& typed) { m_acts.Change(typed); });
}

void FieldBox::show_text(const QString& shown) {
    if (text() == shown)
        return;
    const auto cursor = cursorPosition() - (text().size() - shown.size());
    setText(shown);
    setCursorPosition(std::max(0, int(cursor)));
}

void FieldBox::keyPressEvent(QKeyEvent* event) {
    const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
    const int code = key_code(event->key());
    if (plain && code != 0 && m_acts.KeyDown && m_acts.KeyDown(code))
        return;
    const int character = code == 0 ? key_character(event->key(), event->text()) : 0;
    if (character == 0 || !m_acts.KeyPress || m_acts.KeyPress(character))
        QLineEdit::keyPressEvent(event);
}

void FieldBox::mousePressEvent(QMouseEvent* event) {
    if (!std::exchange(m_clicked_into, false))
        QLineEdit::mousePressEvent(event);
}

void FieldBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (!m_keyboard.came(event->reason()))
        return;
    m_clicked_into = event->reason() == Qt::MouseFocusReason;
    tint(*this, true);
    if (m_acts.GotFocus)
        m_acts.GotFocus();
    select_text();
}

void FieldBox::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (!m_keyboard.went(event->reason()))
        return;
    m_clicked_into = false;
    tint(*this, false);
    if (m_acts.LostFocus)
        m_acts.LostFocus();
}

void FieldBox::select_text() {
    if (m_kind == FieldText::Time)
        setSelection(int(text().size()), -int(text().size()));
    else
        selectAll();
}

} // namespace ui
