#pragma once

// ent_rovena, "出勤時間入力": the form of attendance entry. It holds the screen's state under the names of its
// controls, and has one method an operation and one an act of the person. It runs without a display; a page shows the
// state, passes the acts on and refreshes after each.
//
// For the page:
// - `sheet.hyou`, `sheet.hyou_day` and `hyou_syain` are shown as they stand: sizes, looks, cursor, first row and column
//   in view.
// - `editors.atai` out of sight (`visible` false) while `active` still keeps the keyboard: it is moved off the view,
//   not hidden, so that it doesn't lose the focus.
// - a widget that loses or takes the focus reports it by the act named after it; acts that find nothing to do do
//   nothing.
// - `editors.focus` is a wish: move the keyboard there and clear it.
// - while `saving` or `waiting` is true the interface may be given time inside botan_Click(1), hyou_syain_Click(),
//   ym_Click() or ym_KeyDown(): take no input, don't destroy the form.

#include "common/closed_months.h"
#include "common/employee_order.h"
#include "entry/editing.h"
#include "entry/fill.h"
#include "entry/findings.h"
#include "entry/month_draft.h"
#include "entry/month_load.h"
#include "entry/open_months.h"
#include "entry/paste.h"
#include "entry/sheet.h"
#include "entry/undo.h"
#include "frame/month_in_hand.h"
#include "frame/session.h"

#include <array>
#include <functional>

namespace entry {

/// One of the two selectors `ym`. Unless it is being typed into, its text is that of the month on the sheet, which may
/// be none of the items.
struct Selector {
    QStringList items;
    QString text;
    bool enabled = false;
};

class ent_rovena {
public:
    static constexpr QStringView caption = u"出勤時間入力";
    static constexpr const auto& sortlist_captions = common::employee_order_captions;
    static constexpr QStringView kyuflg_captions[] = {u"休憩時間含", u"実働勤務時間"};

    explicit ent_rovena(frame::Session& session)
        : m_session(session), m_draft(session), m_open_months(session.settings) {}

    // State under the names of the controls.

    MonthSheet sheet;
    Editors editors;
    base::Sheet hyou_syain{2, 3};
    std::array<Selector, 2> ym; ///< year and month
    int sortlist = 0;           ///< the element selected
    int kyuflg() const { return static_cast<int>(sheet.kyuflg); }

    QString syainsyscd; ///< `システム番号` of the chosen employee; empty until one is chosen
    QString syalab;     ///< its `社員番号`, ":" and `社員名`
    QString kintypecd;  ///< number of its work type
    QString lab2;       ///< name of its work type, "設定なし" if there is none
    QString msglab;     ///< how the load stands

    /// Called when `msglab` has changed and the work behind it goes on: a page paints it at once.
    std::function<void()> msglab_changed;

    bool saving = false;         ///< inside `保存処理`
    bool waiting = false;        ///< inside the wait for saved days that aren't in the tables yet
    bool close_wanted = false;   ///< the person left the screen: the page closes itself
    bool hyou_day_shown = false; ///< the count strip comes into sight with the first employee

    // Operations.

    void リスト初期設定();
    void 書式設定();
    void 書式設定_日();
    void 書式設定_社員();
    void 社員マスター全呼出();
    void 社員リストソート処理();
    void 社員選択処理();
    void choose_employee(int row);
    void 保存処理();

    // The draft: what was typed and isn't in the tables yet. It is kept with every act that may have typed something.

    // An employee who has one carries a dot in the list.

    /// How the month stands, in words: "未登録 3日", "反映待ち 14:05", "登録しました 14:05", "反映されていません";
    /// empty if untouched. A closed month says so first.
    QString standing() const;
    /// Whether saved days are on their way into the tables, nothing where these aren't reached: a page asks now and
    /// then while it waits for them, and shows standing() anew.
    std::optional<bool> days_on_their_way();
    bool waits_for_days() const { return m_draft.waits_for_days(); }
    /// Whether the month may go from the sheet. Where its draft can't be kept the person is asked, and stays by
    /// default.
    bool may_leave_month();
    /// "この月は 経理2 でも開かれています": who else has it before them; empty if nobody. A page asks now and then.
    QString also_open_at() { return m_open_months.words(); }
    /// A closed month is shown, and takes nothing: whatever would change the sheet says why it doesn't.
    bool is_closed() const { return m_closed.has_value(); }
    bool has_draft() const { return !m_draft.isEmpty(); }
    /// Days that somebody else changed as well, to be decided one by one.
    const QList<Clash>& clashes() const { return m_draft.clashes(); }
    void decide(int clash, MonthDraft::Choice choice);
    /// Days that the last save found changed by somebody else as well: nothing was posted.
    QList<Clash> clashes_of_save() const { return m_unsaved ? m_unsaved->clashes : QList<Clash>(); }
    /// Decides them, a choice each in order, and saves again. Without it all stands as it was typed.
    void settle_and_save(const QList<MonthDraft::Choice>& choices);
    /// "入力を取り消す": the month stands as the tables hold it.
    void give_up_draft();

    // The look before saving.

    /// What is off, but for the kinds that this PC doesn't look for; nothing where the month isn't to be asked about.
    QList<Finding> look_before_saving();
    void calculate_all();
    /// Asks where to and writes the days that can't be read back as a CSV file, as they stand once they are calculated.
    /// Gives back where they lie; empty if that was cancelled or failed, which is told.
    QString export_days_not_read_back();
    void ask_no_more_for_month();
    FindingKinds kinds_left_out() const;
    void leave_out(const FindingKinds& kinds); ///< from now on, on this PC

    // Fill and paste. What is typed in the box counts, the cell in hand stays, and the notice says how many days
    // changed.

    /// The bands that were marked as those of a normal day, for this work type.
    NormalDay normal_day() const;
    /// Whether they are still to be marked: before a fill from standard times they are chosen from
    /// band_choices(sheet). Without a work type there are none, and nothing is filled.
    bool needs_normal_day() const;
    void mark_normal_day(NormalDay normal); ///< kept for this PC under the work type
    /// See entry::fill. Gives back how many days were filled, 0 while the band that ends a normal
    /// day isn't known to a source that needs it.
    int fill(FillSource source, std::optional<RowRange> rows = {});
    /// The days of the week that a fill without rows takes on this PC; Monday to Friday until they are set.
    Weekdays fill_weekdays() const;
    void set_fill_weekdays(Weekdays weekdays);
    /// Writes nothing of the text. The box has left its cell; who gives the preview up clicks the cell anew.
    PastePreview preview_paste(const QString& text);
    /// Lays the preview that was made last; nothing may have been typed since. Gives back how many days changed.
    int paste(const PastePreview& preview);

    // Undo and redo of every change of the sheet since the month was read. What is typed in the box counts. The cursor
    // goes where it stood; the draft follows.

    bool can_undo() const { return m_history.can_undo() || box_differs(sheet, editors); }
    bool can_redo() const { return m_history.can_redo() && !box_differs(sheet, editors); }
    void undo();
    void redo();

    // Keys beyond those of the cells.

    /// Whether Enter on the month's last day goes on to the next employee's first one; kept for this PC.
    bool goes_on = false;
    void set_goes_on(bool on);
    /// Opens the employee so many rows on in the list, with the keyboard on the month's first cell.
    void step_employee(int step);
    /// The list of kinds for the day in hand, which can be chosen from by number.
    void go_to_kinds();
    void kyucom_Digit(int digit);        ///< chooses the item of this place in the list, 0 for no kind
    void kyucom_KeyPress(int character); ///< another character: the notice says if no kind's name begins with it
    bool kyucom_KeyDown(int key_code);   ///< Enter goes to the next day, Escape back to this one; false: another key
    /// Shows a day of an employee's month, with the cursor on its clock-in; an employee who isn't there any more leaves
    /// the sheet as it is. May wait, as the choice of an employee does.
    void open_day(const frame::MonthInHand& day);
    frame::MonthInHand in_hand() const; ///< the month on the sheet, its employee and the day of the cursor
    /// Whether a page explains the day in hand beside the sheet; kept for this PC.
    bool why_shown = false;
    void set_why_shown(bool shown);

    // Acts of the person.

    void Form_Load();
    void Form_Activate();

    void hyou_syain_Click(int row);
    void sortlist_Click(int element);
    void kyuflg_Click(int element);

    void ym_Click(int element, int index);            ///< an item was chosen: the month is loaded
    void ym_Change(int element, const QString& text); ///< typed text: nothing is loaded before Enter
    static bool ym_KeyPress(int character);           ///< whether the character stands
    bool ym_KeyDown(int element, int key_code);       ///< Enter loads the month typed and moves on; false: another key
    void ym_LostFocus();                              ///< what was typed without Enter goes

    void hyou_Click(base::Cell cell);
    void hyou_Scroll(int top_row, int left_col, int view_width, int view_height); ///< view size in twips

    void atai_Change(const QString& text);    ///< the box's text after a key that stood
    bool atai_KeyPress(int character);        ///< whether the key stands; otherwise it is dropped
    QString atai_Insert(const QString& text); ///< text from the input method or clipboard: what stands of it
    bool atai_KeyDown(int key_code);          ///< whether the key moved the cursor; otherwise it is the box's own
    void atai_LostFocus();

    void kyucom_Click(int index);

    void hyou_day_Click(int column);
    void hyou_day_KeyPress(int character);
    void hyou_day_KeyDown(int key_code);

    void botan_Click(int element); ///< 0 leaves the screen, 1 saves

private:
    enum SelectorElement { year_selector, month_selector };

    store::Database open_data() const;
    std::optional<base::CompanyMonth> month_in_boxes() const;
    void show_month();
    void open_month();
    bool saved_days_are_in(base::EmployeeKey employee);
    void load_month(base::EmployeeKey employee);
    void report(const QString& text);
    bool employee_chosen() const { return !syainsyscd.isEmpty(); }
    void ask_for_employee(); ///< before anything is typed
    void say_refused(bool refused);
    void say(const QString& words);
    int employee_row() const;
    void leave_kinds(int r);
    QString numbers_of_kinds() const;
    bool enter_goes_on(int key_code) const;
    void load_switches();
    void forget_employee();

    void open_drafts();
    void mark_employees();
    void mark_employee(int r, const QMap<int, bool>& months);
    void take_over(MergedMonth month);
    void keep_count();
    void keep_draft(UndoHistory::Step step = UndoHistory::Step::Own);
    void mark_draft();
    bool can_act() const;
    bool refuse_if_closed();
    void stand_as_before(BesideSheet (UndoHistory::*go)(MonthSheet&));

    frame::Session& m_session;
    MonthDraft m_draft;
    MonthInTables m_in_tables;
    std::optional<common::Noted> m_closed;
    std::optional<MergedMonth> m_unsaved; ///< what the last save met; its clashes are to be decided
    UndoHistory m_history;
    OpenMonths m_open_months;
    QMap<qint64, QMap<int, bool>> m_draft_months; ///< as in DraftsWaiting
};

} // namespace entry
