#include "ui/entry/ent_rovena_controls.h"

#include "base/literals.h"
#include "entry/layout.h"
#include "ui/parts/colours.h"
#include "ui/parts/radio_group.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>
#include <algorithm>

namespace ui {

using namespace Qt::StringLiterals;

namespace {

constexpr int page_margin = 8;
constexpr int gap = 6;
constexpr int tight_gap = 4; ///< above, between and below the sheets: a month with its scroll bar fits into 660 pixels
constexpr int largest_row = 30; ///< pixels; a sheet isn't drawn larger however large the window is
constexpr frame::Button botan_buttons[] = {
    frame::endbotan,
    {1, u"登録", u"zen_tour.BMP", u"zen_tour_b.BMP"},
};

constexpr FunctionKey function_keys[] = {
    {Qt::Key_F1, u"ヘルプ"},
    {Qt::Key_F2, u"内訳"},
    {Qt::Key_F3, u"上と同じ"},
    {Qt::Key_F5, u"一括入力"},
    {Qt::Key_F6, u"区分"},
    {Qt::Key_F7, u"前社員"},
    {Qt::Key_F8, u"次社員"},
    {Qt::Key_F9, u"登録"},
    {Qt::Key_F10, u"月間一覧"},
    {Qt::Key_F11, u"元に戻す"},
    {Qt::Key_F12, u"やり直し"},
};
constexpr int keys_a_row_in_column = 3;

constexpr int selector_width[] = {74, 58};
constexpr QStringView selector_units[] = {u"年", u"月"};

QLabel* label(QWidget& parent, int pixel_size, QRgb colour, QFont::Weight weight = QFont::Normal) {
    auto* made = new QLabel(&parent);
    QFont font = made->font();
    font.setPixelSize(pixel_size);
    font.setWeight(weight);
    made->setFont(font);
    QPalette palette = made->palette();
    palette.setColor(QPalette::WindowText, QColor::fromRgb(colour));
    made->setPalette(palette);
    return made;
}

/// A button beside the month's own: words alone, reached with Tab.
void stand_aside(QPushButton& button) {
    button.setFlat(true);
    button.setFocusPolicy(Qt::TabFocus);
}

QHBoxLayout* month_row(QWidget& parent, const std::array<MonthBox*, 2>& ym) {
    auto* row = new QHBoxLayout;
    row->setSpacing(4);
    for (int element = 0; element < 2; ++element) {
        ym[element]->setAccessibleName(selector_units[element].toString());
        row->addWidget(ym[element]);
        auto* unit = label(parent, 13, colours::text);
        unit->setText(selector_units[element].toString());
        row->addWidget(unit);
        row->addSpacing(6);
    }
    row->addStretch();
    return row;
}

QHBoxLayout* work_type_row(QWidget& parent, QLabel* name) {
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    auto* caption = label(parent, 12, colours::quiet_text);
    caption->setText(u"勤務タイプ"_s);
    row->addWidget(caption);
    row->addWidget(name, 1);
    return row;
}

} // namespace

ent_rovena_controls::ent_rovena_controls(
    QWidget& page, entry::ent_rovena& form, const std::array<MonthActs, 2>& acts, const QString& pictures)
    : left(new QWidget(&page)), hyou(new GridView(form.sheet.hyou, CursorStyle::Cell, &page)),
      hyou_day(new GridView(form.sheet.hyou_day, CursorStyle::Cell, &page)),
      hyou_syain(new GridView(form.hyou_syain, CursorStyle::Row, left)),
      syalab(label(*left, 15, colours::text, QFont::DemiBold)), lab2(label(*left, 13, colours::text)),
      msglab(label(*left, 12, colours::quiet_text)), ym{new MonthBox(acts[0], selector_width[0], left),
                                                         new MonthBox(acts[1], selector_width[1], left)},
      sortlist(radio_group(*left, entry::ent_rovena::sortlist_captions)),
      kyuflg(radio_group(*left, entry::ent_rovena::kyuflg_captions)),
      botan{new PictureButton(pictures, botan_buttons[0], left), new PictureButton(pictures, botan_buttons[1], left)},
      imghelp(new PictureButton(pictures, frame::help_button, left)), toubotan(new QWidget(left)),
      also_open(label(*left, 12, colours::quiet_text)), standing(label(*left, 12, colours::text)),
      give_up(new QPushButton(u"入力を取り消す"_s, left)), goes_on(new QCheckBox(u"月末の Enter で次の社員へ"_s, left)),
      torikomi(new QPushButton(u"取込(&I)..."_s, left)), jyougen(new QPushButton(u"上限(&L)..."_s, left)),
      keys(new FunctionBar(function_keys, page)), why(new WhyPanel(&page)) {
    wrap_words();
    goes_on->setFocusPolicy(Qt::TabFocus);
    for (QPushButton* aside : {give_up, torikomi, jyougen})
        stand_aside(*aside);
    toubotan->setFocusPolicy(Qt::ClickFocus);
    toubotan->setFixedSize(1, 1);
    toubotan->setObjectName("toubotan");
    why->hide();
    hyou->setObjectName("hyou");
    hyou_day->setObjectName("hyou_day");
    hyou_syain->setObjectName("hyou_syain");
    fill_left_column();
    order_by_tab();
}

void ent_rovena_controls::wrap_words() {
    for (QLabel* wrapped : {syalab, msglab, also_open, standing})
        wrapped->setWordWrap(true);
    syalab->setMinimumHeight(syalab->fontMetrics().height()); // its place stands before an employee is chosen
    also_open->hide();
    for (QLabel* line : {msglab, standing}) {
        line->setFixedHeight(2 * line->fontMetrics().lineSpacing());
        line->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }
}

void ent_rovena_controls::fill_left_column() {
    auto* buttons = new QGridLayout;
    buttons->setSpacing(gap);
    buttons->addWidget(botan[1], 0, 0);
    buttons->addWidget(botan[0], 0, 1);
    buttons->addWidget(imghelp, 1, 0);
    buttons->addWidget(msglab, 1, 1, 1, 2);
    buttons->setColumnStretch(2, 1);

    auto* column = new QVBoxLayout(left);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(gap);
    column->addWidget(syalab);
    column->addLayout(work_type_row(*left, lab2));
    column->addLayout(month_row(*left, ym));
    column->addLayout(in_a_row(*sortlist));
    column->addWidget(hyou_syain, 1);
    column->addLayout(in_a_row(*kyuflg));
    column->addWidget(goes_on);
    auto* aside = new QHBoxLayout;
    aside->addWidget(torikomi);
    aside->addWidget(jyougen);
    aside->addStretch(1);
    column->addLayout(aside);
    column->addLayout(buttons);
    column->addWidget(also_open);
    column->addWidget(standing);
    column->addWidget(give_up, 0, Qt::AlignLeft);
}

void ent_rovena_controls::order_by_tab() {
    QWidget* const order[] = {ym[0], ym[1], sortlist->button(0), sortlist->button(1), hyou_syain, hyou, hyou_day,
        kyuflg->button(0), kyuflg->button(1), goes_on, torikomi, jyougen, botan[1], botan[0], imghelp, give_up};
    for (std::size_t i = 1; i < std::size(order); ++i)
        QWidget::setTabOrder(order[i - 1], order[i]);
}

void ent_rovena_controls::lay_out(QSize page) {
    hyou->sheet().SetColWidth(entry::col::remark, entry::remark_width);
    m_why_at_right = why_fits_at_right(page);
    m_keys_at_foot = keys_fit_at_foot(page);
    int row_height = largest_row;
    zoom_to(row_height);
    while (!fits(page) && row_height > hyou->own_row_height())
        zoom_to(--row_height);
    hyou_syain->refresh();
    place_keys(page);
    place_sheets(sheets_room(page));
    place_why(page);
}

/// Whether the sheets at their own size leave room for the explanation beside them.
bool ent_rovena_controls::why_fits_at_right(QSize page) {
    m_why_at_right = false;
    zoom_to(hyou->own_row_height());
    return !why->isHidden() && hyou->full_width(false) + gap + WhyPanel::least_width <= sheets_room(page).width();
}

/// Whether the sheets at their own size leave room for the keys below them.
bool ent_rovena_controls::keys_fit_at_foot(QSize page) {
    zoom_to(hyou->own_row_height());
    const int width = sheets_room(page).width();
    const auto height = [&](const GridView& sheet) { return sheet.full_height(sheet.full_width(false) > width); };
    const int foot = keys->height_for(int(std::size(function_keys)));
    return height(*hyou) + height(*hyou_day) + foot + 4 * tight_gap <= page.height();
}

void ent_rovena_controls::place_keys(QSize page) {
    const QRect room = sheets_room(page);
    const int columns = m_keys_at_foot ? int(std::size(function_keys)) : keys_a_row_in_column;
    keys->set_columns(columns);
    const int height = keys->height_for(columns);
    QRect column(page_margin, gap, room.left() - 2 * page_margin, page.height() - 2 * gap);
    const int top = column.bottom() + 1 - height;
    if (m_keys_at_foot) {
        keys->setGeometry(room.left(), page.height() - tight_gap - height, room.width(), height);
    } else {
        keys->setGeometry(column.left(), top, column.width(), height);
        column.setBottom(top - gap);
    }
    left->setGeometry(column);
}

/// The place for the sheets beside the left column, which is as wide as the list of employees.
QRect ent_rovena_controls::sheets_room(QSize page) const {
    const int beside = 2 * page_margin + hyou_syain->full_width(true);
    const int foot = m_keys_at_foot ? keys->height_for(int(std::size(function_keys))) + tight_gap : 0;
    const int at_right = m_why_at_right ? gap + WhyPanel::least_width : 0;
    return {beside, tight_gap, page.width() - beside - at_right - page_margin, page.height() - 2 * tight_gap - foot};
}

void ent_rovena_controls::place_why(QSize page) {
    if (why->isHidden())
        return;
    const QRect room = sheets_room(page);
    if (m_why_at_right)
        why->setGeometry(room.right() + 1 + gap, room.top(), WhyPanel::least_width, room.height());
    else
        why->setGeometry(QRect(left->mapToParent(QPoint(0, hyou_syain->y())), hyou_syain->size()));
    why->raise();
}

void ent_rovena_controls::zoom_to(int row_height) {
    for (GridView* sheet : {hyou, hyou_day, hyou_syain})
        sheet->set_zoom(double(row_height) / hyou->own_row_height());
}

/// Whether all of both sheets is in view at the present zoom.
bool ent_rovena_controls::fits(QSize page) const {
    const QRect room = sheets_room(page);
    return std::max(hyou->full_width(false), hyou_day->full_width(false)) <= room.width() &&
           hyou->full_height(false) + tight_gap + hyou_day->full_height(false) <= room.height();
}

void ent_rovena_controls::place_sheets(QRect room) {
    const auto fitting = [&](const GridView& sheet) {
        const bool cut = sheet.full_width(false) > room.width();
        return QSize(std::min(room.width(), sheet.full_width(false)), sheet.full_height(cut));
    };
    const QSize strip = fitting(*hyou_day);
    QSize month = fitting(*hyou);
    const int month_room = room.height() - tight_gap - strip.height();
    if (month.height() > month_room)
        month = {std::min(room.width(), hyou->full_width(true)), month_room};
    hyou->widen(entry::col::remark, room.width() - month.width());
    month.setWidth(room.width());
    hyou->setGeometry(QRect(room.topLeft(), month));
    hyou_day->setGeometry(QRect(QPoint(room.left(), hyou->geometry().bottom() + 1 + tight_gap), strip));
    for (GridView* sheet : {hyou, hyou_day})
        sheet->refresh();
}

} // namespace ui
