#include "base/literals.h"
#include "base/numbers.h"
#include "bench/companies.h"
#include "bench/desktop.h"
#include "bench/table.h"
#include "reports/pages/page_layouts.h"
#include "reports/printing/print.h"
#include "ui/paper/print_shop.h"

#include <QDir>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

namespace bench {

using namespace base;

namespace {

constexpr int employees = 1000;
constexpr int columns = 12;
constexpr int days = 31;
constexpr int total_row = 32;

/// A month with every day worked, of the employee with this number.
reports::Report month_of(int employee) {
    reports::Report report;
    report.帳票番号 = 4;
    report.midasi = {u"出勤明細一覧表  2026年11月"_s, u"【%1】社員%1"_s.arg(employee)};
    Sheet& hyou = report.hyou = Sheet(total_row + 2, columns);
    for (int row = 1; row <= total_row; ++row) {
        hyou(row, 0) = row <= days ? digits(row) : u"合計"_s;
        hyou(row, 1) = u"日月火水木金土"_s.mid(row % 7, 1);
        hyou(row, 6) = u"直行"_s;
        for (const int col : {2, 3, 4, 5, 8, 9, 10, 11})
            hyou(row, col) = u"%1:%2"_s.arg(col).arg((row * 7 + employee) % 60, 2, 10, QChar(u'0'));
    }
    for (int col = 8; col < columns; ++col)
        hyou(0, col) = u"種類"_s + digits(col);
    report.hyou_day = Sheet(3, 8);
    for (int col = 0; col < report.hyou_day.Cols(); ++col) {
        report.hyou_day(0, col) = u"休暇"_s + digits(col);
        report.hyou_day(2, col) = digits(employee % 30);
    }
    return report;
}

const std::vector<reports::Report>& months() {
    static const std::vector<reports::Report> made = [] {
        std::vector<reports::Report> all;
        for (int employee = 1; employee <= employees; ++employee)
            all.push_back(month_of(employee));
        return all;
    }();
    return made;
}

void print_months(benchmark::State& state) {
    base::Settings& settings = small_company();
    Desktop desktop;
    store::SettingTables tables(settings);
    tables.設定書込(u"losystem"_s, u"プリンター１"_s, u"PDF"_s);
    frame::TurnLink link(settings, desktop);
    frame::Session session{settings, desktop, tables, link};
    ui::DesktopPrintShop shop(session);
    const auto& all = months();
    for (auto _ : state) {
        const reports::ContinuousPrinting continuous(shop);
        for (const reports::Report& report : all)
            reports::print(report, session, shop);
    }
}

constexpr int dots_per_inch = 1200;

QPointF dots(reports::Place place) {
    return QPointF(place.x, place.y) * dots_per_inch / reports::mm_per_inch;
}

void paint_page(QPainter& painter, const reports::Page& page) {
    double size = 0;
    for (const reports::TextMark& mark : page.texts) {
        if (mark.size != size) {
            QFont font(u"IPAMincho"_s);
            font.setPointSizeF(size = mark.size);
            font.setBold(true);
            painter.setFont(font);
        }
        painter.drawText(dots(mark.place), mark.text);
    }
    for (const reports::LineMark& line : page.lines) {
        painter.setPen(QPen(Qt::black, line.width * 2));
        painter.drawLine(dots(line.from), dots(line.to));
    }
}

void paint_months(benchmark::State& state) {
    std::vector<reports::Pages> pages;
    for (const reports::Report& report : months())
        pages.push_back(reports::pages_of(report, QDate(2026, 12, 1)));
    const QTemporaryDir folder(QFileInfo(small_company().local_root).path() + u"/XXXXXX"_s);
    for (auto _ : state) {
        QPdfWriter writer(folder.filePath(u"months.pdf"_s));
        writer.setPageSize(QPageSize(QPageSize::A4));
        QPainter painter(&writer);
        for (const reports::Pages& of_employee : pages) {
            if (&of_employee != &pages.front())
                writer.newPage();
            paint_page(painter, of_employee.front());
        }
    }
}

} // namespace

std::vector<Line> printing() {
    benchmark::RegisterBenchmark("continuous printing", print_months)->Iterations(1)->Repetitions(3);
    benchmark::RegisterBenchmark("bare painting", paint_months)->Iterations(1)->Repetitions(3);
    return {{"attendance detail of 1,000 employees printed to PDF", "continuous printing", "bare painting", 1.5, 0}};
}

} // namespace bench
