#include "e2e/road/printed.h"

#include "base/literals.h"
#include "platform/from_cp932.h"
#include "support/stored.h"

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

namespace e2e {

using namespace base;

namespace {

QString without_blanks(QString text) {
    return text.removeIf([](QChar c) { return c.isSpace(); });
}

QString text_of_pdf(const QString& reader, const QString& path) {
    QProcess process;
    process.start(reader, {u"-layout"_s, u"-enc"_s, u"UTF-8"_s, path, u"-"_s});
    process.waitForFinished(-1);
    return without_blanks(QString::fromUtf8(process.readAllStandardOutput()));
}

/// The cells of a row in the columns that are in sight.
QString csv_line(const base::Sheet& hyou, int row) {
    QStringList cells;
    for (int col = 0; col < hyou.Cols(); ++col)
        if (hyou.ColWidth(col) > 0)
            cells << QString(hyou(row, col)).remove(u',');
    return cells.join(u',');
}

} // namespace

QStringList faults_of_pdf(const QString& path, int pages, const QStringList& texts) {
    static const QRegularExpression page_object(u"/Type\\s*/Page\\b"_s);
    const QByteArray bytes = support::bytes_of(path);
    QStringList faults;
    if (!bytes.startsWith("%PDF"))
        faults << u"no PDF file"_s;
    if (const auto found = QString::fromLatin1(bytes).count(page_object); found < pages)
        faults << u"%1 pages wanted, %2 there"_s.arg(pages).arg(found);
    const QString reader = QStandardPaths::findExecutable(u"pdftotext"_s);
    const QString printed = reader.isEmpty() ? QString() : text_of_pdf(reader, path);
    for (const QString& text : texts)
        if (!reader.isEmpty() && !printed.contains(without_blanks(text)))
            faults << u"\"%1\" isn't printed"_s.arg(text);
    return faults;
}

QStringList faults_of_csv(const QString& path, const QString& title, const base::Sheet& hyou) {
    QStringList wanted{title, {}, {}, {}, {}};
    for (int row = 0; row < hyou.Rows(); ++row)
        wanted << csv_line(hyou, row);
    wanted << QString();
    const QStringList lines = platform::from_cp932(support::bytes_of(path)).split(u"\r\n"_s);
    QStringList faults;
    for (qsizetype i = 0; i < std::max(wanted.size(), lines.size()); ++i)
        if (const bool heading = i > 0 && i < 5; !heading && wanted.value(i) != lines.value(i))
            faults << u"line %1: \"%2\" wanted, \"%3\" there"_s.arg(i + 1).arg(wanted.value(i), lines.value(i));
    if (lines.size() != wanted.size())
        faults << u"%1 lines wanted, %2 there"_s.arg(wanted.size()).arg(lines.size());
    return faults;
}

} // namespace e2e
