// Draws the artwork anew into a temporary folder and looks at it as the screens do: by file name.

#include <QtCore/QDir>
#include <QtCore/QProcess>
#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>

#include <gtest/gtest.h>

namespace {

struct Pair {
    const char* up;
    const char* pressed;
};

// As the screens name them, the case of the extensions included.
constexpr Pair pairs[] = {
    {"top_ent.BMP", "top_ent_b.BMP"},
    {"top_rov.BMP", "top_rov_b.BMP"},
    {"top_mst.BMP", "top_mst_b.BMP"},
    {"top_help.BMP", "top_help_b.BMP"},
    {"top_end.BMP", "top_end_b.BMP"},
    {"botan_syain.bmp", "botan_syain_b.bmp"},
    {"botan_kinmusyu.bmp", "botan_kinmusyu_b.bmp"},
    {"botan_kinmutype.bmp", "botan_kinmutype_b.bmp"},
    {"botan_rovmei.bmp", "botan_rovmei_b.bmp"},
    {"botan_kinmujikan.bmp", "botan_kinmujikan_b.bmp"},
    {"botan_kyusyu.bmp", "botan_kyusyu_b.bmp"},
    {"mida_syain.bmp", "mida_syain_b.bmp"},
    {"mida_kinsyu.bmp", "mida_kinsyu_b.BMP"},
    {"mida_kintype_time.bmp", "mida_kintype_time_b.BMP"},
    {"mida_kintype_sya.bmp", "mida_kintype_sya_b.BMP"},
    {"mida_system.BMP", "mida_system_b.BMP"},
    {"mida_kyusyu.BMP", "mida_kyusyu_b.BMP"},
    {"zen_end.BMP", "zen_end_b.BMP"},
    {"zen_tour.BMP", "zen_tour_b.BMP"},
    {"zen_saku.BMP", "zen_saku_b.BMP"},
    {"zen_chu.BMP", "zen_chu_b.BMP"},
    {"zen_kens.BMP", "zen_kens_b.BMP"},
    {"zen_print.BMP", "zen_print_b.BMP"},
    {"zen_prev.BMP", "zen_prev_b.BMP"},
    {"zen_file.BMP", "zen_file_b.BMP"},
    {"zen_help.BMP", "zen_help_b.BMP"},
};

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
    static QImage button(const char* name) { return picture(QStringLiteral("botan/") + QString::fromLatin1(name)); }

    static inline std::unique_ptr<QTemporaryDir> out;
};

TEST_F(Artwork, EveryButtonHasItsPictureUnderTheNameTheScreenLoads) {
    QStringList expected;
    for (const Pair& pair : pairs)
        expected << QString::fromLatin1(pair.up) << QString::fromLatin1(pair.pressed);
    for (int report = 1; report <= 6; ++report)
        expected << QStringLiteral("mida_chou_%1.bmp").arg(report, 3, 10, QLatin1Char('0'));
    QStringList drawn = QDir(out->filePath(QStringLiteral("botan"))).entryList(QDir::Files);
    expected.sort();
    drawn.sort();
    EXPECT_EQ(drawn, expected);
}

TEST_F(Artwork, APressedButtonLooksPressedAndKeepsItsPlace) {
    for (const Pair& pair : pairs) {
        SCOPED_TRACE(pair.up);
        const QImage up = button(pair.up);
        const QImage pressed = button(pair.pressed);
        ASSERT_FALSE(up.isNull());
        EXPECT_EQ(up.size(), pressed.size());
        EXPECT_NE(up, pressed);
        EXPECT_EQ(up.pixelColor(0, 0), pressed.pixelColor(0, 0));
    }
}

TEST_F(Artwork, NoTwoButtonsLookAlike) {
    QList<QImage> seen;
    for (const Pair& pair : pairs) {
        const QImage up = button(pair.up);
        EXPECT_FALSE(seen.contains(up)) << pair.up;
        seen << up;
    }
}

TEST_F(Artwork, TheCornersOfATopButtonVanishInTheBand) {
    EXPECT_EQ(button("top_ent.BMP").pixelColor(0, 0), QColor(200, 200, 255));
    EXPECT_EQ(button("zen_end.BMP").pixelColor(0, 0), QColor(240, 240, 240));
}

TEST_F(Artwork, SplashAndIconAreThereInTheirSizes) {
    EXPECT_EQ(picture(QStringLiteral("splash.bmp")).size(), QSize(960, 540));
    EXPECT_EQ(picture(QStringLiteral("icon/rovena.png")).size(), QSize(256, 256));
    for (const int side : {128, 64, 48})
        EXPECT_EQ(picture(QStringLiteral("icon/rovena-%1.png").arg(side)).size(), QSize(side, side));
}

} // namespace
