#include "reports/pages/page.h"

#include "base/literals.h"
#include "base/text.h"
#include "reports/pages/font_fit.h"

#include <algorithm>
#include <cmath>

namespace reports {

using namespace base;

namespace {

double inset_of(const 印刷項目& column, const QString& text) {
    return column.項目位置 ? *column.項目位置 : centred_inset(column.項目幅, text);
}

bool shows_nothing(const QString& text) {
    return std::ranges::all_of(text, [](QChar c) { return c == u' '; });
}

/// "####": numbers without decimals and 0 as blank; what is no number stays.
QString whole_number(const QString& cell) {
    bool is_number = false;
    const double number = cell.toDouble(&is_number);
    if (!is_number)
        return cell;
    const qint64 whole = std::llround(number);
    return whole == 0 ? QString() : QString::number(whole);
}

QString in_format(const QString& cell, const QString& format) {
    return format == u"####"_s ? whole_number(cell) : cell;
}

bool is_figure(const QString& text) {
    return only_of(text, "0123456789:.,-"_L1) == text;
}

void add_whole(Page& page, const 印刷項目& column, const QString& figure, Place start) {
    if (column.項目位置)
        add_fitted(page, figure, *column.項目位置, start, column.項目幅);
    else
        add_centred(page, figure, cell_size, start, column.項目幅);
}

Place moved_right(Place place, double by) {
    return {.x = place.x + by, .y = place.y};
}

QString ranged_right(const QString& text, int length) {
    return (QString(length, u' ') + text).right(length);
}

} // namespace

void add_text(Page& page, const QString& text, double size, Place place) {
    if (!shows_nothing(text))
        page.texts.push_back({place, size, text});
}

void add_fitted(Page& page, const QString& text, double inset, Place column, double width) {
    constexpr double standard_size = 9;
    const double size = 文字サイズ決定(width, inset, text, standard_size);
    add_text(page, text, size > standard_size ? cell_size : size, moved_right(column, inset));
}

void add_centred(Page& page, const QString& text, double size, Place column, double width) {
    const double inset = centred_inset(width, text);
    if (inset >= 0)
        return add_text(page, text, size, moved_right(column, inset));
    const double small = 文字サイズ決定(width, 0, text, size);
    const double room_beside = width - (width - 2 * inset) * small / size;
    add_text(page, text, small, moved_right(column, std::max(0.0, room_beside / 2)));
}

void add_cell(Page& page, const 印刷項目& column, const QString& cell, Place start) {
    if (column.項目種別 == CellKind::Text) {
        const QString text = whole_left(Trim(cell), column.項目桁数);
        return add_fitted(page, text, inset_of(column, text), start, column.項目幅);
    }
    const QString formatted = in_format(cell, column.項目書式);
    if (formatted.size() > column.項目桁数 && is_figure(formatted))
        return add_whole(page, column, formatted, start);
    const QString text = ranged_right(formatted, column.項目桁数);
    add_text(page, text, cell_size, moved_right(start, inset_of(column, text)));
}

void add_rectangle(Page& page, const Box& box, int width) {
    const Place left_top{.x = box.left, .y = box.top};
    const Place right_top{.x = box.right, .y = box.top};
    const Place left_bottom{.x = box.left, .y = box.bottom};
    const Place right_bottom{.x = box.right, .y = box.bottom};
    page.lines.insert(page.lines.end(), {{left_top, left_bottom, width}, {right_top, right_bottom, width},
                                            {left_top, right_top, width}, {left_bottom, right_bottom, width}});
}

} // namespace reports
