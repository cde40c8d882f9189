#include "reports/printing/print.h"

#include "base/text.h"
#include "reports/pages/font_fit.h"
#include "reports/pages/page_layouts.h"
#include "support/recording_shop.h"
#include "support/report_sheets.h"

#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace support;
using reports::Printed;

namespace {

/// Prints for a PC of the tests and keeps what was painted.
struct Print : ::testing::Test {
    PrintingPc pc;
    RecordingShop shop;

    const RecordedJob& printed(const reports::Report& report) {
        EXPECT_EQ(reports::print(report, pc.session, shop), Printed::Yes);
        EXPECT_TRUE(shop.jobs.back().ended);
        return shop.jobs.back();
    }
    size_t pages(const reports::Report& report) { return printed(report).pages.size(); }

    /// How many texts of a page stand at a place told as "y x".
    static qsizetype at(const RecordedPage& page, const QString& place) {
        const QStringList parts = place.split(u' ');
        return page.texts.filter(QRegularExpression(u"^ *%1 +%2 "_s.arg(parts[0], parts[1]))).size();
    }
    static bool has(const RecordedPage& page, const QString& text) {
        return std::ranges::any_of(page.texts, [&](const QString& told) { return told.endsWith(u' ' + text); });
    }
};

/// Compares with the text under tests/reports/golden. With ROVENA_WRITE_GOLDEN set it is written anew.
void expect_golden(const QString& name, const QString& text) {
    QFile file(QStringLiteral(ROVENA_GOLDEN "/%1.txt").arg(name));
    if (qEnvironmentVariableIsSet("ROVENA_WRITE_GOLDEN")) {
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
        return;
    }
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << file.fileName().toStdString();
    EXPECT_EQ(text.toStdString(), file.readAll().toStdString()) << name.toStdString();
}

} // namespace

TEST_F(Print, PagesAreAsTheyWereAgreed) {
    reports::Report employees = employee_list(3);
    employees.midasi[2] = u"【社員1～社員3】"_s;
    employees.hyou(2, 2) = u"非常に長い名前の社員です漢字十六文字以上"_s;
    employees.hyou(2, 3) = u"一般社員"_s;
    employees.hyou(3, 1) = u"ABC-00000012345678"_s;
    reports::Report detail = attendance_detail(13);
    detail.hyou(0, 9) = u"深夜残業休日"_s;
    detail.hyou(1, 6) = u"とても長い備考を書いた日"_s;
    reports::Report list = work_time_list(32, 2);
    list.hyou(0, 20) = u"深夜残業休日手当"_s;
    reports::Report company = work_time_list(11, 4);
    company.hyou(0, 10) = u"Overtime on a public holiday"_s;
    for (int row = 2; const QStringView figures :
         {u"|999:59", u"99|1000:00", u"100|12345:30", u"12345|160000:00", u"総数|八十時間と三十分"}) {
        company.hyou(row, 0) = figures.split(u'|')[0].toString();
        company.hyou(row++, 7) = figures.split(u'|')[1].toString();
    }
    const std::pair<QStringView, reports::Report> cases[]{{u"1_employees", employees},
        {u"2_work_categories", work_category_list()}, {u"3_work_types", work_type_list()},
        {u"4_attendance_detail", detail}, {u"5_work_time_list", list}, {u"5_long_figures", company},
        {u"6_leave", leave_list()}};
    for (const auto& [name, report] : cases)
        expect_golden(name.toString(), told(printed(report)));

    const Sheet errors = sheet_of({u"エラー内容"_s, u" 1行目: 社員番号がありません "_s, {},
        u"データベース"_s.repeated(9) + u"𠮷 hanjyusin01.mdb"_s});
    EXPECT_EQ(reports::帳票印刷_エラーリスト(errors, {pc.session, shop}), Printed::Yes);
    expect_golden(u"error_list"_s, told(shop.jobs.back()));
}

TEST_F(Print, AListPageHolds42Rows) {
    EXPECT_EQ(reports::print(employee_list(0), pc.session, shop), Printed::Nothing);
    EXPECT_EQ(pages(employee_list(42)), 1u);
    const auto& two = printed(employee_list(43)).pages;
    ASSERT_EQ(two.size(), 2u);
    EXPECT_EQ(at(two[0], u"279.40 29.00"_s), 1) << "row 42";
    EXPECT_EQ(two[1].texts.filter(u"社員4"_s).size(), 1);
    EXPECT_EQ(at(two[1], u"33.40 29.00"_s), 1) << "row 43, first on its page";
    EXPECT_TRUE(has(two[1], u"2　ページ"_s));

    Sheet errors = employee_list(43).hyou;
    reports::帳票印刷_エラーリスト(errors, {pc.session, shop});
    EXPECT_EQ(shop.jobs.back().pages.size(), 2u) << "no message is left out";
}

TEST_F(Print, WorkCategoriesThatDontFitGoOnToASecondSheet) {
    struct Case {
        int cols;
        size_t sheets;
        int last_printed; ///< number of the last category on paper
    };
    for (const auto& [cols, sheets, last] : {Case{11, 1, 3}, {12, 1, 4}, {13, 2, 5}, {22, 2, 14}, {24, 2, 14}}) {
        const auto& printed_pages = printed(attendance_detail(cols)).pages;
        ASSERT_EQ(printed_pages.size(), sheets) << cols;
        EXPECT_TRUE(has(printed_pages.back(), category_name(last))) << cols;
        EXPECT_FALSE(has(printed_pages.back(), category_name(last + 1))) << cols;
        EXPECT_TRUE(has(printed_pages.back(), u"(%1/%1ページ)"_s.arg(sheets)));
    }
}

TEST_F(Print, AHeadingStaysInItsColumnHoweverLongTheNameIs) {
    constexpr double mm_of_a_point = reports::mm_per_inch / reports::points_per_inch;
    for (const QStringView letter : {u"W", u"残"})
        for (int length = 1; length <= 30; ++length) {
            reports::Report list = work_time_list(18, 0);
            const QString name = letter.toString().repeated(length);
            list.hyou(0, 10) = list.hyou(0, 17) = name;
            int headings = 0;
            for (const reports::Page& page : reports::pages_of(list, {2004, 10, 5}))
                for (const auto& [place, size, text] : page.texts)
                    if (text.startsWith(letter)) {
                        const double left = ++headings == 1 ? 184 : 83; // of column 10, of column 17 on its sheet
                        EXPECT_GE(place.x, left);
                        EXPECT_LE(place.x + byte_length(text) * size / 2 * mm_of_a_point, left + 14) << length;
                    }
            EXPECT_EQ(headings, 2) << length;
        }
}

TEST_F(Print, DayBoxesGoOnInRowsOfNine) {
    reports::Report report = attendance_detail(13);
    report.hyou_day = Sheet(3, 10);
    report.hyou_day(0, 9) = u"とても長い種類の名前"_s;
    const auto& sheets = printed(report).pages;
    EXPECT_TRUE(has(sheets[0], u"とても長い種"_s));
    EXPECT_EQ(at(sheets[0], u"240.00 20.10"_s), 1);
    EXPECT_FALSE(has(sheets[1], u"とても長い種"_s)) << "only on the first sheet";
}

TEST_F(Print, TheWorkTimeListGoesAcrossUpToThreeSheets) {
    struct Case {
        int cols;
        std::vector<std::pair<int, int>> categories; ///< first and last number with hours on each sheet; 0: none
    };
    const Case cases[]{{16, {{1, 6}}}, {17, {{1, 7}, {0, 0}}}, {18, {{1, 7}, {8, 8}}}, {30, {{1, 7}, {8, 20}}},
        {31, {{1, 7}, {8, 20}, {21, 21}}}, {32, {{1, 7}, {8, 20}, {21, 22}}}, {44, {{1, 7}, {8, 20}, {21, 33}}}};
    for (const auto& [cols, sheets] : cases) {
        const auto& printed_pages = printed(work_time_list(cols, 1)).pages;
        ASSERT_EQ(printed_pages.size(), sheets.size()) << cols;
        for (size_t i = 0; i < sheets.size(); ++i) {
            EXPECT_EQ(at(printed_pages[i], u"39.40 54.00"_s), 1) << "the name on every sheet";
            for (int category = 1; category <= cols - 9; ++category)
                EXPECT_EQ(has(printed_pages[i], u" %1:30"_s.arg(category + 9)),
                    category >= sheets[i].first && category <= sheets[i].second)
                    << cols << " columns, sheet " << i << ", category " << category;
        }
    }
}

TEST_F(Print, TheWorkTimeListGoesDown28RowsAPage) {
    EXPECT_EQ(pages(work_time_list(10, 0)), 1u);
    EXPECT_EQ(pages(work_time_list(10, 27)), 1u) << "with the totals";
    const auto& four = printed(work_time_list(18, 28)).pages;
    ASSERT_EQ(four.size(), 4u);
    EXPECT_TRUE(has(four[2], u"社員28"_s));
    EXPECT_EQ(at(four[2], u"33.40 54.00"_s), 1);
    EXPECT_TRUE(has(four[3], u"4　ページ"_s));
}

TEST_F(Print, OffsetsAreTakenOffEveryPlace) {
    pc.set(u"プリンター１Ｘ"_s, u"0.5"_s);
    pc.set(u"プリンター１Ｙ"_s, u"-2"_s);
    shop.margin = {.x = 4.2567, .y = 12.345};
    const auto& page = printed(employee_list(1)).pages[0];
    EXPECT_EQ(at(page, u"-2.00 15.30"_s), 1) << "title at 8 - (12 - 2), 20 - (4.2 + 0.5)";
    EXPECT_TRUE(told_lines(page.lines)[0].startsWith(u"4 (23.30 15.00)-(23.30 274.00)"_s));
    const reports::Place offset = reports::print_offset({.x = 0.05, .y = 0.99}, {});
    EXPECT_EQ(offset.x, 0);
    EXPECT_EQ(offset.y, 0.9);
}

TEST_F(Print, AMissingPrinterIsToldAndStopsBeforeAnyPage) {
    pc.set(u"プリンター１"_s, u"窓際のプリンター"_s);
    EXPECT_EQ(reports::print(work_category_list(), pc.session, shop), Printed::NoPrinter);
    EXPECT_TRUE(shop.jobs.empty());
    EXPECT_EQ(pc.host.shown, std::vector({Shown{u"指定のプリンターが見つかりません。\n\n"
                                                u"「マスター」内の「システム」ページからプリンターを設定してください"_s,
                                 u"プリンター未設定"_s, platform::Buttons::Ok}}));
}

TEST(FontFit, RoomForAHalfWidthCharacterGivesTheSize) {
    struct Case {
        double width;
        int length;
        double size;
    };
    for (const auto& [width, length, size] :
        {Case{28, 10, 9}, {27.9, 10, 12}, {21, 10, 12}, {20.9, 10, 11}, {19.5, 10, 11}, {19.4, 10, 10}, {18, 10, 10},
            {17.9, 10, 9}, {17, 10, 9}, {16.9, 10, 8}, {40, 25, 8}, {15.9, 10, 7}, {13, 10, 7}, {12.9, 10, 6},
            {11, 10, 6}, {10.9, 10, 5}, {9, 10, 5}, {8.9, 10, 4}, {8, 0, 0}})
        EXPECT_EQ(reports::文字サイズ決定(width, 0, QString(length, u'0'), 9), size) << width;
    EXPECT_EQ(byte_length(u"ｶﾅ漢¥A𠮷"), 8);
}
