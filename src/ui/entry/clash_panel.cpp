#include "ui/entry/clash_panel.h"

#include "base/literals.h"
#include "entry/hand_figures.h"
#include "ui/entry/day_table.h"
#include "ui/parts/style.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStyleOptionButton>
#include <QVBoxLayout>

namespace ui {

using namespace base;
using Choice = entry::MonthDraft::Choice;

namespace {

constexpr QSize usual_size(760, 360);
enum Column { day, stored, typed };
constexpr int day_width = 90;

struct Words {
    QStringView note;
    QStringView decide;
    QStringView leave;
};
constexpr Words of_draft{u"ここで入力した内容が登録されている内容と違う日があります。"
                         "\nほかのＰＣで登録されたか、ここでの登録が届いていません。どちらを残すか選んでください。",
    u"決定", u"あとで決める"};
constexpr Words of_save{
    u"ここで入力しているあいだに、ほかのＰＣで登録された日があります。どちらを残すか選んでください。"
    "\n戻ると何も登録せず、入力はそのまま残ります。",
    u"選んだ内容で登録", u"戻る"};

const Words& words_of(ClashPanel::Occasion occasion) {
    return occasion == ClashPanel::Occasion::Save ? of_save : of_draft;
}

/// What was typed, and the remark.
QStringList words(const entry::TypedDay& content, const QStringList& hours) {
    QStringList parts;
    if (!content.clock_in.isEmpty() || !content.clock_out.isEmpty())
        parts << u"%1～%2"_s.arg(content.clock_in, content.clock_out);
    if (!content.break_time.isEmpty())
        parts << u"休憩 "_s + content.break_time;
    if (!content.kind_name.isEmpty())
        parts << content.kind_name;
    parts += hours;
    QStringList lines{parts.join(u"　"_s), content.remark};
    lines.removeAll(QString());
    return lines.isEmpty() ? QStringList(u"（空）"_s) : lines;
}

/// A day's content: in one line where there is room for it, else the remark in a second one. The tip tells all.
class Content : public QRadioButton {
public:
    Content(const QStringList& lines, QWidget* parent) : QRadioButton(lines.join(u'\n'), parent), m_lines(lines) {
        setToolTip(lines.join(u"　"_s));
    }

protected:
    void resizeEvent(QResizeEvent* event) override {
        QRadioButton::resizeEvent(event);
        QStyleOptionButton option;
        initStyleOption(&option);
        const int room = style()->subElementRect(QStyle::SE_RadioButtonContents, &option, this).width();
        const bool fits = fontMetrics().horizontalAdvance(toolTip()) <= room;
        QStringList lines;
        for (const QString& line : fits ? QStringList(toolTip()) : m_lines)
            lines << fontMetrics().elidedText(line, Qt::ElideRight, room).replace(u'&', u"&&"_s);
        setText(lines.join(u'\n'));
    }

private:
    QStringList m_lines;
};

} // namespace

ClashPanel::ClashPanel(
    const entry::MonthSheet& sheet, const QList<entry::Clash>& clashes, Occasion occasion, QWidget* parent)
    : QDialog(parent) {
    setWindowTitle(u"ほかのＰＣでも変更された日"_s);
    resize(usual_size);
    auto* note = new QLabel(words_of(occasion).note.toString(), this);
    note->setWordWrap(true);
    auto* table = day_table({u"日"_s, u"登録されている内容"_s, u"ここで入力した内容"_s}, this);
    table->setSelectionMode(QAbstractItemView::NoSelection); // what is chosen are the buttons
    table->setRowCount(static_cast<int>(clashes.size()));
    table->setColumnWidth(day, day_width);
    for (const Column column : {stored, typed})
        table->horizontalHeader()->setSectionResizeMode(column, QHeaderView::Stretch);
    for (int i = 0; i < clashes.size(); ++i) {
        table->setItem(i, day, day_item(day_name(sheet, clashes[i].row)));
        m_choices << make_choice(*table, i, sheet, clashes[i]);
    }
    table->resizeRowsToContents();
    auto* column = new QVBoxLayout(this);
    column->addWidget(note);
    column->addWidget(table, 1);
    column->addLayout(make_foot(occasion));
}

/// What is stored stands first.
QButtonGroup* ClashPanel::make_choice(
    QTableWidget& table, int at, const entry::MonthSheet& sheet, const entry::Clash& clash) {
    auto* group = new QButtonGroup(this);
    const auto add = [&](Column column, const entry::TypedDay& content, const entry::Hours& hours, Choice choice) {
        auto* button = new Content(words(content, words_of(hours, sheet)), &table);
        button->setChecked(choice == Choice::Stored);
        group->addButton(button, static_cast<int>(choice));
        table.setCellWidget(at, column, button);
    };
    add(stored, clash.stored, clash.stored_hours, Choice::Stored);
    add(typed, clash.draft.typed, typed_hours(clash), Choice::Typed);
    return group;
}

QLayout* ClashPanel::make_foot(Occasion occasion) {
    auto* later = new QPushButton(words_of(occasion).leave.toString(), this);
    auto* decide = new QPushButton(words_of(occasion).decide.toString(), this);
    decide->setDefault(true);
    connect(later, &QPushButton::clicked, this, &QDialog::reject);
    connect(decide, &QPushButton::clicked, this, &QDialog::accept);
    auto* foot = new QHBoxLayout;
    foot->addStretch();
    foot->addWidget(decide);
    foot->addWidget(later);
    return foot;
}

QList<Choice> ClashPanel::choices() const {
    QList<Choice> chosen;
    for (const QButtonGroup* group : m_choices)
        chosen << Choice(group->checkedId());
    return chosen;
}

} // namespace ui
