// The help pages as a browser meets them: the pages that the screens open are there, and no link leads nowhere.

#include <QtCore/QDir>
#include <QtCore/QRegularExpression>
#include <QtCore/QXmlStreamReader>

#include <gtest/gtest.h>

namespace {

const QDir help(QStringLiteral(ROVENA_HELP));

struct Page {
    QString lang;
    QString charset;
    QStringList links;
    QStringList ids;
    QString error; // empty: every tag is closed and in its place
};

void read_element(const QXmlStreamReader& reader, Page& page) {
    const auto value = [&](const char* name) { return reader.attributes().value(QLatin1String(name)).toString(); };
    if (reader.name() == QStringLiteral("html"))
        page.lang = value("lang");
    if (reader.attributes().hasAttribute(QStringLiteral("charset")))
        page.charset = value("charset");
    page.links << value("href") << value("src");
    page.ids << value("id");
}

Page read_page(const QString& name) {
    Page page;
    QFile file(help.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&file);
    while (!reader.atEnd()) {
        if (reader.readNext() == QXmlStreamReader::StartElement)
            read_element(reader, page);
    }
    page.error = reader.errorString();
    page.links.removeAll(QString());
    return page;
}

QStringList pages() {
    return help.entryList({QStringLiteral("*.htm"), QStringLiteral("*.html")}, QDir::Files, QDir::Name);
}

TEST(Help, EveryPageThatAScreenOpensIsThere) {
    QFile table(QStringLiteral(ROVENA_SRC "/frame/help.cpp"));
    ASSERT_TRUE(table.open(QIODevice::ReadOnly));
    static const QRegularExpression named(QString::fromLatin1(R"~("(\S+\.htm)")~"));
    QStringList opened{QStringLiteral("index.html")};
    for (const QRegularExpressionMatch& match : named.globalMatch(QString::fromUtf8(table.readAll())))
        opened << match.captured(1);
    opened.sort();
    EXPECT_EQ(pages(), opened) << "and no page that none of them opens";
}

TEST(Help, EveryPageIsWellFormedJapaneseAndItsLinksLeadToAPageAndAPlaceOnIt) {
    const QStringList reached = read_page(QStringLiteral("index.html")).links;
    for (const QString& name : pages()) {
        SCOPED_TRACE(name.toStdString());
        const Page page = read_page(name);
        EXPECT_TRUE(page.error.isEmpty()) << page.error.toStdString();
        EXPECT_EQ(page.lang, QStringLiteral("ja"));
        EXPECT_EQ(page.charset, QStringLiteral("utf-8"));
        EXPECT_TRUE(reached.contains(name)) << "from the index";
        for (const QString& link : page.links) {
            const QString target = link.section(QLatin1Char('#'), 0, 0);
            const QString place = link.section(QLatin1Char('#'), 1, 1);
            EXPECT_TRUE(target.isEmpty() || help.exists(target)) << link.toStdString();
            EXPECT_TRUE(place.isEmpty() || read_page(target.isEmpty() ? name : target).ids.contains(place))
                << link.toStdString();
        }
    }
}

} // namespace
