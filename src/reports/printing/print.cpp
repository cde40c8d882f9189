#include "reports/printing/print.h"

#include "base/literals.h"
#include "reports/pages/page_layouts.h"

namespace reports {

using namespace base;

namespace {

struct ReportPrint {
    Layout layout;
    Printed (*procedure)(const Report& report, const PrintTarget& target);
    Pages (*pages)(const Report& report, QDate today);
};

/// By the report's number less 1.
constexpr ReportPrint prints[]{
    {Layout::Lists, 帳票印刷_一覧, list_pages},
    {Layout::Lists, 帳票印刷_一覧, list_pages},
    {Layout::Lists, 帳票印刷_一覧, list_pages},
    {Layout::Attendance, 帳票印刷_出勤明細, attendance_pages},
    {Layout::WorkTime, 帳票印刷_勤務時間, work_time_pages},
    {Layout::Lists, 帳票印刷_一覧, list_pages},
};

const ReportPrint* print_of(const Report& report) {
    return report.帳票番号 >= 1 && report.帳票番号 <= std::ssize(prints) ? &prints[report.帳票番号 - 1] : nullptr;
}

Printed print_report(const Report& report, const PrintTarget& target, Layout layout) {
    const QString title = report.midasi[0].section(u' ', 0, 0); // the month may follow
    return print_pages(target, layout, title, [&](QDate today) { return pages_of(report, today); });
}

} // namespace

Pages pages_of(const Report& report, QDate today) {
    const ReportPrint* of_report = print_of(report);
    return of_report ? of_report->pages(report, today) : Pages();
}

Printed print(const Report& report, frame::Session& session, PrintShop& shop) {
    const ReportPrint* of_report = print_of(report);
    return of_report ? of_report->procedure(report, {session, shop}) : Printed::Yes;
}

QString file_line(PrintShop& shop) {
    const QString file = shop.take_file();
    return file.isEmpty() ? file : u"ＰＤＦファイル："_s + file;
}

Layout layout_of(const Report& report) {
    const ReportPrint* of_report = print_of(report);
    return of_report ? of_report->layout : Layout::Lists;
}

Printed 帳票印刷_一覧(const Report& report, const PrintTarget& target) {
    return print_report(report, target, Layout::Lists);
}

Printed 帳票印刷_出勤明細(const Report& report, const PrintTarget& target) {
    return print_report(report, target, Layout::Attendance);
}

Printed 帳票印刷_勤務時間(const Report& report, const PrintTarget& target) {
    return print_report(report, target, Layout::WorkTime);
}

Printed 帳票印刷_エラーリスト(const Sheet& hyou, const PrintTarget& target) {
    return print_pages(target, Layout::Lists, u"エラーリスト"_s, [&](QDate) { return error_list_pages(hyou); });
}

} // namespace reports
