#pragma once

// The look before saving: what is off in the month, told before anything is posted. The person saves all the same,
// calculates first, or goes back to a day.

#include "entry/findings.h"

#include <QDialog>
#include <functional>

class QCheckBox;
class QTableWidget;

namespace ui {

class LookPanel : public QDialog {
    Q_OBJECT
public:
    enum class Answer { Back, Save, CalculateAndSave };

    /// `sheet` names the days. The kinds that aren't looked for stand unchecked in the list of kinds.
    /// `export_days` is offered where a day can't be read back; it gives back where the days lie, if it wrote them.
    LookPanel(const entry::MonthSheet& sheet, const QList<entry::Finding>& found, const entry::FindingKinds& left_out,
        std::function<QString()> export_days, QWidget* parent);

    Answer answer() const { return m_answer; }
    std::optional<int> day_to_go_to() const { return m_day; } ///< the sheet row that was chosen on going back
    bool asks_no_more_for_month() const;
    entry::FindingKinds left_out() const; ///< the kinds that the person unchecked

private:
    QTableWidget* make_list(const entry::MonthSheet& sheet, const QList<entry::Finding>& found);
    QWidget* make_kinds(const QList<entry::Finding>& found, const entry::FindingKinds& left_out);
    QWidget* make_export(std::function<QString()> export_days);
    QWidget* make_buttons(const QList<entry::Finding>& found);
    void end(Answer answer);

    Answer m_answer = Answer::Back;
    std::optional<int> m_day;
    QTableWidget* m_list = nullptr;
    QList<QCheckBox*> m_kinds;
    QCheckBox* m_no_more;
};

} // namespace ui
