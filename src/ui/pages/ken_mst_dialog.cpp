#include "ui/pages/ken_mst_dialog.h"

#include "base/literals.h"
#include "base/twips.h"
#include "frame/button.h"
#include "ui/masters/master_page.h"
#include "ui/parts/key_codes.h"
#include "ui/parts/style.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <utility>

namespace ui {

using namespace base;
using common::ken_mst;

namespace {

constexpr QPoint beside_the_frame(1000 / twips_a_pixel, 200 / twips_a_pixel);
constexpr QSize usual_size(990, 560);
constexpr int box_width = 260;
constexpr int kana_size = 34; ///< pixels, of a cell

constexpr QStringView box_labels[] = {u"名　称", u"フリガナ", u"その他", u"番　号"};

constexpr frame::Button botan_buttons[] = {
    frame::endbotan,
    {1, u"検索", u"zen_kens.BMP", u"zen_kens_b.BMP"},
};

} // namespace

ken_mst_dialog::ken_mst_dialog(const base::Settings& settings, QString& mstkenflg, int mode, QWidget* parent)
    : Acting(parent), m_form(settings, mstkenflg, mode), m_midasi(new QLabel(this)),
      m_hyou(master_grid(m_form.hyou, CursorStyle::Row, "hyou", this)),
      m_hyou_go(new GridView(m_form.hyou_go, CursorStyle::Cell, this)),
      m_mojikirikae(new QPushButton(ken_mst::mojikirikae_caption.toString(), this)), m_page(master_note(this)) {
    setWindowTitle(ken_mst::caption.toString());
    resize(usual_size);
    m_form.Form_Activate();
    letter(*m_midasi, Lettering::Heading);

    auto* fields = new QGridLayout;
    fields->setHorizontalSpacing(12);
    fields->setVerticalSpacing(8);
    make_boxes(fields);
    auto* top = new QHBoxLayout;
    top->setSpacing(36);
    top->addLayout(fields);
    top->addLayout(make_kana());
    top->addStretch();

    connect(m_hyou, &GridView::cell_clicked, this, [this] { act([this] { m_form.hyou_Click(m_form.hyou.Row()); }); });
    m_hyou->installEventFilter(this);
    auto* column = new QVBoxLayout(this);
    column->setSpacing(10);
    column->addWidget(m_midasi);
    column->addLayout(top);
    column->addWidget(m_hyou, 1);
    column->addLayout(make_foot(frame::picture_folder(settings)));
    show_form();
}

void ken_mst_dialog::make_boxes(QGridLayout* fields) {
    for (int element = 0; element < int(m_kenatai.size()); ++element) {
        const bool number = element == ken_mst::number_box;
        m_kenatai[element] = new FieldBox(number ? FieldText::Number : FieldText::Words,
            {.Change = [this, element](const QString& text) { m_form.kenatai_Change(element, text); },
                .KeyDown = [this, element](
                               int code) { return act([&] { return m_form.kenatai_KeyDown(element, code); }); }},
            this);
        QLabel* label = master_label(box_labels[element], this);
        m_kenatai[element]->setFixedWidth(box_width);
        m_kenatai[element]->setAccessibleName(label->text());
        for (QWidget* part : {static_cast<QWidget*>(label), static_cast<QWidget*>(m_kenatai[element])})
            part->setVisible(m_form.has_box(element));
        fields->addWidget(label, element, 0);
        fields->addWidget(m_kenatai[element], element, 1);
    }
}

QLayout* ken_mst_dialog::make_kana() {
    m_hyou_go->setObjectName("hyou_go");
    m_hyou_go->set_zoom(double(kana_size) * twips_a_pixel / m_form.hyou_go.RowHeight(0));
    m_hyou_go->setFocusPolicy(Qt::NoFocus);
    m_hyou_go->setFixedSize(m_hyou_go->full_width(false), m_hyou_go->full_height(false));
    m_mojikirikae->setAutoDefault(false);
    m_mojikirikae->setFocusPolicy(Qt::TabFocus);
    connect(m_hyou_go, &GridView::cell_clicked, this, [this] {
        act([this] { m_form.hyou_go_Click({m_form.hyou_go.Row(), m_form.hyou_go.Col()}); });
    });
    connect(m_mojikirikae, &QPushButton::clicked, this, [this] { act([this] { m_form.mojikirikae_Click(); }); });
    auto* switching = new QVBoxLayout;
    switching->addWidget(m_mojikirikae);
    switching->addWidget(m_page);
    switching->addStretch();
    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    row->addWidget(m_hyou_go, 0, Qt::AlignTop);
    row->addLayout(switching);
    return row;
}

QLayout* ken_mst_dialog::make_foot(const QString& pictures) {
    auto* row = new QHBoxLayout;
    for (const int element : {1, 0}) {
        m_botan[element] = new PictureButton(pictures, botan_buttons[element], this);
        connect(m_botan[element], &PictureButton::clicked, this,
            [this, element] { act([&] { m_form.botan_Click(element); }); });
        row->addWidget(m_botan[element]);
    }
    row->addStretch();
    return row;
}

void ken_mst_dialog::refresh() {
    show_form();
    follow_focus_wish();
    if (m_form.ended)
        done(Accepted);
}

void ken_mst_dialog::follow_focus_wish() {
    const auto wish = std::exchange(m_form.focus, std::nullopt);
    if (!wish)
        return;
    QWidget* control = m_hyou;
    if (wish->control == ken_mst::SearchControl::Kenatai)
        control = m_kenatai[wish->element];
    control->setFocus(Qt::OtherFocusReason);
}

void ken_mst_dialog::show_form() {
    m_midasi->setText(m_form.midasi);
    m_page->setText(m_form.page_name());
    for (int element = 0; element < int(m_kenatai.size()); ++element)
        m_kenatai[element]->show_text(m_form.kenatai[element]);
    m_hyou->refresh();
    m_hyou_go->refresh();
}

void ken_mst_dialog::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    fit_master_grid(*m_hyou, m_hyou->width());
}

void ken_mst_dialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    refresh();
}

/// The grid moves its cursor by itself; only the way back to the boxes is the form's.
bool ken_mst_dialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_hyou && event->type() == QEvent::KeyPress) {
        const int code = key_code(static_cast<QKeyEvent*>(event)->key());
        return code != 0 && act([&] { return m_form.hyou_KeyDown(code); });
    }
    return QDialog::eventFilter(watched, event);
}

/// Every way out leads here, the close box and Escape too.
void ken_mst_dialog::done(int result) {
    if (!m_form.ended)
        m_form.botan_Click(0);
    QDialog::done(result);
    Q_EMIT ended(m_form.chosen ? std::optional(m_form.search_result) : std::nullopt);
    deleteLater();
}

ken_mst_dialog* マスター検索呼出(int mode, const base::Settings& settings, QString& mstkenflg, QWidget* caller) {
    auto* search = new Whole<ken_mst_dialog>(settings, mstkenflg, mode, caller->window());
    search->move(caller->window()->pos() + beside_the_frame);
    search->show();
    return search;
}

} // namespace ui
