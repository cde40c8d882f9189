#include "reports/csv.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "common/save_path.h"
#include "platform/cp932.h"
#include "platform/paths.h"

#include <QFile>

namespace reports {

using namespace base;

namespace {

constexpr qsizetype cells_named = 20;

QList<int> visible_columns(const Sheet& hyou) {
    QList<int> columns;
    for (int col = 0; col < hyou.Cols(); ++col)
        if (hyou.ColWidth(col) > 0)
            columns << col;
    return columns;
}

void append_row(QString& text, const Sheet& hyou, int row, const QList<int>& columns) {
    for (const int col : columns) {
        const QString& cell = hyou(row, col);
        if (cell.contains(u','))
            text += QString(cell).remove(u',');
        else
            text += cell;
        text += u',';
    }
    text.chop(columns.isEmpty() ? 0 : 1);
    text += QStringView(u"\r\n");
}

bool fits(const QString& text) {
    QByteArray bytes;
    return platform::append_cp932(bytes, text) == platform::Fit::Whole;
}

/// Looked for only when something was replaced.
QStringList replaced_places(const Report& report, const QList<int>& columns) {
    QStringList places;
    for (const QString& heading : report.midasi)
        if (!fits(heading))
            places << u"見出し「%1」"_s.arg(heading);
    for (int row = 0; row < report.hyou.Rows(); ++row)
        for (const int col : columns)
            if (const QString& cell = report.hyou(row, col); !fits(cell))
                places << u"%1行 %2「%3」"_s.arg(QString::number(row), report.hyou(0, col), cell);
    return places;
}

bool write_over(const QString& path, const QByteArray& bytes) {
    QFile file(platform::portable(path));
    if (file.exists() && !file.remove())
        return false;
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}

void tell_replaced(platform::Host& host, const QStringList& places) {
    QStringList lines = places.first(std::min(places.size(), cells_named));
    if (places.size() > cells_named)
        lines << u"ほか%1か所"_s.arg(places.size() - cells_named);
    host.tell(u"ファイルに書けない文字を「?」に置き換えました。\n"_s + lines.join(u'\n'), u"ファイル作成"_s);
}

} // namespace

CsvText csv_text(const Report& report) {
    const QList<int> columns = visible_columns(report.hyou);
    QString text;
    for (const QString& heading : report.midasi)
        text += heading + u"\r\n"_s;
    for (int row = 0; row < report.hyou.Rows(); ++row)
        append_row(text, report.hyou, row, columns);
    CsvText csv;
    if (platform::append_cp932(csv.bytes, text) == platform::Fit::Replaced)
        csv.replaced = replaced_places(report, columns);
    return csv;
}

void 帳票CSV出力(const Report& report, frame::Session& session, const std::function<void(const QString&)>& jyoulab) {
    const QString path = common::CSV保存先取得(session.settings, session.host, session.tables, digits(report.帳票番号));
    if (path.isEmpty())
        return;
    jyoulab(u"出力開始"_s);
    session.host.yield();
    const CsvText csv = csv_text(report);
    if (!write_over(path, csv.bytes))
        return session.host.tell(
            u"このファイルは使用中です。一度閉じてから再度データー出力をしてください"_s, u"書き込みエラー"_s);
    jyoulab(u"出力終了"_s);
    session.host.yield();
    if (!csv.replaced.isEmpty())
        tell_replaced(session.host, csv.replaced);
}

} // namespace reports
