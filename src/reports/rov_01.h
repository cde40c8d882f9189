#pragma once

// rov_01, "集計表": the one screen on which all six reports are chosen, filled and printed. It holds the screen's state
// under the names of its controls and has one method an act of the person. It runs without a display; a page shows the
// state, passes the acts on and refreshes after each. What the reports differ in stands in report_table().
//
// For the page:
// - `report` holds the sheets, the headings and the texts of the condition boxes; they are shown as they stand.
// - `focus` is a wish: move the keyboard there and clear it. `close_wanted`: the page closes and the menu comes back.
// - while `busy` the interface is given time inside an act: take no input, don't destroy the form.

#include "base/notice.h"
#include "frame/mainform.h"
#include "reports/pages/print_surface.h"
#include "reports/tallies/report.h"
#include "reports/tallies/report_table.h"

#include <functional>

namespace reports {

/// A year or month box. The text counts: it may be one of the items or typed.
struct MonthBox {
    QStringList items;
    std::optional<QString> remembered; ///< what it held when the keyboard came; nothing once that was looked at
};

class rov_01 {
public:
    static constexpr QStringView caption = u"集計表";
    /// Elements of `yyyymm`.
    enum Element { year_box, month_box };

    /// What the form asks of the page that shows it.
    struct Windows {
        /// Opens the search; its end is told to search_ended().
        std::function<void(int mode, int element)> search;
        /// Shows the pages of the report as its sheet stands, until the person closes them.
        std::function<void(const Report& report)> preview;
    };

    /// The report is that of the frame, `report_no`. What is referred to outlives the form.
    rov_01(frame::Session& session, frame::mainform& main_form, PrintShop& shop, Windows windows);

    // State under the names of the controls.

    Report report;
    QString chouno;                 ///< report number
    QString Image1;                 ///< file of the heading picture; empty if there is none
    std::array<MonthBox, 2> yyyymm; ///< their texts stand in the conditions
    std::array<bool, 2> ntancd_enabled{true, true};
    bool pic_msg = false;                     ///< whether the headings are in sight
    bool extract_lit = false;                 ///< the extract button shows its "_b" picture
    QString jyoulab;                          ///< how the text file stands
    std::function<void()> jyoulab_changed;    ///< it stands otherwise and the work goes on: a page paints it at once
    QString msg_tai;                          ///< how the last extract or print ended, and where its file lies
    std::optional<base::Notice<Wish>> notice; ///< what was blanked or put back in which box; until the next key
    std::optional<Wish> focus;                ///< where the keyboard should go next
    bool close_wanted = false;
    bool busy = false;

    Panels panels() const; ///< which conditions are in sight

    // Operations.

    void 初期フォーカス移動() {}
    void 帳票画面作成メイン();

    // Acts of the person.

    void Form_Load();
    void Form_Activate();

    void botan_Click(int element); ///< 0 leaves the screen, 1 extracts, 2 prints
    void preview_Click();
    void csvex_Click();
    void Image1_Click();

    void botabox_GotFocus() { extract_lit = true; } ///< and `toubotan`
    void botabox_LostFocus() { extract_lit = false; }
    bool botabox_KeyDown(int key_code);

    void tancd_Change(int element, const QString& text);
    void tancd_GotFocus(int element) { ntancd_enabled[element] = false; }
    void tancd_LostFocus(int element);
    bool tancd_KeyDown(int element, int key_code); ///< true if the key moved the keyboard or opened the search
    void ntancd_GotFocus(int element);
    /// Without a choice the box stays as it is. The row that stands for the whole company has an empty number.
    void search_ended(int element, const std::optional<QString>& number);

    void ymd_Change(int element, const QString& text);
    void ymd_GotFocus(int element);
    void ymd_LostFocus(int element);
    bool ymd_KeyDown(int element, int key_code, bool at_the_start); ///< the caret at the start and nothing selected
    static bool ymd_KeyPress(int character);                        ///< whether the character stands

    void yyyymm_Click(int element, int index);
    void yyyymm_Change(int element, const QString& text) { report.conditions.yyyymm[element] = text; }
    void yyyymm_GotFocus(int element);
    void yyyymm_LostFocus(int element);
    bool yyyymm_KeyDown(int element, int key_code);
    static bool yyyymm_KeyPress(int character);

    void print_zero_Click(bool ticked) { report.conditions.print_zero = ticked; }
    void print_flg_Click(bool ticked) { report.conditions.print_flg = ticked; }

private:
    const ReportRow* row() const;
    QDate today() const { return m_session.host.now().date(); }
    QString shown(QDate date) const;
    bool free_text_dates() const;
    void set_dates(DateDefault dates);
    void fill_months();
    void format();
    std::optional<int> wrong_month_box() const;
    void to(ReportControl control, int element = 0) { focus = Wish{control, element}; }

    void work(const std::function<void()>& of_the_button);
    void say(const QString& word);
    void extract();
    QString run_tally();
    void print_sheet();
    void to_after_print();

    frame::Session& m_session;
    frame::mainform& m_mainform;
    PrintShop& m_shop;
    Windows m_windows;
    int m_image_clicks = 0;
    std::array<QString, 2> m_accepted_ymd; ///< the dates that `ymd` took last, as they are shown
};

} // namespace reports
