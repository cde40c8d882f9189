#include "ui/limits/ent_jyougen_page.h"

#include "base/literals.h"
#include "frame/help.h"
#include "ui/limits/limits_model.h"
#include "ui/limits/rules_panel.h"
#include "ui/limits/share_bar.h"
#include "ui/parts/colours.h"
#include "ui/parts/page_parts.h"
#include "ui/parts/style.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTableView>

namespace ui {

using namespace base;
using limits::Measure;
using Part = limits::ent_jyougen::Part;

namespace {

constexpr int line_height = 28;
constexpr int nearest_width = 250; ///< at least
constexpr int lines_in_sight = 4;
constexpr int notice_air = 5;
constexpr std::array<int, LimitsModel::column_count> widths{
    74, 116, 50, nearest_width, 118, 128, 108, 124, 128, 92, 76};

} // namespace

ent_jyougen_page::ent_jyougen_page(frame::Session& session, QWidget* parent)
    : Acting(parent), m_session(session), m_form(session), m_notice(new QLabel(this)),
      m_employees(new LimitsModel(m_form, this)), m_list(new QTableView(this)) {
    setWindowTitle(limits::ent_jyougen::caption.toString());
    m_form.Form_Load();
    const PageParts parts = lay_parts(*this);
    parts.head->addWidget(page_heading(limits::ent_jyougen::caption, this));
    parts.head->addWidget(make_month());
    parts.head->addStretch(1);
    parts.body->addWidget(make_filter_row());
    m_notice->setMargin(notice_air);
    m_notice->setAutoFillBackground(true);
    QPalette notice = m_notice->palette();
    notice.setColor(QPalette::Window, QColor::fromRgb(colours::notice));
    m_notice->setPalette(notice);
    parts.body->addWidget(m_notice);
    make_list();
    parts.body->addWidget(m_list, 1);
    parts.body->addWidget(make_employee());
    parts.foot->addWidget(make_picture(frame::endbotan, [this] { press(0); }));
    parts.foot->addWidget(make_picture(
        frame::help_button, [this] { frame::ヘルプ表示(m_session.settings, m_session.host, u"ent_jyougen"_s); }));
    parts.foot->addStretch(1);
    refresh();
}

QPushButton* ent_jyougen_page::make_button(const QString& caption, std::function<void()> on_press) {
    auto* button = new QPushButton(caption, this);
    connect(button, &QPushButton::clicked, this, [this, on_press = std::move(on_press)] { act(on_press); });
    return button;
}

PictureButton* ent_jyougen_page::make_picture(const frame::Button& button, std::function<void()> on_press) {
    auto* made = new PictureButton(frame::picture_folder(m_session.settings), button, this);
    connect(made, &PictureButton::clicked, this, std::move(on_press));
    return made;
}

QWidget* ent_jyougen_page::make_month() {
    auto* row = new QWidget(this);
    auto* layout = row_in(row);
    layout->addWidget(make_button(u"前の月(&P)"_s, [this] { m_form.step_month(-1); }));
    layout->addWidget(m_ym = new QLabel(row));
    letter(*m_ym, Lettering::Section);
    layout->addWidget(make_button(u"次の月(&N)"_s, [this] { m_form.step_month(1); }));
    return row;
}

QWidget* ent_jyougen_page::make_filter_row() {
    auto* row = new QWidget(this);
    auto* layout = row_in(row);
    auto* only_off = new QCheckBox(u"注意と超過だけ(&O)"_s, row);
    connect(only_off, &QCheckBox::toggled, this, [this](bool on) { act([&] { m_form.set_only_off(on); }); });
    layout->addWidget(only_off);
    layout->addSpacing(2 * page_gap);
    layout->addWidget(m_msglab = new QLabel(row), 1);
    m_msglab->setObjectName("msglab");
    layout->addWidget(make_button(u"読み直す(&U)"_s, [this] { m_form.read_again(); }));
    layout->addWidget(make_button(u"決まり(&R)..."_s, [this] { change_rules(); }));
    layout->addWidget(make_button(u"CSV出力(&S)..."_s, [this] { m_form.export_csv(); }));
    return row;
}

void ent_jyougen_page::make_list() {
    m_list->setObjectName("limits");
    m_list->setAccessibleName(u"上限に近い順の社員"_s);
    m_list->setModel(m_employees);
    m_list->setItemDelegate(new ShareBar(m_list));
    m_list->verticalHeader()->hide();
    m_list->verticalHeader()->setDefaultSectionSize(line_height);
    m_list->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    m_list->horizontalHeader()->setHighlightSections(false);
    m_list->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_list->setSelectionMode(QAbstractItemView::SingleSelection);
    m_list->setWordWrap(false);
    m_list->setShowGrid(false);
    m_list->setTabKeyNavigation(false);
    for (int column = 0; column < LimitsModel::column_count; ++column)
        m_list->setColumnWidth(column, widths[size_t(column)]);
    QPalette palette = m_list->palette(); // bars and words keep their colours in the row in hand
    palette.setColor(QPalette::Highlight, QColor::fromRgb(colours::row_in_hand));
    palette.setColor(QPalette::HighlightedText, QColor::fromRgb(colours::text));
    m_list->setPalette(palette);
    m_list->viewport()->installEventFilter(this);
    connect(m_list->selectionModel(), &QItemSelectionModel::currentRowChanged, this, [this] { show_employee(); });
}

QWidget* ent_jyougen_page::make_employee() {
    auto* row = new QWidget(this);
    auto* layout = row_in(row);
    layout->addWidget(m_lines = new QPlainTextEdit(row), 1);
    m_lines->setReadOnly(true);
    m_lines->setTabChangesFocus(true);
    m_lines->setAccessibleName(u"選んだ社員の内容"_s);
    m_lines->setFixedHeight(lines_in_sight * m_lines->fontMetrics().lineSpacing() + 2 * page_gap);
    auto* free = new QVBoxLayout;
    free->addWidget(m_free_hours = make_free(u"この社員の時間外と休憩は見ない"_s, Part::Hours));
    free->addWidget(m_free_leave = make_free(u"この社員の年休は見ない"_s, Part::Leave));
    free->addStretch(1);
    layout->addLayout(free);
    return row;
}

QCheckBox* ent_jyougen_page::make_free(const QString& caption, Part part) {
    auto* box = new QCheckBox(caption, this);
    connect(box, &QCheckBox::clicked, this,
        [this, part](bool on) { act([&] { m_form.set_free(place_in_hand(), part, on); }); });
    return box;
}

void ent_jyougen_page::change_rules() {
    if (RulesPanel(m_session, m_form.look, this).exec() == QDialog::Accepted)
        m_form.read_again();
}

void ent_jyougen_page::press(int element) {
    m_form.botan_Click(element);
    if (m_form.close_wanted)
        Q_EMIT close_wanted();
}

void ent_jyougen_page::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (!event->spontaneous())
        m_list->setFocus();
}

bool ent_jyougen_page::eventFilter(QObject* watched, QEvent* event) {
    if (watched == m_list->viewport() && event->type() == QEvent::Resize)
        widen_nearest();
    return QWidget::eventFilter(watched, event);
}

/// The bar that counts most takes the room that is left.
void ent_jyougen_page::widen_nearest() {
    const int others = m_list->horizontalHeader()->length() - m_list->columnWidth(LimitsModel::Nearest);
    m_list->setColumnWidth(LimitsModel::Nearest, std::max(nearest_width, m_list->viewport()->width() - others));
}

int ent_jyougen_page::place_in_hand() const {
    return m_list->currentIndex().isValid() ? m_list->currentIndex().row() : -1;
}

void ent_jyougen_page::refresh() {
    const base::EmployeeKey in_hand = m_in_hand; // the reset lets go of it
    m_employees->refresh();
    m_ym->setText(m_form.ym);
    m_msglab->setText(m_form.msglab);
    m_notice->setText(m_form.notice);
    m_notice->setVisible(!m_form.notice.isEmpty());
    m_list->setColumnHidden(LimitsModel::first_measure + int(Measure::MonthsAbove), !m_form.look.kept.rules.special);
    widen_nearest();
    m_list->selectRow(std::max(0, m_form.place_of(in_hand)));
    show_employee();
}

void ent_jyougen_page::show_employee() {
    const int place = place_in_hand();
    m_in_hand = place < 0 ? base::EmployeeKey() : m_employees->employee(place).figures.key;
    const QStringList lines = m_form.lines(place);
    m_lines->setPlainText(lines.isEmpty() && place >= 0 ? u"超過や注意はありません。"_s : lines.join(u'\n'));
    for (const auto& [box, part] : {std::pair(m_free_hours, Part::Hours), std::pair(m_free_leave, Part::Leave)}) {
        const QSignalBlocker quiet(box);
        box->setEnabled(place >= 0);
        box->setChecked(m_form.is_free(place, part));
    }
}

} // namespace ui
