#include "ui/parts/month_box.h"

#include "ui/parts/key_codes.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <utility>

namespace ui {

MonthBox::MonthBox(MonthActs acts, int width, QWidget* parent) : QComboBox(parent), m_acts(std::move(acts)) {
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    setFixedWidth(width);
    setMaxVisibleItems(12);
    lineEdit()->setAttribute(Qt::WA_InputMethodEnabled, false);
    lineEdit()->installEventFilter(this);
    connect(this, &QComboBox::activated, this, [this](int index) { m_acts.Click(index); });
    connect(lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) { m_acts.Change(text); });
}

void MonthBox::show_items(const QStringList& items, const QString& text) {
    const QSignalBlocker quiet(this);
    if (count() != items.size()) {
        clear();
        addItems(items);
    }
    if (currentText() == text && currentIndex() == items.indexOf(text))
        return;
    setCurrentIndex(static_cast<int>(items.indexOf(text)));
    setEditText(text);
    if (window()->focusWidget() == this)
        lineEdit()->selectAll(); // another text than the one that was typed: the next key replaces it
}

void MonthBox::keyPressEvent(QKeyEvent* event) {
    const int code = key_code(event->key());
    if (code != 0 && m_acts.KeyDown(code))
        return;
    const int character = code == 0 ? key_character(event->key(), event->text()) : 0;
    if (character == 0 || m_acts.KeyPress(character))
        QComboBox::keyPressEvent(event);
}

void MonthBox::wheelEvent(QWheelEvent* event) {
    event->ignore();
}

void MonthBox::focusInEvent(QFocusEvent* event) {
    QComboBox::focusInEvent(event);
    if (!m_keyboard.came(event->reason()))
        return;
    m_clicked_into = event->reason() == Qt::MouseFocusReason;
    tint(*lineEdit(), true);
    m_acts.GotFocus();
    lineEdit()->selectAll();
}

void MonthBox::focusOutEvent(QFocusEvent* event) {
    {
        const QSignalBlocker no_choice(this); // the base takes a typed text that names an item for a choice of it
        QComboBox::focusOutEvent(event);
    }
    m_clicked_into = false;
    if (!m_keyboard.went(event->reason()))
        return;
    tint(*lineEdit(), false);
    m_acts.LostFocus();
}

bool MonthBox::eventFilter(QObject* watched, QEvent* event) {
    return (event->type() == QEvent::MouseButtonPress && std::exchange(m_clicked_into, false)) ||
           QComboBox::eventFilter(watched, event);
}

} // namespace ui
