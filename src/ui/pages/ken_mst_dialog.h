#pragma once

// The window of the search in a master: boxes and kana on top, the rows found below. It stays open beside the frame.

#include "common/ken_mst.h"
#include "ui/grid/grid_view.h"
#include "ui/parts/acting.h"
#include "ui/parts/field_box.h"
#include "ui/parts/picture_button.h"

#include <QDialog>

class QGridLayout;
class QLabel;
class QPushButton;

namespace ui {

class ken_mst_dialog : public Acting<QDialog> {
    Q_OBJECT
public:
    /// Loads the form. Settings and `mstkenflg` outlive the window. `mode` is the master that is searched, one that the
    /// product has.
    ken_mst_dialog(const base::Settings& settings, QString& mstkenflg, int mode, QWidget* parent);

    const common::ken_mst& form() const { return m_form; }
    FieldBox* kenatai(int element) const { return m_kenatai[element]; }
    GridView* hyou() const { return m_hyou; }
    GridView* hyou_go() const { return m_hyou_go; }
    PictureButton* botan(int element) const { return m_botan[element]; }

Q_SIGNALS:
    /// The window closes: with the number of the row that was chosen, or without a choice.
    void ended(const std::optional<QString>& number);

public:
    void done(int result) override;

protected:
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void make_boxes(QGridLayout* fields);
    QLayout* make_kana();
    QLayout* make_foot(const QString& pictures);
    void refresh() override;
    void show_form();
    void follow_focus_wish();

    common::ken_mst m_form;
    QLabel* m_midasi;
    std::array<FieldBox*, 4> m_kenatai{};
    GridView* m_hyou;
    GridView* m_hyou_go;
    QPushButton* m_mojikirikae;
    QLabel* m_page;
    std::array<PictureButton*, 2> m_botan{};
};

/// Opens the search beside the frame, a little right of and below its corner. It deletes itself when it has ended.
/// The mode must be one that the product has.
ken_mst_dialog* マスター検索呼出(int mode, const base::Settings& settings, QString& mstkenflg, QWidget* caller);

} // namespace ui
