#include "ui/grid/cell_editor.h"

#include "ui/grid/grid_painter.h"
#include "ui/grid/grid_view.h"
#include "ui/parts/colours.h"
#include "ui/parts/key_codes.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <utility>

namespace ui {

namespace {

constexpr int backspace_key = 8;
constexpr int border = 3;
constexpr int arrow_room = 11;
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

bool types_text(const QKeyEvent& event) {
    return !event.text().isEmpty() && event.text().front().isPrint();
}

void draw_arrow(QPainter& painter, QPoint centre) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor::fromRgb(colours::quiet_text), 1.5));
    const QPointF tip = QPointF(centre) + QPointF(0, 2);
    painter.drawPolyline(QPolygonF({tip + QPointF(-3, -3), tip, tip + QPointF(3, -3)}));
    painter.restore();
}

} // namespace

CellEditor::CellEditor(GridView& grid, base::CellEditor& state, EditorActs acts)
    : QLineEdit(grid.viewport()), m_grid(grid), m_state(state), m_acts(std::move(acts)) {
    setFrame(false);
    setFocusPolicy(Qt::ClickFocus); // Tab must not lead to it where it is out of sight
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(false);
    QPalette own = palette();
    own.setColor(QPalette::Base, QColor::fromRgb(colours::box_in_hand));
    own.setColor(QPalette::Text, QColor::fromRgb(colours::text));
    own.setColor(QPalette::Highlight, QColor::fromRgb(colours::accent));
    own.setColor(QPalette::HighlightedText, Qt::white);
    setPalette(own);
    connect(this, &QLineEdit::textEdited, this, [this](const QString& text) { m_acts.Change(text); });
    move(out_of_sight);
}

void CellEditor::refresh() {
    if (text() != m_state.text || m_state.select_all)
        setText(m_state.text); // what was typed in the cell before isn't taken back in this one
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
    setAlignment(qt_alignment(m_grid.sheet().CellAlignment(m_state.cell.row, m_state.cell.col)));
    setGeometry(rect);
    raise();
    show();
}

QString CellEditor::accepted(const QString& text) {
    return text.isEmpty() ? text
                          : m_acts.Insert(m_state.input_method == base::InputMethod::Off ? half_width(text) : text);
}

void CellEditor::type(QKeyEvent* event, int character) {
    if (m_acts.KeyPress(character))
        QLineEdit::keyPressEvent(event);
}

void CellEditor::keyPressEvent(QKeyEvent* event) {
    const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
    const int code = key_code(event->key());
    if (plain && code != 0 && m_acts.KeyDown(code))
        return;
    if (event->matches(QKeySequence::Paste))
        paste_text(QApplication::clipboard()->text());
    else if (event->matches(QKeySequence::Undo))
        go_back(event, isUndoAvailable(), m_acts.Undo);
    else if (event->matches(QKeySequence::Redo))
        go_back(event, isRedoAvailable(), m_acts.Redo);
    else if (takes_text_away(*event))
        type(event, backspace_key);
    else if (types_text(*event))
        type(event, event->text().front().unicode());
    else
        QLineEdit::keyPressEvent(event);
}

void CellEditor::go_back(QKeyEvent* event, bool own, const std::function<void()>& of_the_page) {
    if (own || !of_the_page)
        QLineEdit::keyPressEvent(event);
    else
        of_the_page();
}

void CellEditor::paste_text(const QString& text) {
    if (!m_acts.Paste || !m_acts.Paste(text))
        insert(accepted(text));
}

void CellEditor::inputMethodEvent(QInputMethodEvent* event) {
    event->setCommitString(accepted(event->commitString()), event->replacementStart(), event->replacementLength());
    QLineEdit::inputMethodEvent(event);
}

void CellEditor::mouseReleaseEvent(QMouseEvent* event) {
    // The middle button would paste past the form.
    if (event->button() != Qt::MiddleButton)
        QLineEdit::mouseReleaseEvent(event);
}

/// From another control the placement selects.
void CellEditor::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (m_keyboard.came(event->reason()) && !leaves_control(event->reason()))
        selectAll();
}

void CellEditor::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (m_keyboard.went(event->reason()))
        m_acts.LostFocus();
}

void CellEditor::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    painter.setPen(QPen(QColor::fromRgb(colours::accent), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

CellCombo::CellCombo(GridView& grid) : QComboBox(grid.viewport()), m_grid(grid) {
    setFocusPolicy(Qt::ClickFocus);
    setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    put_away();
}

void CellCombo::lay_over(base::Cell cell, int item) {
    if (std::exchange(m_into_view, false))
        m_grid.show_cell(cell);
    const QRect rect = m_grid.cell_rect(cell);
    setEnabled(true);
    if (rect.isEmpty()) {
        step_aside();
        return;
    }
    setFont(cell_font(m_grid.font(), rect.height()));
    m_alignment = qt_alignment(m_grid.sheet().CellAlignment(cell.row, cell.col));
    setGeometry(rect.adjusted(0, -2, 0, 2));
    setCurrentIndex(item);
    raise();
    show();
}

void CellCombo::step_aside() {
    move(out_of_sight);
}

void CellCombo::put_away() {
    step_aside();
    if (hasFocus())
        m_grid.setFocus(Qt::OtherFocusReason); // else Qt takes it to the next control, which may take digits too
    setEnabled(false);
}

void CellCombo::showPopup() {
    view()->setMinimumWidth(view()->sizeHintForColumn(0) + style()->pixelMetric(QStyle::PM_ScrollBarExtent));
    QComboBox::showPopup();
}

void CellCombo::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), QColor::fromRgb(colours::ground));
    painter.setPen(QPen(QColor::fromRgb(colours::accent), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
    const QRect arrow(rect().right() - arrow_room, 0, arrow_room, height());
    draw_arrow(painter, arrow.center());
    painter.setPen(QColor::fromRgb(colours::text));
    draw_fitting(painter, rect().adjusted(border, 0, -arrow_room, 0), m_alignment, currentText());
}

void CellCombo::keyPressEvent(QKeyEvent* event) {
    const int key = event->key();
    const bool in_sight = pos() != out_of_sight;
    if (Leave && (key == Qt::Key_Return || key == Qt::Key_Enter || key == Qt::Key_Escape))
        Leave(key);
    else if (in_sight && Digit && key >= Qt::Key_0 && key <= Qt::Key_9)
        Digit(key - Qt::Key_0);
    else if (in_sight) {
        QComboBox::keyPressEvent(event);
        if (KeyPress && types_text(*event) && key != Qt::Key_Space)
            KeyPress(event->text().front().unicode());
    }
    event->accept();
}

void CellCombo::wheelEvent(QWheelEvent* event) {
    event->ignore(); // the wheel scrolls the sheet and chooses nothing
}

} // namespace ui
