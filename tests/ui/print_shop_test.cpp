#include "ui/paper/print_shop.h"

#include "reports/printing/print.h"
#include "support/report_sheets.h"
#include "ui/paper/print_preview.h"
#include "ui/paper/printer_surface.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>
#include <gtest/gtest.h>

using namespace base;
using namespace support;
using reports::Printed;

namespace {

QString output_of(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished()) << program.toStdString() << " of poppler-utils";
    return QString::fromUtf8(process.readAllStandardOutput());
}

constexpr double points_per_mm = reports::points_per_inch / reports::mm_per_inch;

struct Word {
    QString text;
    double x, y; ///< upper left corner, mm
};

QList<Word> words(const QString& pdf) {
    static const QRegularExpression pattern(u"<word xMin=\"(.*?)\" yMin=\"(.*?)\".*?>(.*?)</word>"_s);
    QList<Word> found;
    for (const auto& match : pattern.globalMatch(output_of(u"pdftotext"_s, {u"-bbox"_s, pdf, u"-"_s})))
        found << Word{match.captured(3), match.captured(1).toDouble() / points_per_mm,
            match.captured(2).toDouble() / points_per_mm};
    return found;
}

struct PrintShop : ::testing::Test {
    PrintingPc pc;
    ui::DesktopPrintShop shop{pc.session};

    QStringList files() { return QDir(ui::print_folder(pc.settings)).entryList(QDir::Files | QDir::Hidden); }
    QString last_file() { return pc.host.opened.isEmpty() ? QString() : pc.host.opened.last(); }
    Printed print(const reports::Report& report) { return reports::print(report, pc.session, shop); }
};

} // namespace

TEST_F(PrintShop, TextsStandOnThePaperWhereTheLayoutPutThem) {
#ifdef Q_OS_WIN
    GTEST_SKIP() << "no poppler-utils there, which read the files";
#endif
    struct Case {
        reports::Report report;
        int pages;
        QSize paper; ///< points
        QList<Word> words;
    };
    const QSize portrait(595, 842), landscape(842, 595);
    const Case cases[]{
        {employee_list(43), 2, portrait, {{u"社員一覧表"_s, 20, 8}, {u"1042"_s, 29, 279.4}, {u"勤務"_s, 147.25, 26.4}}},
        {work_category_list(), 1, portrait, {{u"深夜残業"_s, 29, 39.4}}},
        {work_type_list(), 1, portrait, {{u"範囲内対象"_s, 108, 39.4}, {u"月"_s, 53.85, 33.4}}},
        {attendance_detail(13), 2, portrait, {{u"【1007】山田太郎"_s, 60, 15}, {u"有給休暇"_s, 63.4, 226}}},
        {work_time_list(31, 29), 6, landscape, {{u"社員29"_s, 54, 39.4}, {u"6"_s, 270, 16}}},
        {leave_list(), 1, portrait, {{u"有給休暇"_s, 21, 39.4}, {u"標準"_s, 101.7, 39.4}}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.report.midasi[0].toStdString());
        ASSERT_EQ(print(c.report), Printed::Yes);
        const QString info = output_of(u"pdfinfo"_s, {last_file()});
        EXPECT_TRUE(info.contains(QRegularExpression(u"Pages: +%1\n"_s.arg(c.pages)))) << info.toStdString();
        EXPECT_TRUE(info.contains(u"%1 x %2 pts"_s.arg(c.paper.width()).arg(c.paper.height()))) << info.toStdString();
        EXPECT_TRUE(info.contains(u"ＭＥＲＩＤＡＮ　業務帳票"_s));
        const QString fonts = output_of(u"pdffonts"_s, {last_file()});
        EXPECT_TRUE(fonts.contains(QRegularExpression(u"Mincho.* yes "_s))) << fonts.toStdString();
        EXPECT_EQ(fonts.count(u'\n'), 3) << "one font\n" << fonts.toStdString();
        const QList<Word> there = words(last_file());
        for (const Word& word : c.words)
            EXPECT_TRUE(std::ranges::any_of(there, [&](const Word& w) {
                return w.text == word.text && std::abs(w.x - word.x) < 0.3 && std::abs(w.y - word.y) < 0.3;
            })) << word.text.toStdString();
    }
}

TEST_F(PrintShop, AFileIsNeverOverwritten) {
    print(work_category_list());
    print(work_category_list());
    print(employee_list(0)); // no page, no file
    EXPECT_EQ(
        files(), QStringList({u"勤務種類一覧表_20041005_090000.pdf"_s, u"勤務種類一覧表_20041005_090000_2.pdf"_s}));
}

TEST_F(PrintShop, AGivenUpJobLeavesNothing) {
    const auto surface = shop.open({u"PDF"_s, {}, {}, u"社員一覧表"_s});
    surface->new_page();
    surface->set_font(u"ＭＳ 明朝", 9, reports::Weight::Bold);
    surface->text({.x = 20, .y = 20}, u"途中"_s);
    EXPECT_EQ(files(), QStringList());
    EXPECT_EQ(shop.open({u"ないプリンター"_s, {}, {}, {}}), nullptr);
}

TEST(PainterSurface, APrinterThatCouldntBeOpenedIsPaintedOnIntoNothing) {
    QPainter without_device;
    ui::PainterSurface surface(without_device);
    reports::Page page;
    reports::add_text(page, u"社員一覧表"_s, 16, {.x = 20, .y = 8});
    reports::add_rectangle(page, {.left = 20, .top = 25, .right = 200, .bottom = 284}, 8);
    reports::paint(page, {}, surface);
    EXPECT_TRUE(surface.end());
}

TEST_F(PrintShop, AFolderThatCantBeWrittenIsTold) {
    const QString place = ui::print_folder(pc.settings).chopped(1);
    QFile file(place); // a file where the folder should be
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(print(work_category_list()), Printed::Failed);
    ASSERT_EQ(pc.host.shown.size(), 1u);
    EXPECT_EQ(pc.host.shown[0].text,
        u"ＰＤＦファイルを書き込めません。\nフォルダーを作れません。\n%1/勤務種類一覧表_20041005_090000.pdf"_s
            .arg(place)
            .replace(u'/', QDir::separator()));
    EXPECT_TRUE(pc.host.opened.isEmpty());
}

TEST_F(PrintShop, ThePreviewTurnsPagesAndPrintsWhatItShows) {
    const auto click = [](QDialog& dialog, const QString& name) { dialog.findChild<QPushButton*>(name)->click(); };
    QStringList places;
    QTimer::singleShot(0, [&] {
        auto& dialog = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
        const auto* place = dialog.findChild<QLabel*>(u"place"_s);
        for (const QString& button : {u"back"_s, u"forward"_s, u"forward"_s, u"larger"_s, u"fit"_s}) {
            click(dialog, button);
            places << place->text();
        }
        EXPECT_FALSE(dialog.grab().isNull());
        click(dialog, u"print"_s);
    });
    EXPECT_TRUE(ui::preview(employee_list(43), pc.session, shop, nullptr));
    EXPECT_EQ(places,
        QStringList({u"1 / 2 ページ"_s, u"2 / 2 ページ"_s, u"2 / 2 ページ"_s, u"2 / 2 ページ"_s, u"2 / 2 ページ"_s}));
    EXPECT_EQ(files().size(), 1);

    QTimer::singleShot(0, [&] { click(dynamic_cast<QDialog&>(*QApplication::activeModalWidget()), u"close"_s); });
    EXPECT_FALSE(ui::preview(employee_list(1), pc.session, shop, nullptr));
    EXPECT_FALSE(ui::preview(employee_list(0), pc.session, shop, nullptr));
    EXPECT_EQ(pc.host.shown.back().text, u"印刷するページがありません。"_s);
    EXPECT_EQ(files().size(), 1);
}
