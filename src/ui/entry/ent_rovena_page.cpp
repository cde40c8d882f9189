#include "ui/entry/ent_rovena_page.h"

#include "base/literals.h"
#include "entry/day_kinds.h"
#include "frame/help.h"
#include "ui/parts/key_codes.h"
#include "ui/parts/moment_note.h"
#include "ui/parts/page_parts.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QShortcut>
#include <utility>

namespace ui {

using namespace base;

namespace {

constexpr int save_button = 1;
constexpr std::chrono::milliseconds look_again(1000);
constexpr std::chrono::minutes look_later(1); ///< where the tables aren't reached
constexpr std::chrono::milliseconds others_look(3000);

entry::ent_rovena& loaded(entry::ent_rovena& form) {
    form.Form_Load();
    return form;
}

} // namespace

ent_rovena_page::ent_rovena_page(frame::Session& session, QWidget* parent)
    : Acting(parent), m_session(session), m_form(session),
      m_controls(*this, loaded(m_form), {month_acts(0), month_acts(1)}, frame::picture_folder(session.settings)),
      m_atai(new CellEditor(*m_controls.hyou, m_form.editors.atai, editor_acts())),
      m_kyucom(new CellCombo(*m_controls.hyou)), m_note(new MomentNote(*this)) {
    setWindowTitle(entry::ent_rovena::caption.toString());
    for (const QString& item : m_form.editors.kyucom.items)
        m_kyucom->addItem(entry::kind_parts(item).name);
    // Out of a cell Tab goes where it would go from the sheet.
    setTabOrder(m_controls.hyou, m_atai);
    setTabOrder(m_atai, m_kyucom);
    connect_lists();
    connect_sheet();
    connect_strip();
    connect_buttons();
    connect_keys();
    m_form.msglab_changed = [this] { report(); };
    refresh();
}

EditorActs ent_rovena_page::editor_acts() {
    return {
        .KeyDown = [this](int key_code) { return act([&] { return m_form.atai_KeyDown(key_code); }); },
        .KeyPress = [this](int character) { return type_key(character); },
        .Insert = [this](const QString& text) { return m_form.atai_Insert(text); },
        .Change = [this](const QString& text) { m_form.atai_Change(text); },
        .LostFocus = [this] { act([this] { m_form.atai_LostFocus(); }); },
        .Undo = [this] { press_key(Qt::Key_F11); },
        .Redo = [this] { press_key(Qt::Key_F12); },
        .Paste = [this](const QString& text) { return paste_cells(text); },
    };
}

/// Why a key doesn't stand is said at once; what was said before stays until the next act.
bool ent_rovena_page::type_key(int character) {
    const bool stands = m_form.atai_KeyPress(character);
    if (!stands)
        show_standing();
    return stands;
}

MonthActs ent_rovena_page::month_acts(int element) {
    return {
        .Click = [this, element](int index) { act([&] { m_form.ym_Click(element, index); }); },
        .Change = [this, element](const QString& text) { m_form.ym_Change(element, text); },
        .KeyDown = [this, element](int key_code) { return act([&] { return m_form.ym_KeyDown(element, key_code); }); },
        .KeyPress = entry::ent_rovena::ym_KeyPress,
        .GotFocus = [] {},
        .LostFocus = [this] { act([this] { m_form.ym_LostFocus(); }); },
    };
}

void ent_rovena_page::connect_lists() {
    connect(m_controls.hyou_syain, &GridView::cell_clicked, this,
        [this] { act([this] { m_form.hyou_syain_Click(m_form.hyou_syain.Row()); }); });
    connect(m_controls.sortlist, &QButtonGroup::idClicked, this,
        [this](int element) { act([&] { m_form.sortlist_Click(element); }); });
    connect(m_controls.kyuflg, &QButtonGroup::idClicked, this,
        [this](int element) { act([&] { m_form.kyuflg_Click(element); }); });
    connect(m_kyucom, &QComboBox::activated, this, [this](int index) { act([&] { m_form.kyucom_Click(index); }); });
}

void ent_rovena_page::connect_sheet() {
    const base::Sheet& hyou = m_form.sheet.hyou;
    const auto clicked = [this, &hyou] { act([&] { m_form.hyou_Click({hyou.Row(), hyou.Col()}); }); };
    connect(m_controls.hyou, &GridView::cell_clicked, this, clicked);
    connect(m_controls.hyou, &GridView::edge_clicked, this, clicked);
    connect(m_controls.hyou, &GridView::key_pressed, this, [this, clicked](int key, const QString& text) {
        if (key_character(key, text) == 0)
            return;
        clicked();
        if (m_atai->hasFocus()) {
            QKeyEvent typed(QEvent::KeyPress, key, Qt::NoModifier, text);
            QCoreApplication::sendEvent(m_atai, &typed);
        }
    });
    connect(m_controls.hyou, &GridView::scrolled, this, [this, &hyou] {
        m_form.hyou_Scroll(
            hyou.TopRow(), hyou.LeftCol(), m_controls.hyou->view_width(), m_controls.hyou->view_height());
        refresh_editors();
    });
}

void ent_rovena_page::connect_strip() {
    connect(m_controls.hyou_day, &GridView::cell_clicked, this,
        [this] { act([this] { m_form.hyou_day_Click(m_form.sheet.hyou_day.Col()); }); });
    connect(m_controls.hyou_day, &GridView::key_pressed, this, [this](int key, const QString& text) {
        if (const int code = key_code(key))
            m_form.hyou_day_KeyDown(code);
        else if (const int character = key_character(key, text))
            m_form.hyou_day_KeyPress(character);
        m_controls.hyou_day->refresh();
        m_controls.hyou_syain->refresh();
        show_standing();
    });
}

void ent_rovena_page::connect_buttons() {
    for (int element = 0; element < 2; ++element)
        connect(m_controls.botan[element], &PictureButton::clicked, this, [this, element] { press(element); });
    connect(m_controls.imghelp, &PictureButton::clicked, this,
        [this] { frame::ヘルプ表示(m_session.settings, m_session.host, u"ent_rovena"_s); });
}

void ent_rovena_page::connect_keys() {
    connect(m_controls.keys, &FunctionBar::pressed, this, &ent_rovena_page::press_key);
    for (const auto& [keys, key] : {std::pair(QKeySequence::Undo, Qt::Key_F11), {QKeySequence::Redo, Qt::Key_F12}})
        connect(new QShortcut(keys, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut), &QShortcut::activated,
            this, [this, key] { press_key(key); });
    connect(m_controls.torikomi, &QPushButton::clicked, this, [this] { leave_for(&ent_rovena_page::import_wanted); });
    connect(m_controls.jyougen, &QPushButton::clicked, this, [this] { leave_for(&ent_rovena_page::limits_wanted); });
    connect(m_controls.give_up, &QPushButton::clicked, this, [this] { give_up_draft(); });
    connect(m_controls.goes_on, &QCheckBox::toggled, this, [this](bool on) { m_form.set_goes_on(on); });
    m_kyucom->Digit = [this](int digit) { act([&] { m_form.kyucom_Digit(digit); }); };
    m_kyucom->KeyPress = [this](int character) { act([&] { m_form.kyucom_KeyPress(character); }); };
    m_kyucom->Leave = [this](int key) { act([&] { m_form.kyucom_KeyDown(key_code(key)); }); };
    connect(&m_on_their_way, &QTimer::timeout, this, &ent_rovena_page::follow_saved_days);
    connect(&m_also_open, &QTimer::timeout, this, &ent_rovena_page::show_also_open);
    m_also_open.start(others_look);
}

void ent_rovena_page::press_key(Qt::Key key) {
    if (m_form.saving || m_form.waiting)
        return;
    switch (key) {
    case Qt::Key_F1:
        return m_controls.imghelp->click();
    case Qt::Key_F2:
        return act([this] { m_form.set_why_shown(!m_form.why_shown); });
    case Qt::Key_F3:
        return act([this] { m_form.fill(entry::FillSource::DayAbove, row_in_hand()); });
    case Qt::Key_F5:
        return fill_days();
    case Qt::Key_F6:
        m_kyucom->bring_into_view();
        return act([this] { m_form.go_to_kinds(); });
    case Qt::Key_F7:
        return act([this] { m_form.step_employee(-1); });
    case Qt::Key_F8:
        return act([this] { m_form.step_employee(1); });
    case Qt::Key_F9:
        return save_by_key();
    case Qt::Key_F10:
        return leave_for(&ent_rovena_page::ask_for_overview);
    case Qt::Key_F11:
        return act([this] { m_form.undo(); });
    case Qt::Key_F12:
        return act([this] { m_form.redo(); });
    default:
        return;
    }
}

/// Who saves by a key types on where he was: the first digit opens the cell in hand again. Nothing is calculated by it,
/// since what was saved is what the sheet shows.
void ent_rovena_page::save_by_key() {
    const bool in_sheet = m_controls.hyou->isAncestorOf(focusWidget()) || m_controls.hyou->hasFocus();
    m_controls.botan[save_button]->click();
    if (in_sheet)
        m_controls.hyou->setFocus();
}

void ent_rovena_page::leave_for(void (ent_rovena_page::*other)()) {
    if (m_form.saving || m_form.waiting)
        return;
    if (may_close())
        Q_EMIT(this->*other)();
}

void ent_rovena_page::ask_for_overview() {
    Q_EMIT overview_wanted(m_form.in_hand());
}

void ent_rovena_page::open_day(const frame::MonthInHand& day) {
    act([&] { m_form.open_day(day); });
}

entry::RowRange ent_rovena_page::row_in_hand() const {
    const int r = m_form.sheet.hyou.Row();
    return {r, r};
}

void ent_rovena_page::give_up_draft() {
    const auto answer = m_session.host.ask(u"この月の、まだ登録していない入力を取り消します。\nよろしいですか？"_s,
        u"入力を取り消す"_s, platform::Buttons::YesNo);
    if (answer == platform::Answer::Yes)
        act([this] { m_form.give_up_draft(); });
}

bool ent_rovena_page::may_close() {
    m_controls.toubotan->setFocus();
    return m_form.may_leave_month();
}

void ent_rovena_page::follow_saved_days() {
    if (!m_form.saving && !m_form.waiting) {
        const auto on_their_way = m_form.days_on_their_way();
        if (!on_their_way)
            m_on_their_way.start(look_later);
        else if (!*on_their_way)
            m_on_their_way.stop();
    }
    show_standing();
}

/// The hidden box takes the focus first, so that a cell in edit is committed.
void ent_rovena_page::press(int botan) {
    m_form.editors.notice.reset(); // what the cell that is left now has to say comes after it
    m_controls.toubotan->setFocus();
    if (botan == save_button && !may_save())
        return;
    without_input([&] { m_form.botan_Click(botan); });
    if (botan == save_button) {
        settle_save();
        m_on_their_way.start(look_again);
    }
    if (m_form.close_wanted)
        Q_EMIT close_wanted();
}

void ent_rovena_page::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    m_form.Form_Activate();
    follow_focus_wish();
}

void ent_rovena_page::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    m_controls.lay_out(size());
    refresh_editors();
}

/// Another window came before this one: a box of the month is left by that, too.
void ent_rovena_page::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || isActiveWindow())
        return;
    m_form.ym_LostFocus();
    show_month();
}

void ent_rovena_page::refresh() {
    m_controls.syalab->setText(m_form.syalab);
    m_controls.lab2->setText(m_form.lab2);
    m_controls.msglab->setText(m_form.msglab);
    m_controls.sortlist->button(m_form.sortlist)->setChecked(true);
    m_controls.kyuflg->button(m_form.kyuflg())->setChecked(true);
    show_month();
    m_controls.hyou_day->setVisible(m_form.hyou_day_shown);
    m_controls.why->setVisible(m_form.why_shown && m_form.hyou_day_shown);
    if (m_form.why_shown)
        m_controls.why->show_day(m_form.sheet, m_form.sheet.hyou.Row());
    m_controls.lay_out(size());
    refresh_editors();
    follow_focus_wish();
    show_standing();
    if (std::exchange(m_month_shown, month_in_hand()) != month_in_hand())
        show_also_open();
    QMetaObject::invokeMethod(this, &ent_rovena_page::ask_about_clashes, Qt::QueuedConnection);
}

/// What was said of the last key stays in the line until the next one, and beside its cell for a moment.
void ent_rovena_page::show_standing() {
    const auto& notice = m_form.editors.notice;
    if (m_form.waits_for_days() && !m_on_their_way.isActive())
        m_on_their_way.start(look_again);
    m_controls.give_up->setVisible(m_form.has_draft());
    m_controls.goes_on->setChecked(m_form.goes_on);
    const QString words = notice ? notice->text : QString();
    // In the line a number stays with what it counts.
    m_controls.standing->setText(notice ? QString(words).replace(u' ', QChar::Nbsp) : m_form.standing());
    const GridView& hyou = *m_controls.hyou;
    m_note->say(words, *hyou.viewport(), hyou.cell_rect(notice ? notice->cell : Cell{}));
}

void ent_rovena_page::show_also_open() {
    const QString words = m_form.also_open_at();
    m_controls.also_open->setText(words);
    m_controls.also_open->setVisible(!words.isEmpty());
}

void ent_rovena_page::show_month() {
    for (int element = 0; element < 2; ++element) {
        const entry::Selector& selector = m_form.ym[element];
        m_controls.ym[element]->show_items(selector.items, selector.text);
        m_controls.ym[element]->setEnabled(selector.enabled);
    }
}

/// In the middle of an act: no other event is let in, except in the wait for saved days, which takes a while and shows
/// all that the form says.
void ent_rovena_page::report() {
    if (m_form.waiting)
        return refresh();
    show_at_once(*m_controls.msglab, m_form.msglab);
}

void ent_rovena_page::refresh_editors() {
    const entry::KindList& kyucom = m_form.editors.kyucom;
    if (kyucom.visible)
        m_kyucom->lay_over(kyucom.cell, kyucom.index);
    else if (kyucom.enabled)
        m_kyucom->step_aside();
    else
        m_kyucom->put_away();
    m_atai->refresh();
}

void ent_rovena_page::follow_focus_wish() {
    if (const auto wish = std::exchange(m_form.editors.focus, std::nullopt))
        control(*wish)->setFocus();
}

QWidget* ent_rovena_page::control(entry::EntryControl wanted) const {
    switch (wanted) {
    case entry::EntryControl::Atai:
        return m_atai;
    case entry::EntryControl::Kyucom:
        return m_kyucom;
    case entry::EntryControl::YmYear:
        return m_controls.ym[0];
    case entry::EntryControl::YmMonth:
        return m_controls.ym[1];
    case entry::EntryControl::Toubotan:
        return m_controls.toubotan;
    }
    Q_UNREACHABLE();
}

} // namespace ui
