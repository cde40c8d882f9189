#include "printed.h"

#include "base/literals.h"
#include "e2e/road/clerk.h"
#include "platform/from_cp932.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>

namespace tour {

using namespace base;
using e2e::demand;

namespace {

constexpr qsizetype heading_lines = 5; ///< of a CSV file, before the sheet

QByteArray bytes_of(const QString& path) {
    QFile file(path);
    demand(file.open(QIODevice::ReadOnly), u"can't read "_s + path);
    return file.readAll();
}

QString without_blanks(QString text) {
    return text.removeIf([](QChar c) { return c.isSpace(); });
}

QString text_of_pdf(const QString& reader, const QString& path) {
    QProcess process;
    process.start(reader, {u"-layout"_s, u"-enc"_s, u"UTF-8"_s, path, u"-"_s});
    demand(process.waitForFinished(-1) && process.exitCode() == 0, u"pdftotext can't read "_s + path);
    return without_blanks(QString::fromUtf8(process.readAllStandardOutput()));
}

QStringList missing_texts(const QString& path, const QStringList& texts) {
    const QString reader = QStandardPaths::findExecutable(u"pdftotext"_s);
    if (reader.isEmpty())
        return {};
    const QString printed = text_of_pdf(reader, path);
    QStringList missing;
    for (const QString& text : texts)
        if (text.isEmpty() || !printed.contains(without_blanks(text)))
            missing << u"\"%1\" isn't printed"_s.arg(text);
    return missing;
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
    const QByteArray bytes = bytes_of(path);
    QStringList faults;
    if (!bytes.startsWith("%PDF"))
        faults << u"no PDF file"_s;
    const auto found = QString::fromLatin1(bytes).count(page_object);
    if (found < pages)
        faults << u"%1 pages wanted, %2 there"_s.arg(pages).arg(found);
    return faults + missing_texts(path, texts);
}

QStringList faults_of_csv(const QString& path, const reports::Report& report) {
    const QString text = platform::from_cp932(bytes_of(path));
    const QStringList lines = text.split(u"\r\n"_s);
    QStringList faults;
    if (text.contains(QChar::ReplacementCharacter))
        faults << u"not all of it is text"_s;
    if (lines.size() != heading_lines + report.hyou.Rows() + 1 || !lines.last().isEmpty())
        return faults << u"%1 rows on the sheet, %2 lines in the file"_s.arg(report.hyou.Rows()).arg(lines.size() - 1);
    if (lines.first() != report.midasi[0])
        faults << u"the title is \"%1\""_s.arg(lines.first());
    for (int row = 0; row < report.hyou.Rows(); ++row)
        if (lines[heading_lines + row] != csv_line(report.hyou, row))
            faults << u"row %1: \"%2\""_s.arg(row).arg(lines[heading_lines + row]);
    return faults;
}

} // namespace tour
