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
    return only_of(text, u"0123456789:.,-") == text;
}

void add_whole(Page& page, const 印刷項目& column, const QString& figure, double y, double left) {
    if (column.項目位置)
        add_fitted(page, figure, y, left, column.項目幅, *column.項目位置);
    else
        add_centred(page, figure, cell_size, y, left, column.項目幅);
}

QString ranged_right(const QString& text, int length) {
    return (QString(length, u' ') + text).right(length);
}

} // namespace

void add_text(Page& page, const QString& text, double size, double y, double x) {
    if (!shows_nothing(text))
        page.texts.push_back({y, x, size, text});
}

void add_fitted(Page& page, const QString& text, double y, double left, double width, double inset) {
    constexpr double standard_size = 9;
    const double size = 文字サイズ決定(width, inset, text, standard_size);
    add_text(page, text, size > standard_size ? cell_size : size, y, left + inset);
}

void add_centred(Page& page, const QString& text, double size, double y, double left, double width) {
    const double inset = centred_inset(width, text);
    if (inset >= 0)
        return add_text(page, text, size, y, left + inset);
    const double small = 文字サイズ決定(width, 0, text, size);
    const double room_beside = width - (width - 2 * inset) * small / size;
    add_text(page, text, small, y, left + std::max(0.0, room_beside / 2));
}

void add_cell(Page& page, const 印刷項目& column, const QString& cell, double y, double left) {
    if (column.項目種別 == CellKind::Text) {
        const QString text = whole_left(Trim(cell), column.項目桁数);
        return add_fitted(page, text, y, left, column.項目幅, inset_of(column, text));
    }
    const QString formatted = in_format(cell, column.項目書式);
    if (formatted.size() > column.項目桁数 && is_figure(formatted))
        return add_whole(page, column, formatted, y, left);
    const QString text = ranged_right(formatted, column.項目桁数);
    add_text(page, text, cell_size, y, left + inset_of(column, text));
}

void add_rectangle(Page& page, double left, double top, double right, double bottom, int width) {
    page.lines.insert(page.lines.end(), {{left, top, left, bottom, width}, {right, top, right, bottom, width},
                                            {left, top, right, top, width}, {left, bottom, right, bottom, width}});
}

} // namespace reports
