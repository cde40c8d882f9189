// Draws the artwork anew into a temporary folder and looks at it as the screens do: by the file names in their sources.

#include <QtCore/QDir>
#include <QtCore/QDirIterator>
#include <QtCore/QMap>
#include <QtCore/QProcess>
#include <QtCore/QRegularExpression>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>

#include <gtest/gtest.h>

namespace {

/// A button's picture as it lies and as it is pressed, by the names in the sources of the screens.
struct Pair {
    QString up;
    QString pressed;
};

QList<Pair> pairs() {
    static const QRegularExpression pair(QString::fromLatin1(R"~("(\w+)(\.bmp|\.BMP)",\s*u?"(\1_b(\.bmp|\.BMP))")~"));
    QMap<QString, Pair> found;
    QDirIterator files(QStringLiteral(ROVENA_SRC), {QStringLiteral("*.cpp"), QStringLiteral("*.h")}, QDir::Files,
        QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        for (const QRegularExpressionMatch& match : pair.globalMatch(text))
            found[match.captured(1)] = {match.captured(1) + match.captured(2), match.captured(3)};
    }
    EXPECT_GT(found.size(), 20);
    return found.values();
}

class Artwork : public testing::Test {
protected:
    static void SetUpTestSuite() {
        out = std::make_unique<QTemporaryDir>();
        QProcess drawing;
        drawing.start(qEnvironmentVariable("ROVENA_BIN") + QStringLiteral("/rovena-artwork"), {out->path()});
        ASSERT_TRUE(drawing.waitForFinished(120'000));
        ASSERT_EQ(drawing.exitCode(), 0);
    }

    static void TearDownTestSuite() { out.reset(); }

    static QImage picture(const QString& name) { return QImage(out->filePath(name)); }
    static QImage button(const QString& name) { return picture(QStringLiteral("botan/") + name); }

    static inline std::unique_ptr<QTemporaryDir> out;
};

TEST_F(Artwork, EveryButtonHasItsPictureUnderTheNameTheScreenLoads) {
    QStringList expected;
    for (const Pair& pair : pairs())
        expected << pair.up << pair.pressed;
    for (int report = 1; report <= 6; ++report)
        expected << QStringLiteral("mida_chou_%1.bmp").arg(report, 3, 10, QLatin1Char('0'));
    QStringList drawn = QDir(out->filePath(QStringLiteral("botan"))).entryList(QDir::Files);
    expected.sort();
    drawn.sort();
    EXPECT_EQ(drawn, expected);
}

TEST_F(Artwork, APressedButtonLooksPressedAndKeepsItsPlaceAndNoTwoLookAlike) {
    QList<QImage> seen;
    for (const Pair& pair : pairs()) {
        SCOPED_TRACE(pair.up.toStdString());
        const QImage up = button(pair.up);
        const QImage pressed = button(pair.pressed);
        ASSERT_FALSE(up.isNull());
        EXPECT_EQ(up.size(), pressed.size());
        EXPECT_NE(up, pressed);
        EXPECT_EQ(up.pixelColor(0, 0), pressed.pixelColor(0, 0));
        EXPECT_FALSE(seen.contains(up));
        seen << up;
    }
}

TEST_F(Artwork, TheCornersOfATopButtonVanishInTheBand) {
    EXPECT_EQ(button(QStringLiteral("top_ent.BMP")).pixelColor(0, 0), QColor(200, 200, 255));
    EXPECT_EQ(button(QStringLiteral("zen_end.BMP")).pixelColor(0, 0), QColor(240, 240, 240));
}

TEST_F(Artwork, SplashAndIconAreThereInTheirSizes) {
    EXPECT_EQ(picture(QStringLiteral("splash.bmp")).size(), QSize(960, 540));
    EXPECT_EQ(picture(QStringLiteral("icon/rovena.png")).size(), QSize(256, 256));
    EXPECT_EQ(picture(QStringLiteral("icon/installer.bmp")).size(), QSize(164, 314));
    for (const int side : {128, 64, 48})
        EXPECT_EQ(picture(QStringLiteral("icon/rovena-%1.png").arg(side)).size(), QSize(side, side));
}

} // namespace
