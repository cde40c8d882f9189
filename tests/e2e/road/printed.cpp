#include "e2e/road/printed.h"

#include "base/literals.h"
#include "e2e/road/steps.h"
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

} // namespace

void demand_texts(const QString& whole, const QStringList& texts) {
    for (const QString& text : texts)
        demand(without_blanks(whole).contains(without_blanks(text)), u"\"%1\" isn't there"_s.arg(text));
}

void demand_pdf(const QString& path, int pages, const QStringList& texts) {
    static const QRegularExpression page_object(u"/Type\\s*/Page\\b"_s);
    const QByteArray bytes = support::bytes_of(path);
    demand(bytes.startsWith("%PDF"), u"no PDF file"_s);
    const auto found = QString::fromLatin1(bytes).count(page_object);
    demand(found >= pages, u"%1 pages wanted, %2 there"_s.arg(pages).arg(found));
    const QString reader = QStandardPaths::findExecutable(u"pdftotext"_s);
    if (reader.isEmpty())
        return;
    QProcess process;
    process.start(reader, {u"-layout"_s, u"-enc"_s, u"UTF-8"_s, path, u"-"_s});
    process.waitForFinished(-1);
    demand_texts(QString::fromUtf8(process.readAllStandardOutput()), texts);
}

} // namespace e2e
