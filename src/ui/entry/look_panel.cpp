#include "ui/entry/look_panel.h"

#include "base/literals.h"
#include "ui/entry/day_table.h"
#include "ui/parts/style.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace ui {

using namespace base;

namespace {

constexpr QSize usual_size(640, 460);
constexpr int kinds_a_row = 2;

QLabel* heading(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    letter(*label, Lettering::Section);
    return label;
}

} // namespace

LookPanel::LookPanel(const entry::MonthSheet& sheet, const QList<entry::Finding>& found,
    const entry::FindingKinds& left_out, std::function<QString()> export_days, QWidget* parent)
    : QDialog(parent), m_no_more(new QCheckBox(u"この月では聞かない"_s, this)) {
    setWindowTitle(u"登録前の確認"_s);
    resize(usual_size);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    column->addWidget(
        heading(found.isEmpty() ? u"気になるところはありません"_s : u"登録する前に確かめてください"_s, this));
    column->addWidget(m_list = make_list(sheet, found), 1);
    if (std::ranges::any_of(found, [](const entry::Finding& f) { return f.kind == entry::FindingKind::NotReadBack; }))
        column->addWidget(make_export(std::move(export_days)));
    column->addWidget(m_no_more);
    column->addWidget(make_kinds(found, left_out));
    column->addWidget(make_buttons(found));
}

QTableWidget* LookPanel::make_list(const entry::MonthSheet& sheet, const QList<entry::Finding>& found) {
    auto* list = day_table({u"日"_s, u"内容（Enter かダブルクリックでその日へ）"_s}, this);
    list->setRowCount(static_cast<int>(found.size()));
    for (int i = 0; i < found.size(); ++i) {
        list->setItem(i, 0, day_item(day_name(sheet, found[i].row)));
        list->setItem(i, 1, day_item(found[i].text));
    }
    list->setCurrentCell(0, 0);
    connect(list, &QTableWidget::itemActivated, this, [this, found](const QTableWidgetItem* item) {
        m_day = found[item->row()].row;
        end(Answer::Back);
    });
    return list;
}

/// What was saved so can still be looked up afterwards, in the file.
QWidget* LookPanel::make_export(std::function<QString()> export_days) {
    auto* row = new QWidget(this);
    auto* button = new QPushButton(u"呼び出せない日をCSVに保存"_s, row);
    button->setAutoDefault(false);
    auto* where = new QLabel(row);
    where->setWordWrap(true);
    connect(button, &QPushButton::clicked, this, [where, export_days = std::move(export_days)] {
        if (const QString path = export_days(); !path.isEmpty())
            where->setText(u"%1 に保存しました"_s.arg(path));
    });
    auto* line = new QHBoxLayout(row);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(button);
    line->addWidget(where, 1);
    return row;
}

/// What is unchecked leaves the list at once.
QWidget* LookPanel::make_kinds(const QList<entry::Finding>& found, const entry::FindingKinds& left_out) {
    auto* kinds = new QWidget(this);
    auto* grid = new QGridLayout(kinds);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setVerticalSpacing(2);
    auto* caption = new QLabel(u"このＰＣで確かめること"_s, kinds);
    letter(*caption, Lettering::Quiet);
    grid->addWidget(caption, 0, 0, 1, kinds_a_row);
    const auto captions = entry::finding_captions();
    for (int i = 0; i < int(captions.size()); ++i) {
        m_kinds << new QCheckBox(captions[i].toString(), kinds);
        m_kinds[i]->setChecked(!left_out.contains(entry::FindingKind(i)));
        grid->addWidget(m_kinds[i], 1 + i / kinds_a_row, i % kinds_a_row);
        connect(m_kinds[i], &QCheckBox::toggled, this, [this, i, found](bool on) {
            for (int row = 0; row < found.size(); ++row)
                if (found[row].kind == entry::FindingKind(i))
                    m_list->setRowHidden(row, !on);
        });
    }
    return kinds;
}

/// What Enter does comes first: to calculate where that helps.
QWidget* LookPanel::make_buttons(const QList<entry::Finding>& found) {
    auto* foot = new QWidget(this);
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch();
    const auto add = [&](const QString& caption, Answer answer, bool first) {
        auto* button = new QPushButton(caption, foot);
        button->setDefault(first);
        button->setAutoDefault(first);
        connect(button, &QPushButton::clicked, this, [this, answer] { end(answer); });
        row->addWidget(button);
        if (first)
            button->setFocus();
    };
    const bool calculate = calculation_helps(found);
    if (calculate)
        add(u"計算してから登録"_s, Answer::CalculateAndSave, true);
    if (!found.isEmpty())
        add(u"そのまま登録"_s, Answer::Save, !calculate);
    add(u"戻る"_s, Answer::Back, found.isEmpty());
    return foot;
}

void LookPanel::end(Answer answer) {
    m_answer = answer;
    accept();
}

bool LookPanel::asks_no_more_for_month() const {
    return m_no_more->isChecked();
}

entry::FindingKinds LookPanel::left_out() const {
    entry::FindingKinds kinds;
    for (int i = 0; i < m_kinds.size(); ++i)
        if (!m_kinds[i]->isChecked())
            kinds.insert(entry::FindingKind(i));
    return kinds;
}

} // namespace ui
