#include "ui/pages/own_holidays_panel.h"

#include "base/literals.h"
#include "ui/parts/style.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace ui {

using namespace base;

namespace {

constexpr QSize usual_size(520, 440);

QLabel* quiet(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setWordWrap(true);
    label->setTextFormat(Qt::PlainText);
    letter(*label, Lettering::Quiet);
    return label;
}

} // namespace

OwnHolidaysPanel::OwnHolidaysPanel(frame::Session& session, QWidget* parent)
    : QDialog(parent), m_form(session), m_lines(new QPlainTextEdit(this)), m_msglab(new QLabel(this)) {
    setWindowTitle(setup::own_holidays::caption.toString());
    resize(usual_size);
    m_form.Form_Load();
    m_lines->setPlainText(m_form.lines);
    m_lines->setTabChangesFocus(true);
    m_lines->setAccessibleName(windowTitle());
    m_msglab->setWordWrap(true);
    m_msglab->setTextFormat(Qt::PlainText);
    auto* buttons = new QDialogButtonBox(this);
    buttons->addButton(u"登録"_s, QDialogButtonBox::AcceptRole)->setAutoDefault(false);
    buttons->addButton(u"戻る"_s, QDialogButtonBox::RejectRole)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { register_lines(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(
        quiet(u"1行に日付と名前を入力します。国民の祝日は入力しなくても表示されます。"
              u"日の種類や集計は変わりません。\n毎年の休日：12/29～1/3 年末年始\nその年だけの休日：%1 棚卸"_s.arg(
                  session.settings.date_style == 0 ? u"2026/9/30"_s : u"8/9/30"_s),
            this));
    column->addWidget(m_lines, 1);
    column->addWidget(m_msglab);
    column->addWidget(buttons);
    m_lines->setFocus();
}

void OwnHolidaysPanel::register_lines() {
    m_form.lines = m_lines->toPlainText();
    if (m_form.register_Click())
        accept();
    m_msglab->setText(m_form.msglab);
}

void OwnHolidaysPanel::reject() {
    m_form.lines = m_lines->toPlainText();
    if (m_form.may_leave())
        QDialog::reject();
}

} // namespace ui
