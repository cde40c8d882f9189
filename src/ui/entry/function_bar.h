#pragma once

// The legend of the function keys: a flat button a key, which says what the key does and does it on a click. A click
// doesn't take the keyboard from the cell in hand.

#include <QWidget>
#include <functional>
#include <span>

class QGridLayout;

namespace ui {

struct FunctionKey {
    Qt::Key key;
    QStringView caption;
};

class FunctionBar : public QWidget {
    Q_OBJECT
public:
    /// The keys work in the whole of `page`, whatever has the keyboard there. The captions must outlive the bar.
    FunctionBar(std::span<const FunctionKey> keys, QWidget& page);

    /// How many buttons stand in a row.
    void set_columns(int columns);
    int height_for(int columns) const;

Q_SIGNALS:
    void pressed(Qt::Key key);

private:
    QGridLayout* m_grid;
    QList<QWidget*> m_buttons;
    int m_columns = 0;
};

} // namespace ui
