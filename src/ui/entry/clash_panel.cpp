#include "ui/entry/clash_panel.h"

#include "base/literals.h"
#include "ui/entry/day_table.h"
#include "ui/parts/style.h"

#include <QButtonGroup>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

namespace ui {

using namespace base;
using Choice = entry::MonthDraft::Choice;

namespace {

constexpr QSize usual_size(760, 360);
enum Column { day, stored, typed };
constexpr int column_width[] = {90, 330};

struct Words {
    QStringView note;
    QStringView decide;
    QStringView leave;
};
constexpr Words of_draft{u"ここで入力したあと、ほかのＰＣで登録された日があります。どちらを残すか選んでください。",
    u"決定", u"あとで決める"};
constexpr Words of_save{
    u"ここで入力しているあいだに、ほかのＰＣで登録された日があります。どちらを残すか選んでください。"
    "\n戻ると何も登録せず、入力はそのまま残ります。",
    u"選んだ内容で登録", u"戻る"};

const Words& words_of(ClashPanel::Occasion occasion) {
    return occasion == ClashPanel::Occasion::Save ? of_save : of_draft;
}

QString words(const entry::TypedDay& content) {
    QStringList parts;
    if (!content.clock_in.isEmpty() || !content.clock_out.isEmpty())
        parts << u"%1～%2"_s.arg(content.clock_in, content.clock_out);
    if (!content.break_time.isEmpty())
        parts << u"休憩 "_s + content.break_time;
    for (const QString& part : {content.kind_name, content.remark})
        if (!part.isEmpty())
            parts << part;
    return parts.isEmpty() ? u"（空）"_s : parts.join(u"　"_s);
}

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
    for (const Column column : {day, stored})
        table->setColumnWidth(column, column_width[column]);
    for (int i = 0; i < clashes.size(); ++i) {
        table->setItem(i, day, day_item(day_name(sheet, clashes[i].row)));
        m_choices << make_choice(*table, i, clashes[i]);
    }
    auto* column = new QVBoxLayout(this);
    column->addWidget(note);
    column->addWidget(table, 1);
    column->addLayout(make_foot(occasion));
}

/// What is stored stands first.
QButtonGroup* ClashPanel::make_choice(QTableWidget& table, int at, const entry::Clash& clash) {
    auto* group = new QButtonGroup(this);
    const auto add = [&](Column column, const entry::TypedDay& content, Choice choice) {
        auto* button = new QRadioButton(words(content), &table);
        button->setToolTip(words(content));
        button->setChecked(choice == Choice::Stored);
        group->addButton(button, static_cast<int>(choice));
        table.setCellWidget(at, column, button);
    };
    add(stored, clash.stored, Choice::Stored);
    add(typed, clash.draft.typed, Choice::Typed);
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
