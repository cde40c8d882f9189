// The documents tell what is: every table and field, and every option of a program, stands in them.

#include "base/literals.h"
#include "install/options.h"
#include "store/schema.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

using namespace base;

namespace {

QString document(const QString& name) {
    QFile file(QStringLiteral(ROVENA_DOCS "/") + name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << name.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// The part of a document from a heading to the next one of the same or a higher rank; empty if there is none.
QString section(const QString& text, const QString& heading) {
    const qsizetype start = text.indexOf(u"\n%1"_s.arg(heading));
    if (start < 0)
        return {};
    const QString rank = heading.section(u' ', 0, 0);
    const qsizetype end = text.indexOf(QRegularExpression(u"\n#{1,%1} "_s.arg(rank.size())), start + 1);
    return text.sliced(start, end < 0 ? -1 : end - start);
}

QStringList options_in(const QString& text) {
    static const QRegularExpression option(u"--[a-z][a-z-]+"_s);
    QSet<QString> found;
    for (const QRegularExpressionMatch& match : option.globalMatch(text))
        found << match.captured();
    return found.values();
}

QString help_of(const QString& program) {
    QProcess process;
    process.start(qEnvironmentVariable("ROVENA_BIN") + u'/' + program, {u"--help"_s});
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

void expect_told(const QString& program, const QString& help) {
    const QStringList options = options_in(help);
    EXPECT_FALSE(options.isEmpty()) << program.toStdString();
    for (const QString& name : {u"operations.md"_s, u"operations.ja.md"_s}) {
        const QString operations = document(name);
        for (const QString& option : options) {
            const bool told = option.startsWith(u"--help") || operations.contains(option);
            EXPECT_TRUE(told) << name.toStdString() << ": " << program.toStdString() << " " << option.toStdString();
        }
    }
}

} // namespace

TEST(Documents, EveryTableAndFieldOfTheFilesStandsInTheFormats) {
    const QString formats = document(u"formats.md"_s);
    using store::Kind;
    for (const Kind kind : {Kind::Comsys, Kind::Allsystem, Kind::Rovdata, Kind::Losys, Kind::Drafts, Kind::Closings})
        for (const store::Table& table : store::tables_of(kind)) {
            const bool settings = table.fields.size() == 2 && table.fields[0].name == u"項目名";
            const QString told = section(formats, settings ? u"### `kihon`"_s : u"### `%1`"_s.arg(table.name));
            ASSERT_FALSE(told.isEmpty()) << table.name.toString().toStdString();
            EXPECT_TRUE(told.contains(u"`%1`"_s.arg(table.name)));
            for (const store::Field& field : table.fields)
                EXPECT_TRUE(told.contains(u"`%1`"_s.arg(field.name)))
                    << table.name.toString().toStdString() << "." << field.name.toString().toStdString();
        }
}

TEST(Documents, EveryOptionOfAProgramStandsInTheOperations) {
    expect_told(u"rovena-install"_s, install::usage());
    for (const QString& program : {u"jyunban"_s, u"jyusinkanri"_s, u"rovena-import"_s})
        expect_told(program, help_of(program));
}
