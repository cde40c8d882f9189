#include "ui/entry/fill_panel.h"

#include "base/literals.h"
#include "ui/parts/style.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

namespace ui {

using namespace base;

namespace {

constexpr QStringView source_captions[] = {
    u"勤務タイプのふだんの時刻", u"上の日と同じ時刻", u"前の週の同じ曜日と同じ時刻"};
constexpr QStringView range_captions[] = {u"次の曜日の、空いている日すべて", u"行の範囲"};
constexpr QStringView weekday_names = u"日月火水木金土";
enum Range { whole, some };

QLabel* section(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    letter(*label, Lettering::Section);
    return label;
}

QSpinBox* row_box(int row, int last, QWidget* parent) {
    auto* box = new QSpinBox(parent);
    box->setRange(entry::row::first_day, last);
    box->setValue(row);
    box->setSuffix(u"行目"_s);
    return box;
}

} // namespace

FillPanel::FillPanel(const entry::MonthSheet& sheet, const QList<entry::BandChoice>& choices, entry::NormalDay marked,
    entry::Weekdays weekdays, QWidget* parent)
    : QDialog(parent), m_sources(new QButtonGroup(this)), m_whole(new QButtonGroup(this)),
      m_first(row_box(sheet.entry_cell.row, sheet.month.length(), this)),
      m_last(row_box(sheet.month.length(), sheet.month.length(), this)) {
    setWindowTitle(u"一括入力"_s);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(20, 16, 20, 16);
    column->setSpacing(8);
    column->addWidget(section(u"入れる時刻"_s, this));
    add_options(column, m_sources, source_captions);
    if (!choices.isEmpty())
        ask_normal_day(column, choices, marked);
    column->addWidget(section(u"入れる日"_s, this));
    add_options(column, m_whole, range_captions);
    column->insertLayout(column->count() - 1, make_weekdays(weekdays));
    column->addLayout(make_range());
    column->addSpacing(8);
    column->addWidget(make_buttons());
}

/// The first is chosen.
void FillPanel::add_options(QVBoxLayout* column, QButtonGroup* group, std::span<const QStringView> captions) {
    for (int id = 0; id < int(captions.size()); ++id) {
        auto* button = new QRadioButton(captions[id].toString(), this);
        group->addButton(button, id);
        button->setChecked(id == 0);
        column->addWidget(button);
    }
}

/// Where the work type has one band alone, it begins the day as well.
void FillPanel::ask_normal_day(QVBoxLayout* column, const QList<entry::BandChoice>& choices, entry::NormalDay marked) {
    column->addWidget(new QLabel(u"この勤務タイプの、ふだんの出社と退社"_s, this));
    if (choices.size() > 1) {
        const QList<entry::BandChoice> of_the_day{{0, u"その曜日の最初の時間帯"_s}};
        m_first_band = add_bands(column, u"の始めに出社"_s, of_the_day + choices, marked.first);
    }
    m_last_band = add_bands(column, u"の終わりに退社"_s, choices, marked.last);
}

QComboBox* FillPanel::add_bands(
    QVBoxLayout* column, const QString& caption, const QList<entry::BandChoice>& choices, int marked) {
    auto* bands = new QComboBox(this);
    for (const entry::BandChoice& choice : choices)
        bands->addItem(choice.text, choice.number);
    bands->setCurrentIndex(std::max(0, bands->findData(marked)));
    auto* row = new QHBoxLayout;
    row->addWidget(bands, 1);
    row->addWidget(new QLabel(caption, this));
    column->addLayout(row);
    return bands;
}

/// From Monday on, each with the digit of its place as a key: Alt and 6 is Saturday.
QLayout* FillPanel::make_weekdays(entry::Weekdays weekdays) {
    auto* row = new QHBoxLayout;
    row->addSpacing(24);
    for (int place = 1; place <= int(weekdays.size()); ++place) {
        const size_t day = size_t(place) % weekdays.size();
        auto* box = new QCheckBox(weekday_names.sliced(qsizetype(day), 1).toString(), this);
        box->setShortcut(QKeySequence(Qt::ALT | Qt::Key(Qt::Key_0 + place)));
        box->setChecked(weekdays.test(day));
        row->addWidget(m_weekdays[day] = box);
    }
    row->addStretch();
    return row;
}

QLayout* FillPanel::make_range() {
    auto* range = new QHBoxLayout;
    range->addSpacing(24);
    range->addWidget(m_first);
    range->addWidget(new QLabel(u"から"_s, this));
    range->addWidget(m_last);
    range->addWidget(new QLabel(u"まで"_s, this));
    range->addStretch();
    for (QSpinBox* box : {m_first, m_last})
        connect(box, &QSpinBox::valueChanged, this, [this] { m_whole->button(some)->setChecked(true); });
    return range;
}

QWidget* FillPanel::make_buttons() {
    auto* buttons = new QDialogButtonBox(this);
    auto* fill = buttons->addButton(u"入れる"_s, QDialogButtonBox::AcceptRole);
    buttons->addButton(u"やめる"_s, QDialogButtonBox::RejectRole);
    fill->setDefault(true);
    fill->setFocus();
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
}

entry::FillSource FillPanel::source() const {
    return entry::FillSource(m_sources->checkedId());
}

std::optional<entry::RowRange> FillPanel::rows() const {
    if (m_whole->checkedId() == whole)
        return std::nullopt;
    return entry::RowRange{m_first->value(), m_last->value()};
}

entry::Weekdays FillPanel::weekdays() const {
    entry::Weekdays ticked;
    for (size_t day = 0; day < ticked.size(); ++day)
        ticked.set(day, m_weekdays[day]->isChecked());
    return ticked;
}

std::optional<entry::NormalDay> FillPanel::normal_day() const {
    if (!m_last_band)
        return std::nullopt;
    return entry::NormalDay{m_last_band->currentData().toInt(), m_first_band ? m_first_band->currentData().toInt() : 0};
}

} // namespace ui
