#include "ui/pages/rov_01_conditions.h"

#include "base/literals.h"
#include "ui/masters/master_page.h"
#include "ui/parts/page_parts.h"
#include "ui/parts/style.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace ui {

using namespace base;
using reports::ReportControl;
using reports::rov_01;

namespace {

constexpr int gap = 6;
constexpr int panel_gap = 28;
constexpr int date_width = 108;
constexpr int number_width = 84;
constexpr int name_width = 150;
constexpr int month_widths[] = {84, 66};
constexpr int month_height = 30; ///< as the text boxes
constexpr QStringView date_help = u"■簡単入力１：2004年10月3日→ 1003(入力している日が同じ年の場合)\n"
                                  "■簡単入力２：2004年10月3日→ 3 (今日から10日先は今月それより大きい数字は先月)";
constexpr QStringView employee_help = u"■1人分：社員番号の左右に同じ番号　　"
                                      "■何人分も：「連続印刷」に印を付け、最初と最後の番号(左右とも空なら全員)";
constexpr QStringView month_units[] = {u"年", u"月"};

QStringView help_of(const reports::Panels& panels) {
    if (panels.pic_ymd_t1)
        return date_help;
    return panels.print_flg ? employee_help : QStringView();
}

QLabel* caption(QStringView text, QWidget* parent) {
    auto* label = new QLabel(text.toString(), parent);
    letter(*label, Lettering::Comment);
    label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    return label;
}

} // namespace

// The order in which the controls are made is that of the Tab key.
rov_01_conditions::rov_01_conditions(rov_01& form, Act act, QWidget* parent)
    : QWidget(parent), m_form(form), m_act(std::move(act)), m_help(master_note(this)), m_botabox(make_stop()) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(no_margins);
    column->setSpacing(gap);
    auto* row = new QHBoxLayout;
    row->setSpacing(panel_gap);
    column->addLayout(row);
    column->addWidget(m_help);
    setMinimumHeight(1); // of a report without conditions: the stop stays in sight of the keyboard
    make_months();
    make_dates();
    make_employees();
    m_toubotan = make_stop();
    m_print_zero = make_check(u"0も印刷", &rov_01::print_zero_Click);
    m_print_flg = make_check(u"連続印刷", &rov_01::print_flg_Click);
    for (QWidget* part : {m_Pic_yyyymm, m_pic_ymd_t1, m_pic_tantou, static_cast<QWidget*>(m_print_zero),
             static_cast<QWidget*>(m_print_flg)})
        row->addWidget(part);
    row->addStretch();
}

QWidget* rov_01_conditions::make_panel(QStringView label, QHBoxLayout*& row) {
    auto* panel = new QWidget(this);
    panel->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    row = new QHBoxLayout(panel);
    row->setContentsMargins(no_margins);
    row->setSpacing(gap);
    if (!label.isEmpty())
        row->addWidget(caption(label, panel));
    return panel;
}

void rov_01_conditions::make_months() {
    QHBoxLayout* row = nullptr;
    m_Pic_yyyymm = make_panel({}, row);
    for (int element = 0; element < 2; ++element) {
        row->addWidget(m_yyyymm[element] = make_month(element));
        row->addWidget(caption(month_units[element], m_Pic_yyyymm));
    }
}

MonthBox* rov_01_conditions::make_month(int element) {
    auto* box = new MonthBox(
        {
            .Click = [this, element](int index) { m_act([&] { m_form.yyyymm_Click(element, index); }); },
            .Change = [this, element](const QString& text) { m_form.yyyymm_Change(element, text); },
            .KeyDown = [this, element](
                           int code) { return press([&] { return m_form.yyyymm_KeyDown(element, code); }); },
            .KeyPress = rov_01::yyyymm_KeyPress,
            .GotFocus = [this, element] { m_form.yyyymm_GotFocus(element); },
            .LostFocus = [this, element] { m_act([&] { m_form.yyyymm_LostFocus(element); }); },
        },
        month_widths[element], m_Pic_yyyymm);
    box->setMinimumHeight(month_height);
    box->setAccessibleName(month_units[element].toString());
    return box;
}

void rov_01_conditions::make_dates() {
    QHBoxLayout* row = nullptr;
    m_pic_ymd_t1 = make_panel(u"抽出日", row);
    for (int element = 0; element < 2; ++element) {
        if (element == 1)
            row->addWidget(caption(u"～", m_pic_ymd_t1));
        row->addWidget(m_ymd[element] = make_date(element));
    }
}

FieldBox* rov_01_conditions::make_date(int element) {
    auto* box = new FieldBox(FieldText::Number,
        {.Change = [this, element](const QString& text) { m_form.ymd_Change(element, text); },
            .KeyDown =
                [this, element](int code) {
                    const bool at_the_start =
                        m_ymd[element]->cursorPosition() == 0 && !m_ymd[element]->hasSelectedText();
                    return press([&] { return m_form.ymd_KeyDown(element, code, at_the_start); });
                },
            .KeyPress = rov_01::ymd_KeyPress,
            .GotFocus = [this, element] { m_act([&] { m_form.ymd_GotFocus(element); }); },
            .LostFocus = [this, element] { m_act([&] { m_form.ymd_LostFocus(element); }); }},
        m_pic_ymd_t1);
    box->setFixedWidth(date_width);
    box->setAccessibleName(element == 0 ? u"抽出日 開始"_s : u"抽出日 終了"_s);
    return box;
}

void rov_01_conditions::make_employees() {
    QHBoxLayout* row = nullptr;
    m_pic_tantou = make_panel(u"社員番号", row);
    for (int element = 0; element < 2; ++element) {
        if (element == 1)
            row->addWidget(caption(u"～", m_pic_tantou));
        row->addWidget(m_tancd[element] = make_employee(element));
        auto* name = new QLineEdit(m_pic_tantou);
        name->setAccessibleName(element == 0 ? u"社員名 開始"_s : u"社員名 終了"_s);
        name->setReadOnly(true);
        name->setFocusPolicy(Qt::ClickFocus);
        name->setFixedSize(name_width, m_tancd[element]->minimumHeight());
        name->installEventFilter(this);
        row->addWidget(m_ntancd[element] = name);
    }
}

FieldBox* rov_01_conditions::make_employee(int element) {
    auto* box = new FieldBox(FieldText::Number,
        {.Change = [this, element](const QString& text) { m_act([&] { m_form.tancd_Change(element, text); }); },
            .KeyDown = [this, element](int code) { return press([&] { return m_form.tancd_KeyDown(element, code); }); },
            .GotFocus = [this, element] { m_act([&] { m_form.tancd_GotFocus(element); }); },
            .LostFocus = [this, element] { m_act([&] { m_form.tancd_LostFocus(element); }); }},
        m_pic_tantou);
    box->setFixedWidth(number_width);
    box->setAccessibleName(element == 0 ? u"社員番号 開始"_s : u"社員番号 終了"_s);
    box->setToolTip(u"F1：社員の検索"_s);
    return box;
}

QCheckBox* rov_01_conditions::make_check(QStringView text, void (rov_01::*click)(bool)) {
    auto* box = new QCheckBox(text.toString(), this);
    connect(box, &QCheckBox::clicked, this, [this, click](bool ticked) { (m_form.*click)(ticked); });
    return box;
}

KeyStop* rov_01_conditions::make_stop() {
    return new KeyStop({.KeyDown = [this](int code) { return press([&] { return m_form.botabox_KeyDown(code); }); },
                           .GotFocus = [this] { m_act([this] { m_form.botabox_GotFocus(); }); },
                           .LostFocus = [this] { m_act([this] { m_form.botabox_LostFocus(); }); }},
        Qt::TabFocus, this);
}

bool rov_01_conditions::press(const std::function<bool()>& key) {
    bool taken = false;
    m_act([&] { taken = key(); });
    return taken;
}

/// The names send the keyboard to their numbers.
bool rov_01_conditions::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::FocusIn)
        for (int element = 0; element < 2; ++element)
            if (watched == m_ntancd[element])
                m_act([&] { m_form.ntancd_GotFocus(element); });
    return QWidget::eventFilter(watched, event);
}

void rov_01_conditions::refresh() {
    const reports::Panels panels = m_form.panels();
    const reports::Conditions& conditions = m_form.report.conditions;
    m_Pic_yyyymm->setVisible(panels.Pic_yyyymm);
    m_pic_ymd_t1->setVisible(panels.pic_ymd_t1);
    m_help->setText(help_of(panels).toString());
    m_help->setVisible(!m_help->text().isEmpty());
    m_pic_tantou->setVisible(panels.pic_tantou);
    m_print_zero->setVisible(panels.print_zero);
    m_print_flg->setVisible(panels.print_flg);
    for (int element = 0; element < 2; ++element) {
        m_yyyymm[element]->show_items(m_form.yyyymm[element].items, conditions.yyyymm[element]);
        m_ymd[element]->show_text(conditions.ymd[element]);
        m_tancd[element]->show_text(conditions.tancd[element]);
        m_ntancd[element]->setText(conditions.ntancd[element]);
        m_ntancd[element]->setEnabled(m_form.ntancd_enabled[element]);
    }
    m_print_zero->setChecked(conditions.print_zero);
    m_print_flg->setChecked(conditions.print_flg);
}

QWidget* rov_01_conditions::control(reports::Wish wish) const {
    switch (wish.control) {
    case ReportControl::tancd:
        return m_tancd[wish.element];
    case ReportControl::ymd:
        return m_ymd[wish.element];
    case ReportControl::yyyymm:
        return m_yyyymm[wish.element];
    case ReportControl::botabox:
        return m_botabox;
    case ReportControl::toubotan:
        return m_toubotan;
    case ReportControl::karibotan:
        break;
    }
    return nullptr;
}

} // namespace ui
