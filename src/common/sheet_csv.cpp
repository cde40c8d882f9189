#include "common/sheet_csv.h"

#include "base/literals.h"
#include "platform/cp932.h"
#include "platform/paths.h"

#include <QFile>
#include <algorithm>
#include <utility>

namespace common {

using namespace base;
using platform::Cp932Text;
using platform::Fit;

namespace {

constexpr qsizetype cells_named = 20;
constexpr qsizetype piece_size = 64 * 1024;
constexpr char separator = ',';

QList<int> visible_columns(const Sheet& hyou) {
    QList<int> columns;
    for (int col = 0; col < hyou.Cols(); ++col)
        if (hyou.ColWidth(col) > 0)
            columns << col;
    return columns;
}

Fit add_line(Cp932Text& text, QStringView line) {
    const Fit fit = text.add(line);
    text.add(u"\r\n");
    return fit;
}

Fit add_row(Cp932Text& text, const Sheet& hyou, int row, const QList<int>& columns) {
    Fit fit = Fit::Whole;
    bool first = true;
    for (const int col : columns) {
        if (!std::exchange(first, false))
            text.add(separator);
        fit = std::max(fit, text.add(hyou(row, col), separator));
    }
    text.add(u"\r\n");
    return fit;
}

bool fits(const QString& text) {
    return Cp932Text().add(text) == Fit::Whole;
}

bool open_new(QFile& file) {
    return (!file.exists() || file.remove()) && file.open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

bool write_out(QFile& file, Cp932Text& text) {
    const QByteArrayView bytes = text.bytes();
    const bool whole = file.write(bytes.data(), bytes.size()) == bytes.size();
    text.clear();
    return whole;
}

void tell_replaced(platform::Host& host, const QStringList& places) {
    QStringList lines = places.first(std::min(places.size(), cells_named));
    if (places.size() > cells_named)
        lines << u"ほか%1か所"_s.arg(places.size() - cells_named);
    host.tell(u"ファイルに書けない文字を「?」に置き換えました。\n"_s + lines.join(u'\n'), u"ファイル作成"_s);
}

} // namespace

Written write_csv(std::span<const QString> headings, const Sheet& hyou, const QString& path) {
    QFile file(platform::portable(path));
    if (!open_new(file))
        return Written::Failed;
    Cp932Text text;
    Fit fit = Fit::Whole;
    for (const QString& heading : headings)
        fit = std::max(fit, add_line(text, heading));
    const QList<int> columns = visible_columns(hyou);
    for (int row = 0; row < hyou.Rows(); ++row) {
        fit = std::max(fit, add_row(text, hyou, row, columns));
        if (text.bytes().size() >= piece_size && !write_out(file, text))
            return Written::Failed;
    }
    if (!write_out(file, text))
        return Written::Failed;
    return fit == Fit::Whole ? Written::Whole : Written::Replaced;
}

QStringList replaced_places(std::span<const QString> headings, const Sheet& hyou) {
    QStringList places;
    for (const QString& heading : headings)
        if (!fits(heading))
            places << u"見出し「%1」"_s.arg(heading);
    const QList<int> columns = visible_columns(hyou);
    for (int row = 0; row < hyou.Rows(); ++row)
        for (const int col : columns)
            if (const QString& cell = hyou(row, col); !fits(cell))
                places << u"%1行 %2「%3」"_s.arg(QString::number(row), hyou(0, col), cell);
    return places;
}

void tell_written(Written written, std::span<const QString> headings, const Sheet& hyou, platform::Host& host) {
    if (written == Written::Failed)
        host.tell(u"このファイルは使用中です。一度閉じてから再度データー出力をしてください"_s, u"書き込みエラー"_s);
    else if (written == Written::Replaced)
        tell_replaced(host, replaced_places(headings, hyou));
}

} // namespace common
