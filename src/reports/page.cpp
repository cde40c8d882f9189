#include "reports/page.h"

#include "base/literals.h"
#include "base/text.h"
#include "reports/font_fit.h"

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

void add_cell(Page& page, const 印刷項目& column, const QString& cell, double y, double left) {
    if (column.項目種別 == CellKind::Text) {
        const QString text = whole_left(Trim(cell), column.項目桁数);
        return add_fitted(page, text, y, left, column.項目幅, inset_of(column, text));
    }
    const QString text = ranged_right(in_format(cell, column.項目書式), column.項目桁数);
    add_text(page, text, cell_size, y, left + inset_of(column, text));
}

void add_rectangle(Page& page, double left, double top, double right, double bottom, int width) {
    page.lines.insert(page.lines.end(), {{left, top, left, bottom, width}, {right, top, right, bottom, width},
                                            {left, top, right, top, width}, {left, bottom, right, bottom, width}});
}

} // namespace reports
