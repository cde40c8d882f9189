#pragma once

// What a person does with mouse and keyboard, as events to the real widgets, and what of it is seen.

#include "ui/grid/grid_view.h"

#include <QAbstractButton>
#include <QApplication>
#include <QInputMethodEvent>
#include <QLabel>
#include <QMessageBox>
#include <QMetaEnum>
#include <QTest>
#include <QTimer>
#include <QWheelEvent>

namespace support {

/// Brings a window into view and the keyboard to it.
inline void bring_up(QWidget& window, QSize size) {
    window.resize(size);
    window.show();
    QApplication::setActiveWindow(&window);
    QCoreApplication::processEvents();
}

/// Turns the wheel over a widget, towards the item before.
inline void turn_wheel(QWidget& over) {
    QWheelEvent wheel({5, 5}, over.mapToGlobal(QPointF(5, 5)), {}, {0, 120}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&over, &wheel);
}

/// What labels say, each time that one is painted with room for all of it.
struct PaintedWords : QObject {
    QStringList words;
    PaintedWords() { qApp->installEventFilter(this); }
    bool eventFilter(QObject* at, QEvent* event) override {
        const auto* label = event->type() == QEvent::Paint ? qobject_cast<QLabel*>(at) : nullptr;
        if (label && label->width() >= label->fontMetrics().horizontalAdvance(label->text()))
            words << label->text();
        return false;
    }
};

/// Clicks into the middle of a cell of a grid, which must be in view.
inline void click_cell(ui::GridView& grid, int row, int col) {
    const QRect cell = grid.cell_rect({row, col});
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, cell.center());
}

/// Presses the button of that text in the message box that comes up next; one without it is closed.
inline void answer_box(const QString& text) {
    QTimer::singleShot(0, [text] {
        auto& box = *qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        for (QAbstractButton* button : box.buttons())
            if (button->text() == text)
                return button->click();
        box.close();
    });
}

/// Presses a key where the keyboard is.
inline void press(QKeyCombination key) {
    if (QWidget* at = QApplication::focusWidget())
        QTest::keyClick(at, key.key(), key.keyboardModifiers());
}

/// Types a word where the keyboard is: ASCII by its keys, anything else through the input method.
inline void type_word(const QString& word) {
    QWidget* at = QApplication::focusWidget();
    if (!at)
        return;
    const bool by_keys = std::ranges::all_of(word, [](QChar c) { return c.unicode() < 0x80; });
    if (by_keys) {
        QTest::keyClicks(at, word);
        return;
    }
    QInputMethodEvent composed;
    composed.setCommitString(word);
    QApplication::sendEvent(at, &composed);
}

/// Words parted by blanks; "Enter", the names that Qt has for other keys, and "Ctrl+Z" are those keys.
inline void type(const QString& words) {
    static const auto keys = QMetaEnum::fromType<Qt::Key>();
    for (const QString& word : words.split(u' ', Qt::SkipEmptyParts)) {
        const QByteArray name = "Key_" + (word == QLatin1String("Enter") ? "Return" : word.toUtf8());
        bool is_key = false;
        const int key = keys.keyToValue(name.constData(), &is_key);
        if (word.startsWith(QLatin1String("Ctrl+")))
            press(QKeySequence(word)[0]);
        else if (is_key && word.size() > 1 && !word[0].isDigit())
            press(Qt::Key(key));
        else
            type_word(word);
    }
}

} // namespace support
