#pragma once

// Finished sheets of the six reports, filled by hand, and a session to print them in.

#include "base/literals.h"
#include "base/numbers.h"
#include "reports/tallies/report.h"
#include "support/company.h"

namespace support {

using namespace base;

/// A PC whose printer is set, at nine o'clock on 2004-10-05.
struct PrintingPc : Company {
    PrintingPc() { set(u"プリンター１"_s, u"PDF"_s); }
    void set(const QString& key, const QString& value) { tables.設定書込(u"losystem"_s, key, value); }

    const base::Settings& settings = tree.settings;
};

/// Rows of cells that are parted by "|"; the first one is the heading row.
inline Sheet sheet_of(const QStringList& rows) {
    Sheet sheet(int(rows.size()), int(rows[0].count(u'|')) + 1);
    for (int row = 0; row < sheet.Rows(); ++row)
        for (int col = 0; col < sheet.Cols(); ++col)
            sheet(row, col) = rows[row].section(u'|', col, col);
    return sheet;
}

inline reports::Report report_of(int number, const QString& title, Sheet hyou) {
    reports::Report report;
    report.帳票番号 = number;
    report.midasi[0] = title;
    report.hyou = std::move(hyou);
    return report;
}

/// Report 1 with so many employees.
inline reports::Report employee_list(int employees) {
    Sheet sheet = sheet_of({u"|社員番号|社　員　名|勤務タイプ"_s});
    sheet.SetRows(employees + 1);
    for (int row = 1; row <= employees; ++row) {
        sheet(row, 0) = digits(row);
        sheet(row, 1) = digits(1000 + row);
        sheet(row, 2) = u"社員"_s + digits(row);
    }
    return report_of(1, u"社員一覧表"_s, sheet);
}

inline QString category_name(int number) {
    return u"種類"_s + digits(number);
}

/// Report 4 with so many columns: a worked day 1, a day 2 of leave, and the totals.
inline reports::Report attendance_detail(int cols) {
    Sheet sheet = sheet_of({u"日|曜|出勤時間|退社時間|休憩時間|勤務時間|備考|休暇"_s,
        u"1|金|8:30|25:30|1:00|16:00|直行|"_s, u"2|土||||||有給休暇"_s});
    sheet.SetRows(34);
    sheet.SetCols(cols);
    sheet(32, 0) = u"合計"_s;
    sheet(32, 5) = u"160:00"_s;
    for (int col = 8; col < cols; ++col) {
        sheet(0, col) = category_name(col - 7);
        sheet(1, col) = sheet(32, col) = u"%1:15"_s.arg(col);
        sheet(33, col) = digits(col - 7);
    }
    reports::Report report = report_of(4, u"出勤明細一覧表  2004年10月"_s, sheet);
    report.midasi[1] = u"【1007】山田太郎"_s;
    report.hyou_day = sheet_of({u"出勤|休暇|有給休暇"_s, u"-1|-2|k1"_s, u"20||1.5"_s});
    return report;
}

/// Report 5 with so many columns and employees.
inline reports::Report work_time_list(int cols, int employees) {
    Sheet sheet = sheet_of(
        {u"||社員番号|社員名|出社時間|退社時間|休憩時間|勤務時間|備考|休暇"_s, {}, u"|||合　　計|||20:00|1234:30||"_s});
    sheet.SetRows(3 + employees);
    sheet.SetCols(cols);
    for (int col = 10; col < cols; ++col) {
        sheet(0, col) = category_name(col - 9);
        sheet(1, col) = digits(col - 9);
        sheet(2, col) = u"%1:45"_s.arg(col * 10);
    }
    for (int row = 3; row < sheet.Rows(); ++row) {
        sheet(row, 0) = digits(row - 2);
        sheet(row, 2) = digits(1000 + row);
        sheet(row, 3) = u"社員"_s + digits(row - 2);
        for (int col = 10; col < cols; ++col)
            sheet(row, col) = u"%1:30"_s.arg(col);
    }
    reports::Report report = report_of(5, u"勤務時間一覧表"_s, sheet);
    report.midasi[1] = u"【2004/10/1～2004/10/31】"_s;
    report.midasi[2] = u"全部"_s;
    return report;
}

inline reports::Report work_category_list() {
    return report_of(2, u"勤務種類一覧表"_s, sheet_of({u"|勤務種類名"_s, u"1|普通"_s, u"12345|深夜残業"_s}));
}

inline reports::Report work_type_list() {
    return report_of(3, u"勤務タイプ一覧表"_s,
        sheet_of(
            {u"|勤務タイプ名|曜|勤務種類名|始時間|終時間|時間計算|対象休1|加算休1|対象休2|加算休2|対象休3|加算休3"_s,
                u"1|一般社員|月|普通|8:30|17:30|通常|6:00|0:45|8:00|1:00||"_s,
                u"2|夜間勤務専門の契約社員のタイプ|土|深夜|22:00|29:00|範囲内対象||||||"_s}));
}

inline reports::Report leave_list() {
    return report_of(
        6, u"休暇出勤一覧表"_s, sheet_of({u"名　称|休暇・出勤|標準"_s, u"日曜出勤|出勤|"_s, u"有給休暇|休暇|標準"_s}));
}

} // namespace support
