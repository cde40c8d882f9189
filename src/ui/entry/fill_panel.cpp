#include "ui/entry/fill_panel.h"

#include "base/literals.h"
#include "ui/parts/style.h"

#include <QButtonGroup>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace ui {

using namespace base;

namespace {

constexpr QStringView source_captions[] = {u"勤務タイプの標準時間", u"上の日と同じ時刻", u"前の週の同じ曜日と同じ時刻"};
constexpr QStringView range_captions[] = {u"空いている日すべて", u"行の範囲"};
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

FillPanel::FillPanel(const entry::MonthSheet& sheet, const QList<entry::BandChoice>& choices, QWidget* parent)
    : QDialog(parent), m_sources(new QButtonGroup(this)), m_whole(new QButtonGroup(this)),
      m_first(row_box(sheet.entry_cell.row, sheet.month.length(), this)),
      m_last(row_box(sheet.month.length(), sheet.month.length(), this)) {
    setWindowTitle(u"一括入力"_s);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(20, 16, 20, 16);
    column->setSpacing(8);
    const auto add = [&](QButtonGroup* group, QStringView caption) {
        auto* button = new QRadioButton(caption.toString(), this);
        group->addButton(button, static_cast<int>(group->buttons().size()));
        button->setChecked(group->buttons().size() == 1);
        column->addWidget(button);
    };
    column->addWidget(section(u"入れる時刻"_s, this));
    for (const QStringView caption : source_captions)
        add(m_sources, caption);
    if (!choices.isEmpty()) {
        column->addWidget(new QLabel(u"この勤務タイプで、普段の退社はどの時間帯の終わりですか"_s, this));
        m_bands = new QComboBox(this);
        for (const entry::BandChoice& choice : choices)
            m_bands->addItem(choice.text, choice.number);
        column->addWidget(m_bands);
    }
    column->addWidget(section(u"入れる日"_s, this));
    for (const QStringView caption : range_captions)
        add(m_whole, caption);
    auto* range = new QHBoxLayout;
    range->addSpacing(24);
    range->addWidget(m_first);
    range->addWidget(new QLabel(u"から"_s, this));
    range->addWidget(m_last);
    range->addWidget(new QLabel(u"まで"_s, this));
    range->addStretch();
    column->addLayout(range);
    for (QSpinBox* box : {m_first, m_last})
        connect(box, &QSpinBox::valueChanged, this, [this] { m_whole->button(some)->setChecked(true); });
    auto* buttons = new QDialogButtonBox(this);
    auto* fill = buttons->addButton(u"入れる"_s, QDialogButtonBox::AcceptRole);
    buttons->addButton(u"やめる"_s, QDialogButtonBox::RejectRole);
    fill->setDefault(true);
    fill->setFocus();
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    column->addSpacing(8);
    column->addWidget(buttons);
}

entry::FillSource FillPanel::source() const {
    return entry::FillSource(m_sources->checkedId());
}

std::optional<entry::RowRange> FillPanel::rows() const {
    if (m_whole->checkedId() == whole)
        return std::nullopt;
    return entry::RowRange{m_first->value(), m_last->value()};
}

std::optional<int> FillPanel::normal_band() const {
    return m_bands ? std::optional(m_bands->currentData().toInt()) : std::nullopt;
}

} // namespace ui
