#include "ui/entry/paste_panel.h"

#include "base/literals.h"
#include "ui/entry/day_table.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace ui {

using namespace base;

namespace {

constexpr QSize usual_size(640, 480);
constexpr int narrow = 80;
enum Column { day, item, pasted, understood, state };
const QStringList headings{u"日"_s, u"項目"_s, u"貼り付ける文字"_s, u"読み取り"_s, u"結果"_s};

QString words(const entry::PasteCell& cell) {
    using State = entry::PasteCell::State;
    const QString of_state = cell.state == State::New        ? u"新しく入る"_s
                             : cell.state == State::Same     ? u"そのまま"_s
                             : cell.state == State::Replaces ? u"置きかえる"_s
                                                             : u"読み取れない"_s;
    return cell.reason.isEmpty() ? of_state : u"%1（%2）"_s.arg(of_state, cell.reason);
}

} // namespace

PastePanel::PastePanel(const entry::MonthSheet& sheet, const entry::PastePreview& preview, QWidget* parent)
    : QDialog(parent) {
    setWindowTitle(u"貼り付けの確認"_s);
    resize(usual_size);
    auto* column = new QVBoxLayout(this);
    column->addWidget(
        new QLabel(preview.refused.isEmpty() ? u"%1か所に入ります。"_s.arg(preview.changes()) : preview.refused, this));
    auto* table = day_table(headings, this);
    for (const Column short_one : {day, item, understood})
        table->setColumnWidth(short_one, narrow);
    table->setRowCount(static_cast<int>(preview.cells.size()));
    for (int i = 0; i < preview.cells.size(); ++i) {
        const entry::PasteCell& cell = preview.cells[i];
        const bool in_month = cell.cell.row <= sheet.month.length();
        const bool on_sheet = sheet.hyou.Contains(cell.cell.row, cell.cell.col);
        table->setItem(i, day, day_item(in_month ? day_name(sheet, cell.cell.row) : u"月の外"_s));
        table->setItem(i, item, day_item(on_sheet ? sheet.hyou(entry::row::heading, cell.cell.col) : QString()));
        table->setItem(i, pasted, day_item(cell.pasted));
        table->setItem(i, understood, day_item(cell.understood));
        table->setItem(i, state, day_item(words(cell)));
    }
    column->addWidget(table, 1);
    auto* buttons = new QDialogButtonBox(this);
    auto* accept = buttons->addButton(u"貼り付ける"_s, QDialogButtonBox::AcceptRole);
    buttons->addButton(u"やめる"_s, QDialogButtonBox::RejectRole);
    accept->setEnabled(preview.changes() > 0);
    accept->setDefault(true);
    accept->setFocus();
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addWidget(buttons);
}

} // namespace ui
