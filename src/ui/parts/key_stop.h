#pragma once

// KeyStop: a place for the keyboard that can't be seen; a button shows that it is there.

#include <QWidget>
#include <functional>

namespace ui {

/// The form's acts behind the stop; each may be unset.
struct StopActs {
    std::function<bool(int key_code)> KeyDown = {}; ///< true if the form took the key
    std::function<void()> GotFocus = {};
    std::function<void()> LostFocus = {};
};

class KeyStop : public QWidget {
    Q_OBJECT
public:
    KeyStop(StopActs acts, Qt::FocusPolicy policy, QWidget* parent);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    StopActs m_acts;
};

} // namespace ui
