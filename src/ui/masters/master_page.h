#pragma once

// MasterPage: what the pages of the masters share. The caption on top, the work in the middle, the buttons at the foot.
// After every act of the person the page shows all that its form says and moves the keyboard where the form wants it;
// nothing is decided here.

#include "masters/grid_screen.h"
#include "ui/grid/cell_editor.h"
#include "ui/parts/acting.h"
#include "ui/parts/page_parts.h"
#include "ui/parts/picture_button.h"

#include <functional>

namespace ui {

class GridView;
class MomentNote;
class StandingLine;
enum class CursorStyle;

/// How many of the buttons 0 to 2 a page has: leave, register, delete.
enum class MasterButtons { LeaveOnly = 1, LeaveAndRegister = 2, All = 3 };

/// What a page is called: its form's name, for its help, and its caption.
struct MasterName {
    QStringView form;
    QStringView caption;
};

class MasterPage : public Acting<QWidget> {
    Q_OBJECT
public:
    /// Null for a button that the page doesn't have.
    PictureButton* botan(int element) const { return m_botan[element]; }
    /// Where the keyboard goes before a button does its work; out of sight.
    QWidget* toubotan() const { return m_toubotan; }

Q_SIGNALS:
    /// The person left the screen.
    void close_wanted();

protected:
    /// The session outlives the page. A page loads its form, makes its parts, then calls add_foot() and refresh().
    MasterPage(frame::Session& session, MasterName name, MasterButtons buttons, QWidget* parent);
    virtual masters::Screen& screen() = 0;
    /// Shows all that the form holds, the place of the keyboard apart.
    virtual void show_form() = 0;
    /// The control that the form wants the keyboard in; never asked for `toubotan`.
    virtual QWidget* control(masters::Focus wish) = 0;

    void resizeEvent(QResizeEvent* event) override;

    /// The screen comes into view: the keyboard goes to its first place.
    virtual void activate() {}
    void showEvent(QShowEvent* event) final;

    void refresh() override;

    /// The acts of a box that takes any characters; the form outlives the page's controls.
    EditorActs editor_acts(masters::EditorScreen& form, std::function<void(const QString&)> change);
    void connect_sheet(GridView& view, masters::GridScreen& form);
    /// A list of which a row is chosen; row 0 for its heading and for the ground beside it.
    void connect_list(GridView& view, std::function<void(int row)> choose);

    /// Says words beside the place in the control for a moment, and keeps them at the foot until others are said; none
    /// takes both away.
    void say(const QString& words, const QWidget& beside, QRect place);
    void say(const QString& words, const QWidget& beside) { say(words, beside, beside.rect()); }

    /// A page that is nothing but the grid of its form, with the buttons at the foot.
    void show_only(GridView& view, masters::GridScreen& form);

    QHBoxLayout* body() { return m_body; }
    /// The line above the buttons that tells what was deleted, with the way back, and the word for the dots of rows
    /// that aren't registered. Called before add_foot().
    void add_standing(masters::MasterScreen& form);
    /// A line whose button is an act of the form.
    StandingLine* standing_line(const char* name, QStringView button, const std::function<void()>& act_of_form);
    /// The buttons at the foot, and what stands behind them. Made last, so that Tab comes to them last.
    void add_foot(QWidget* behind = nullptr);

private:
    PictureButton* make_button(int element);
    PictureButton* make_help_button();
    void show_standing();
    void press(int element);
    /// Presses something of the form after the cell in edit was left.
    void press_after_leaving(const std::function<void()>& act_of_form);

    frame::Session& m_session;
    MasterName m_name;
    MasterButtons m_buttons;
    QWidget* m_toubotan; ///< takes the focus when a button is pressed, so that a cell in edit is committed
    std::array<PictureButton*, 3> m_botan{};
    masters::MasterScreen* m_form = nullptr; ///< unset where nothing is deleted
    StandingLine* m_deletions = nullptr;
    QLabel* m_unregistered = nullptr;
    QHBoxLayout* m_body;
    PageParts m_parts;
    QLabel* m_said;
    MomentNote* m_note;
};

/// A grid of a master page in its usual size of rows, or smaller so that it is at most `room` pixels wide.
GridView* master_grid(base::Sheet& sheet, CursorStyle style, const char* name, QWidget* parent);
void fit_master_grid(GridView& grid, int room);
/// Makes the grid just wide enough for its columns and a scroll bar.
void hold_width(GridView& grid);

/// A short text beside a control.
QLabel* master_label(QStringView text, QWidget* parent);
/// A text that tells how things stand.
QLabel* master_note(QWidget* parent);
/// The same for a text as long as a path: it takes the room that its row has left, and goes on in a further line.
QLabel* long_note(const char* name, QWidget* parent);
void show_long_note(QLabel& note, QString text);

} // namespace ui
