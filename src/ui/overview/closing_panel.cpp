#include "ui/overview/closing_panel.h"

#include "base/literals.h"
#include "base/month_look.h"
#include "ui/entry/day_table.h"
#include "ui/parts/style.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace ui {

using namespace base;

namespace {

constexpr QSize usual_size(720, 480);
constexpr int who_width = 190;
constexpr int day_width = 100;

QString day_of(const overview::Told& told, QDate first) {
    if (told.row == total_row)
        return u"月"_s;
    const QDate day = first.addDays(told.row - 1);
    return u"%1日（%2）"_s.arg(QString::number(day.day()), weekday_text(day.dayOfWeek() % 7));
}

QString heading_of(const overview::ent_itiran& form, qsizetype told) {
    if (form.is_closed())
        return told == 0 ? u"%1 は締められています"_s.arg(form.month_text)
                         : u"%1 は、締めた後に %2件の合計が変わっています"_s.arg(form.month_text).arg(told);
    return told == 0 ? u"%1 に、気になるところはありません"_s.arg(form.month_text)
                     : u"%1 を締める前に確かめてください（%2件）"_s.arg(form.month_text).arg(told);
}

/// A month that was opened again tells on closing what became different meanwhile.
QList<overview::Told> changed_since(const overview::ent_itiran& form) {
    QList<overview::Told> changed = form.changed();
    for (overview::Told& told : changed)
        told.what.prepend(u"前の締めから変更　"_s);
    return changed;
}

QString noted(const common::Noted& act, const QString& what) {
    return u"%1　%2　%3"_s.arg(act.time.toString(u"yyyy/MM/dd HH:mm"_s), what, act.pc);
}

} // namespace

ClosingPanel::ClosingPanel(const overview::ent_itiran& form, QWidget* parent) : QDialog(parent) {
    setWindowTitle(u"締め"_s);
    resize(usual_size);
    const bool closed = form.is_closed();
    const QList<overview::Told> told = closed ? form.changed() : form.against() + changed_since(form);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    auto* heading = new QLabel(heading_of(form, told.size()), this);
    letter(*heading, Lettering::Section);
    column->addWidget(heading);
    column->addWidget(make_list(told, form.month().first()), 1);
    auto* note =
        new QLabel(u"締めた月は、どのＰＣでも見るだけになり、登録できません。締めたときの合計が残ります。"_s, this);
    letter(*note, Lettering::Quiet);
    column->addWidget(note);
    if (const auto closings = form.closings(); !closings.isEmpty())
        column->addWidget(make_history(closings));
    column->addWidget(make_buttons(closed));
}

QWidget* ClosingPanel::make_list(const QList<overview::Told>& told, QDate first) {
    auto* list = day_table({u"社員"_s, u"日"_s, u"内容（Enter かダブルクリックでその日へ）"_s}, this);
    list->setColumnWidth(0, who_width);
    list->setColumnWidth(1, day_width);
    list->setRowCount(int(told.size()));
    for (int i = 0; i < told.size(); ++i) {
        list->setItem(i, 0, day_item(told[i].who));
        list->setItem(i, 1, day_item(day_of(told[i], first)));
        list->setItem(i, 2, day_item(told[i].what));
    }
    list->setCurrentCell(0, 0);
    connect(list, &QTableWidget::itemActivated, this, [this, told](const QTableWidgetItem* item) {
        m_place = told[item->row()];
        end(Answer::Back);
    });
    return list;
}

QWidget* ClosingPanel::make_history(const QList<common::Closing>& closings) {
    QStringList lines;
    for (const common::Closing& closing : closings) {
        lines << noted(closing.closed, u"締め"_s);
        if (closing.reopened)
            lines << noted(*closing.reopened, u"締めの解除"_s);
    }
    constexpr qsizetype shown = 6;
    auto* history = new QLabel(lines.mid(std::max<qsizetype>(0, lines.size() - shown)).join(u'\n'), this);
    history->setObjectName("history");
    return history;
}

QWidget* ClosingPanel::make_buttons(bool closed) {
    auto* foot = new QWidget(this);
    auto* row = new QHBoxLayout(foot);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch();
    const auto add = [&](const QString& caption, Answer answer) {
        auto* button = new QPushButton(caption, foot);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [this, answer] { end(answer); });
        row->addWidget(button);
    };
    if (closed)
        add(u"締めを解除..."_s, Answer::Reopen);
    else
        add(u"この月を締める"_s, Answer::Close);
    add(u"戻る"_s, Answer::Back);
    return foot;
}

void ClosingPanel::end(Answer answer) {
    m_answer = answer;
    accept();
}

} // namespace ui
