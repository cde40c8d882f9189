#pragma once

// Days that were typed here and changed by somebody else meanwhile, side by side: the person decides each. What stands
// in the tables is shown first, and chosen until the person chooses otherwise. It is asked when a draft is laid over
// the month, where who goes away undecided is asked again on coming back, and in a save, which then posts nothing.

#include "entry/draft.h"
#include "entry/month_draft.h"

#include <QDialog>

class QButtonGroup;
class QTableWidget;

namespace ui {

class ClashPanel : public QDialog {
    Q_OBJECT
public:
    enum class Occasion { Draft, Save };
    ClashPanel(const entry::MonthSheet& sheet, const QList<entry::Clash>& clashes, Occasion occasion, QWidget* parent);

    /// A choice a day, in order; meant only if the panel was accepted.
    QList<entry::MonthDraft::Choice> choices() const;

private:
    QButtonGroup* make_choice(QTableWidget& table, int at, const entry::MonthSheet& sheet, const entry::Clash& clash);
    QLayout* make_foot(Occasion occasion);

    QList<QButtonGroup*> m_choices;
};

} // namespace ui
