#include "ui/cell_editor.h"

#include "ui/grid_painter.h"
#include "ui/grid_view.h"

#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace ui {

namespace {

constexpr QRgb accent = 0xff2f6fde;
constexpr QPoint out_of_sight{-5000, 0};

Qt::Alignment qt_alignment(base::Alignment alignment) {
    switch (alignment) {
    case base::Alignment::Center:
        return Qt::AlignCenter;
    case base::Alignment::Right:
        return Qt::AlignRight | Qt::AlignVCenter;
    case base::Alignment::Left:
        break;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

/// Full-width digits and letters as half-width ones, for cells that are typed without an input method.
QString half_width(const QString& text) {
    return text.normalized(QString::NormalizationForm_KC);
}

bool takes_text_away(const QKeyEvent& event) {
    return event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete || event.matches(QKeySequence::Cut);
}

bool is_typing(const QKeyEvent& event) {
    return !event.text().isEmpty() && event.text().front().isPrint();
}

/// A window that comes before this one, or a list or menu that opens, isn't a step to another control.
bool leaves_control(Qt::FocusReason reason) {
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason;
}

} // namespace

CellEditor::CellEditor(GridView& grid, base::CellEditor& state, EditorKeys keys, QColor ground)
    : QLineEdit(grid.viewport()), m_grid(grid), m_state(state), m_keys(std::move(keys)) {
    setFrame(false);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(false);
    QPalette colours = palette();
    colours.setColor(QPalette::Base, ground);
    colours.setColor(QPalette::Text, Qt::black);
    setPalette(colours);
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) { m_state.text = text; });
    move(out_of_sight);
}

void CellEditor::refresh() {
    if (text() != m_state.text)
        setText(m_state.text);
    const bool input_method = m_state.input_method == base::InputMethod::On;
    setAttribute(Qt::WA_InputMethodEnabled, input_method);
    setInputMethodHints(input_method ? Qt::ImhNone : Qt::ImhPreferLatin | Qt::ImhNoPredictiveText);
    if (!m_state.visible) {
        move(out_of_sight);
        return;
    }
    if (m_state.select_all)
        m_grid.show_cell(m_state.cell);
    place();
    if (!m_state.select_all)
        return;
    m_state.select_all = false;
    setFocus(Qt::OtherFocusReason);
    selectAll();
}

void CellEditor::place() {
    const QRect rect = m_grid.cell_rect(m_state.cell);
    if (rect.isEmpty()) {
        move(out_of_sight);
        return;
    }
    setFont(cell_font(m_grid.font(), rect.height()));
    setAlignment(qt_alignment(m_grid.sheet().alignment(m_state.cell.row, m_state.cell.col)));
    setGeometry(rect);
    raise();
    show();
}

/// The characters that the form lets stand.
QString CellEditor::accepted(const QString& text) {
    const QString typed = m_state.input_method == base::InputMethod::Off ? half_width(text) : text;
    QString stands;
    for (const char32_t character : typed.toUcs4())
        if (QChar::isPrint(character) && m_keys.press(character))
            stands += QString::fromUcs4(&character, 1);
    return stands;
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
    const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
    if (plain && m_keys.down(event->key()))
        return;
    if (event->matches(QKeySequence::Paste))
        insert(accepted(QApplication::clipboard()->text()));
    else if (takes_text_away(*event)) {
        if (m_keys.press(backspace))
            QLineEdit::keyPressEvent(event);
    } else if (is_typing(*event))
        insert(accepted(event->text()));
    else
        QLineEdit::keyPressEvent(event);
}

void CellEditor::inputMethodEvent(QInputMethodEvent* event) {
    QInputMethodEvent filtered(*event);
    filtered.setCommitString(accepted(event->commitString()), event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(&filtered);
}

void CellEditor::mouseReleaseEvent(QMouseEvent* event) {
    // The middle button would paste past the form.
    if (event->button() != Qt::MiddleButton)
        QLineEdit::mouseReleaseEvent(event);
}

void CellEditor::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (leaves_control(event->reason()))
        m_keys.left();
}

void CellEditor::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    painter.setPen(QPen(QColor::fromRgb(accent), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

CellCombo::CellCombo(GridView& grid) : QComboBox(grid.viewport()), m_grid(grid) {
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    put_away();
}

void CellCombo::lay_over(base::Cell cell, int item, bool take_focus) {
    if (take_focus)
        m_grid.show_cell(cell);
    const QRect rect = m_grid.cell_rect(cell);
    if (rect.isEmpty()) {
        put_away();
        return;
    }
    setFont(cell_font(m_grid.font(), rect.height()));
    setGeometry(rect.adjusted(0, -2, 0, 2));
    setCurrentIndex(item);
    setEnabled(true);
    raise();
    show();
    if (take_focus)
        setFocus(Qt::OtherFocusReason);
}

void CellCombo::put_away() {
    move(out_of_sight);
    setEnabled(false);
}

} // namespace ui
