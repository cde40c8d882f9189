#include "ui/grid/grid_reader.h"

#include "ui/grid/grid_painter.h"
#include "ui/grid/grid_view.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>
#include <algorithm>
#include <utility>

namespace ui {

namespace {

/// The rows and columns with a size.
struct Seen {
    QList<int> rows;
    QList<int> cols;

    explicit Seen(const base::Sheet& sheet) {
        for (int row = 0; row < sheet.Rows(); ++row)
            if (sheet.RowHeight(row) > 0)
                rows << row;
        for (int col = 0; col < sheet.Cols(); ++col)
            if (sheet.ColWidth(col) > 0)
                cols << col;
    }
    friend bool operator==(const Seen&, const Seen&) = default;
};

/// The texts of those of the rows or columns in sight that are headings.
template <typename Text>
QString headings(const QList<int>& seen, int fixed, Text text) {
    QStringList words;
    for (const int place : seen)
        if (place < fixed)
            words << text(place);
    return words.join(u' ');
}

class GridReader;

class CellReader : public QAccessibleInterface, public QAccessibleTableCellInterface {
public:
    CellReader(GridView& view, base::Cell cell) : m_view(&view), m_cell(cell) {}

    bool isValid() const override { return m_view && m_view->sheet().Contains(m_cell.row, m_cell.col); }
    QObject* object() const override { return nullptr; }
    QWindow* window() const override { return parent()->window(); }
    QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(m_view); }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }

    QString text(QAccessible::Text wanted) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override;
    QAccessible::Role role() const override;
    QAccessible::State state() const override;
    void* interface_cast(QAccessible::InterfaceType wanted) override;

    bool isSelected() const override;
    QList<QAccessibleInterface*> columnHeaderCells() const override;
    QList<QAccessibleInterface*> rowHeaderCells() const override;
    int columnIndex() const override { return static_cast<int>(Seen(sheet()).cols.indexOf(m_cell.col)); }
    int rowIndex() const override { return static_cast<int>(Seen(sheet()).rows.indexOf(m_cell.row)); }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface* table() const override { return parent(); }

private:
    const base::Sheet& sheet() const { return m_view->sheet(); }

    QPointer<GridView> m_view;
    base::Cell m_cell; ///< in the sheet
};

class GridReader : public QAccessibleWidget, public QAccessibleTableInterface {
public:
    explicit GridReader(GridView& view) : QAccessibleWidget(&view, QAccessible::Table), m_view(view) {}
    ~GridReader() override;

    /// The cells row by row, then the widgets in the view: the box and the list over a cell, the scroll bars.
    int childCount() const override { return cell_count() + QAccessibleWidget::childCount(); }
    QAccessibleInterface* child(int index) const override;
    int indexOfChild(const QAccessibleInterface* child) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    QAccessibleInterface* focusChild() const override;
    void* interface_cast(QAccessible::InterfaceType wanted) override;

    QAccessibleInterface* caption() const override { return nullptr; }
    QAccessibleInterface* summary() const override { return nullptr; }
    QAccessibleInterface* cellAt(int row, int column) const override;
    int rowCount() const override { return static_cast<int>(Seen(m_view.sheet()).rows.size()); }
    int columnCount() const override { return static_cast<int>(Seen(m_view.sheet()).cols.size()); }
    QString columnDescription(int column) const override;
    QString rowDescription(int row) const override;

    int selectedCellCount() const override { return static_cast<int>(selectedCells().size()); }
    QList<QAccessibleInterface*> selectedCells() const override;
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return static_cast<int>(selectedRows().size()); }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override;
    bool isColumnSelected(int) const override { return false; }
    bool isRowSelected(int row) const override { return selectedRows().contains(row); }
    // The cursor is moved by keys and clicks, which the form hears of.
    bool selectRow(int) override { return false; }
    bool selectColumn(int) override { return false; }
    bool unselectRow(int) override { return false; }
    bool unselectColumn(int) override { return false; }
    void modelChange(QAccessibleTableModelChangeEvent*) override {}

    /// A cell of the sheet; the same object for the same cell.
    QAccessibleInterface* cell(base::Cell at) const;

private:
    int cell_count() const { return rowCount() * columnCount(); }

    GridView& m_view;
    mutable QHash<std::pair<int, int>, QAccessible::Id> m_cells; ///< those that were asked for
};

GridReader& reader_of(GridView& view) {
    return *static_cast<GridReader*>(QAccessible::queryAccessibleInterface(&view));
}

QString CellReader::text(QAccessible::Text wanted) const {
    if (!isValid() || wanted != QAccessible::Name)
        return {};
    const QString& content = sheet()(m_cell.row, m_cell.col);
    return content.isEmpty() ? sheet().Look(m_cell.row, m_cell.col).stand_in : content;
}

/// On the screen; empty while the cell is scrolled away.
QRect CellReader::rect() const {
    const QRect place = isValid() ? m_view->cell_rect(m_cell) : QRect();
    return place.isEmpty() ? QRect() : place.translated(m_view->viewport()->mapToGlobal(QPoint()));
}

QAccessible::Role CellReader::role() const {
    if (isValid() && m_cell.row < sheet().FixedRows())
        return QAccessible::ColumnHeader;
    return isValid() && m_cell.col < sheet().FixedCols() ? QAccessible::RowHeader : QAccessible::Cell;
}

QAccessible::State CellReader::state() const {
    QAccessible::State state;
    state.invalid = !isValid();
    state.selectable = state.focusable = role() == QAccessible::Cell;
    state.selected = isValid() && isSelected();
    state.focused = isValid() && m_view->hasFocus() && shown_cursor(sheet()) == m_cell;
    state.offscreen = rect().isEmpty();
    return state;
}

void* CellReader::interface_cast(QAccessible::InterfaceType wanted) {
    return wanted == QAccessible::TableCellInterface ? static_cast<QAccessibleTableCellInterface*>(this) : nullptr;
}

/// In a list the whole row is in hand.
bool CellReader::isSelected() const {
    const auto cursor = shown_cursor(sheet());
    return cursor && cursor->row == m_cell.row &&
           (m_view->cursor_style() == CursorStyle::Row || cursor->col == m_cell.col);
}

QList<QAccessibleInterface*> CellReader::columnHeaderCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int row : Seen(sheet()).rows)
        if (row < sheet().FixedRows() && row < m_cell.row)
            cells << reader_of(*m_view).cell({row, m_cell.col});
    return cells;
}

QList<QAccessibleInterface*> CellReader::rowHeaderCells() const {
    QList<QAccessibleInterface*> cells;
    for (const int col : Seen(sheet()).cols)
        if (col < sheet().FixedCols() && col < m_cell.col)
            cells << reader_of(*m_view).cell({m_cell.row, col});
    return cells;
}

GridReader::~GridReader() {
    for (const QAccessible::Id id : std::as_const(m_cells))
        QAccessible::deleteAccessibleInterface(id);
}

QAccessibleInterface* GridReader::cell(base::Cell at) const {
    QAccessible::Id& id = m_cells[{at.row, at.col}];
    if (id == 0)
        id = QAccessible::registerAccessibleInterface(new CellReader(m_view, at));
    return QAccessible::accessibleInterface(id);
}

QAccessibleInterface* GridReader::cellAt(int row, int column) const {
    const Seen seen(m_view.sheet());
    const bool there = row >= 0 && row < seen.rows.size() && column >= 0 && column < seen.cols.size();
    return there ? cell({seen.rows[row], seen.cols[column]}) : nullptr;
}

QAccessibleInterface* GridReader::child(int index) const {
    const int columns = columnCount();
    const int cells = cell_count();
    if (index >= 0 && index < cells)
        return cellAt(index / columns, index % columns);
    return QAccessibleWidget::child(index - cells);
}

int GridReader::indexOfChild(const QAccessibleInterface* child) const {
    if (const auto* cell = dynamic_cast<const CellReader*>(child))
        return cell->rowIndex() * columnCount() + cell->columnIndex();
    const int widget = QAccessibleWidget::indexOfChild(child);
    return widget < 0 ? -1 : cell_count() + widget;
}

/// What lies over a cell comes before the cell.
QAccessibleInterface* GridReader::childAt(int x, int y) const {
    const QPoint at = m_view.viewport()->mapFromGlobal(QPoint(x, y));
    const auto cell_there = m_view.viewport()->childAt(at) ? std::nullopt : m_view.cell_at(at);
    return cell_there ? cell(*cell_there) : QAccessibleWidget::childAt(x, y);
}

QAccessibleInterface* GridReader::focusChild() const {
    const auto cursor = shown_cursor(m_view.sheet());
    return m_view.hasFocus() && cursor ? cell(*cursor) : QAccessibleWidget::focusChild();
}

void* GridReader::interface_cast(QAccessible::InterfaceType wanted) {
    return wanted == QAccessible::TableInterface ? static_cast<QAccessibleTableInterface*>(this)
                                                 : QAccessibleWidget::interface_cast(wanted);
}

QString GridReader::columnDescription(int column) const {
    const base::Sheet& sheet = m_view.sheet();
    const Seen seen(sheet);
    if (column < 0 || column >= seen.cols.size())
        return {};
    return headings(seen.rows, sheet.FixedRows(), [&](int row) { return sheet(row, seen.cols[column]); });
}

QString GridReader::rowDescription(int row) const {
    const base::Sheet& sheet = m_view.sheet();
    const Seen seen(sheet);
    if (row < 0 || row >= seen.rows.size())
        return {};
    return headings(seen.cols, sheet.FixedCols(), [&](int col) { return sheet(seen.rows[row], col); });
}

QList<QAccessibleInterface*> GridReader::selectedCells() const {
    const auto cursor = shown_cursor(m_view.sheet());
    if (!cursor)
        return {};
    if (m_view.cursor_style() == CursorStyle::Cell)
        return {cell(*cursor)};
    QList<QAccessibleInterface*> cells;
    for (const int col : Seen(m_view.sheet()).cols)
        cells << cell({cursor->row, col});
    return cells;
}

QList<int> GridReader::selectedRows() const {
    const auto cursor = shown_cursor(m_view.sheet());
    if (!cursor || m_view.cursor_style() != CursorStyle::Row)
        return {};
    return {static_cast<int>(Seen(m_view.sheet()).rows.indexOf(cursor->row))};
}

QAccessibleInterface* reader_for(const QString& class_name, QObject* object) {
    auto* view =
        class_name == QLatin1String(GridView::staticMetaObject.className()) ? qobject_cast<GridView*>(object) : nullptr;
    return view ? new GridReader(*view) : nullptr;
}

/// The smallest block of cells in sight that holds all whose text differs; nothing if none does.
std::optional<QRect> changed_cells(const base::Sheet& before, const base::Sheet& now, const Seen& seen) {
    QRect changed;
    for (int row = 0; row < seen.rows.size(); ++row)
        for (int col = 0; col < seen.cols.size(); ++col)
            if (before(seen.rows[row], seen.cols[col]) != now(seen.rows[row], seen.cols[col]))
                changed |= QRect(col, row, 1, 1);
    return changed.isEmpty() ? std::nullopt : std::optional(changed);
}

void add_texts(GridTeller::Events& events, GridView& view, const base::Sheet& before) {
    using Change = QAccessibleTableModelChangeEvent;
    const Seen seen(view.sheet());
    if (seen != Seen(before)) {
        events.push_back(std::make_unique<Change>(&view, Change::ModelReset));
        return;
    }
    const auto cells = changed_cells(before, view.sheet(), seen);
    if (!cells)
        return;
    auto change = std::make_unique<Change>(&view, Change::DataChanged);
    change->setFirstRow(cells->top());
    change->setLastRow(cells->bottom());
    change->setFirstColumn(cells->left());
    change->setLastColumn(cells->right());
    events.push_back(std::move(change));
}

void add_cursor(GridTeller::Events& events, GridView& view, const base::Sheet& before) {
    const auto cursor = shown_cursor(view.sheet());
    if (!cursor || cursor == shown_cursor(before))
        return;
    events.push_back(std::make_unique<QAccessibleEvent>(reader_of(view).cell(*cursor), QAccessible::Selection));
    if (view.hasFocus())
        events.push_back(std::make_unique<QAccessibleEvent>(reader_of(view).cell(*cursor), QAccessible::Focus));
}

} // namespace

void make_grids_readable() {
    QAccessible::installFactory(reader_for);
}

GridTeller::Events GridTeller::news(GridView& view) {
    Events events;
    if (const auto before = std::exchange(m_told, view.sheet())) {
        add_texts(events, view, *before);
        add_cursor(events, view, *before);
    }
    return events;
}

void GridTeller::tell(GridView& view) {
    if (!QAccessible::isActive())
        return m_told.reset();
    for (const auto& event : news(view))
        QAccessible::updateAccessibility(event.get());
}

} // namespace ui
