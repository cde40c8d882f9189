// The help pages as a browser meets them: the pages that the screens open are there, and no link leads nowhere.

#include <QtCore/QDir>
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
    const QStringList opened{
        QStringLiteral("001-1.htm"),
        QStringLiteral("001-3-01.htm"),
        QStringLiteral("001-3-02.htm"),
        QStringLiteral("001-3-03.htm"),
        QStringLiteral("001-3-04.htm"),
        QStringLiteral("001-3-05.htm"),
        QStringLiteral("001-3-06.htm"),
        QStringLiteral("002-0.htm"),
        QStringLiteral("003-1-01.htm"),
        QStringLiteral("003-1-02.htm"),
        QStringLiteral("003-1-03.htm"),
        QStringLiteral("003-1-04.htm"),
        QStringLiteral("003-1-05.htm"),
        QStringLiteral("003-1-06.htm"),
        QStringLiteral("index.html"),
    };
    EXPECT_EQ(pages(), opened);
}

TEST(Help, EveryPageIsWellFormedJapanese) {
    for (const QString& name : pages()) {
        const Page page = read_page(name);
        EXPECT_TRUE(page.error.isEmpty()) << name.toStdString() << ": " << page.error.toStdString();
        EXPECT_EQ(page.lang, QStringLiteral("ja")) << name.toStdString();
        EXPECT_EQ(page.charset, QStringLiteral("utf-8")) << name.toStdString();
    }
}

TEST(Help, EveryLinkLeadsToAPageAndAPlaceOnIt) {
    for (const QString& name : pages()) {
        for (const QString& link : read_page(name).links) {
            SCOPED_TRACE(name.toStdString() + " -> " + link.toStdString());
            const QString target = link.section(QLatin1Char('#'), 0, 0);
            const QString place = link.section(QLatin1Char('#'), 1, 1);
            EXPECT_TRUE(target.isEmpty() || help.exists(target));
            EXPECT_TRUE(place.isEmpty() || read_page(target.isEmpty() ? name : target).ids.contains(place));
        }
    }
}

TEST(Help, EveryPageCanBeReachedFromTheIndex) {
    const QStringList links = read_page(QStringLiteral("index.html")).links;
    for (const QString& name : pages())
        EXPECT_TRUE(links.contains(name)) << name.toStdString();
}

} // namespace
