#include "ui/pages/menu_page.h"

#include "base/literals.h"
#include "base/twips.h"
#include "frame/menus.h"
#include "ui/parts/colours.h"
#include "ui/parts/page_parts.h"
#include "ui/parts/picture_button.h"
#include "ui/parts/style.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace ui {

using namespace base;

namespace {

constexpr int entries_a_row = 2;
constexpr int first_entry_row = 2; ///< below the heading and its line
constexpr int band_height = 32;
constexpr int comment_height = 44; ///< of two lines, so that the rows stand evenly
constexpr int between_columns = 28;
constexpr int between_rows = 20;

QLabel* comment(QString text, QWidget* parent) {
    auto* label = new QLabel(text.remove(u'\r'), parent);
    label->setTextFormat(Qt::PlainText);
    label->setMinimumHeight(comment_height);
    label->setWordWrap(true);
    letter(*label, Lettering::Comment);
    return label;
}

} // namespace

MenuPage::MenuPage(
    QStringView caption, const std::vector<MenuEntry>& entries, const QString& pictures, MenuActs acts, QWidget* parent)
    : QWidget(parent), m_acts(std::move(acts)), m_content(new QWidget(this)), m_band(make_band(pictures)) {
    setWindowTitle(caption.toString());
    auto* rows = new QGridLayout(m_content);
    rows->setContentsMargins(no_margins);
    rows->setHorizontalSpacing(between_columns);
    rows->setVerticalSpacing(between_rows);
    rows->addWidget(page_heading(caption, m_content), 0, 0, 1, entries_a_row);
    rows->addWidget(page_rule(m_content), 1, 0, 1, entries_a_row);
    int row = first_entry_row;
    for (int i = 0; i < int(entries.size()); ++i) {
        const int column = i % entries_a_row;
        if (column == 0 && i > 0)
            rows->addWidget(rule(m_content, colours::heading_line, 1), row++, 0, 1, entries_a_row);
        rows->addWidget(make_entry(entries[i], pictures), row, column, Qt::AlignTop);
        rows->setColumnStretch(column, 1);
        if (column == entries_a_row - 1)
            ++row;
    }
}

QWidget* MenuPage::make_entry(const MenuEntry& entry, const QString& pictures) {
    auto* place = new QWidget(m_content);
    auto* line = new QHBoxLayout(place);
    line->setContentsMargins(no_margins);
    line->setSpacing(18);
    auto* button = new PictureButton(pictures, *entry.button, place);
    line->addWidget(button, 0, Qt::AlignTop);
    line->addWidget(comment(entry.comment, place), 1);
    button->setAccessibleDescription(entry.comment);
    connect(button, &PictureButton::clicked, this, [this, index = entry.button->index] { m_acts.botan_Click(index); });
    return place;
}

QWidget* MenuPage::make_band(const QString& pictures) {
    auto* band = new QWidget(this);
    auto* button = new PictureButton(pictures, frame::endbotan, band);
    connect(button, &PictureButton::clicked, this, [this] { m_acts.endbotan_Click(); });
    return band;
}

void MenuPage::resizeEvent(QResizeEvent*) {
    const int room = width() - frame::pic_bota_margin / twips_a_pixel - 2 * content_margin;
    const int content = qMin(room, content_width);
    const int left = (width() - content) / 2;
    m_content->setGeometry(left, content_margin, content, m_content->heightForWidth(content));
    const int top = frame::pic_bota_top(height() * twips_a_pixel, band_height * twips_a_pixel) / twips_a_pixel;
    m_band->setGeometry(left, qMax(top, m_content->geometry().bottom() + content_margin), content, band_height);
}

} // namespace ui
