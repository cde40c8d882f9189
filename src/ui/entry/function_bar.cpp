#include "ui/entry/function_bar.h"

#include "base/literals.h"
#include "ui/parts/colours.h"

#include <QGridLayout>
#include <QShortcut>
#include <QToolButton>

namespace ui {

using namespace base;

namespace {

constexpr int letters = 12;    ///< pixels
constexpr int row_height = 22; ///< pixels
constexpr int gap = 2;

QString key_name(Qt::Key key) {
    return QKeySequence(key).toString(QKeySequence::NativeText);
}

QToolButton* key_button(const FunctionKey& key, QWidget* parent) {
    auto* button = new QToolButton(parent);
    button->setText(u"%1 %2"_s.arg(key_name(key.key), key.caption));
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setFixedHeight(row_height);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    QFont font = button->font();
    font.setPixelSize(letters);
    button->setFont(font);
    QPalette palette = button->palette();
    palette.setColor(QPalette::ButtonText, QColor::fromRgb(colours::quiet_text));
    button->setPalette(palette);
    return button;
}

} // namespace

FunctionBar::FunctionBar(std::span<const FunctionKey> keys, QWidget& page)
    : QWidget(&page), m_grid(new QGridLayout(this)) {
    m_grid->setContentsMargins(0, 0, 0, 0);
    m_grid->setSpacing(gap);
    for (const FunctionKey& key : keys) {
        const auto press = [this, key = key.key] { Q_EMIT pressed(key); };
        auto* button = key_button(key, this);
        connect(button, &QToolButton::clicked, this, press);
        auto* shortcut = new QShortcut(key.key, &page, nullptr, nullptr, Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, press);
        m_buttons << button;
    }
}

void FunctionBar::set_columns(int columns) {
    if (columns == m_columns)
        return;
    m_columns = columns;
    for (int i = 0; i < m_buttons.size(); ++i)
        m_grid->addWidget(m_buttons[i], i / columns, i % columns);
}

int FunctionBar::height_for(int columns) const {
    const int rows = (static_cast<int>(m_buttons.size()) + columns - 1) / columns;
    return rows * row_height + (rows - 1) * gap;
}

} // namespace ui
