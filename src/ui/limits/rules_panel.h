#pragma once

// The panel of the company's rules: the figures with their source, the special clause, and what each work category and
// day kind counts as. Registered at once, or given up whole.

#include "limits/jyougen_kimari.h"
#include "limits/look.h"

#include <QDialog>

class QGridLayout;
class QSpinBox;

namespace ui {

class RulesPanel : public QDialog {
    Q_OBJECT
public:
    /// The session outlives the panel.
    RulesPanel(frame::Session& session, const limits::Look& look, QWidget* parent);

    void reject() override;

private:
    QWidget* make_figures();
    QWidget* make_counted();
    QWidget* make_buttons();
    void add_figure(QGridLayout& grid, limits::Figure figure);
    void show_figures();

    limits::jyougen_kimari m_form;
    QList<QSpinBox*> m_figures; ///< in the order of the figures
};

} // namespace ui
