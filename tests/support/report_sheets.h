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

using Rows = std::initializer_list<std::initializer_list<QStringView>>;

/// Row 0 is the heading row.
inline Sheet sheet_of(Rows rows) {
    Sheet sheet(int(rows.size()), int(rows.begin()->size()));
    int row = 0;
    for (const auto& cells : rows) {
        int col = 0;
        for (const QStringView cell : cells)
            sheet(row, col++) = cell.toString();
        ++row;
    }
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
    Sheet sheet = sheet_of({{u"", u"社員番号", u"社　員　名", u"勤務タイプ"}});
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
    Sheet sheet = sheet_of({{u"日", u"曜", u"出勤時間", u"退社時間", u"休憩時間", u"勤務時間", u"備考", u"休暇"},
        {u"1", u"金", u"8:30", u"25:30", u"1:00", u"16:00", u"直行", u""},
        {u"2", u"土", u"", u"", u"", u"", u"", u"有給休暇"}});
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
    report.hyou_day = sheet_of({{u"出勤", u"休暇", u"有給休暇"}, {u"-1", u"-2", u"k1"}, {u"20", u"", u"1.5"}});
    return report;
}

/// Report 5 with so many columns and employees.
inline reports::Report work_time_list(int cols, int employees) {
    Sheet sheet = sheet_of(
        {{u"", u"", u"社員番号", u"社員名", u"出社時間", u"退社時間", u"休憩時間", u"勤務時間", u"備考", u"休暇"}, {},
            {u"", u"", u"", u"合　　計", u"", u"", u"20:00", u"1234:30", u"", u""}});
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
    return report_of(
        2, u"勤務種類一覧表"_s, sheet_of({{u"", u"勤務種類名"}, {u"1", u"普通"}, {u"12345", u"深夜残業"}}));
}

inline reports::Report work_type_list() {
    return report_of(3, u"勤務タイプ一覧表"_s,
        sheet_of({{u"", u"勤務タイプ名", u"曜", u"勤務種類名", u"始時間", u"終時間", u"時間計算", u"対象休1",
                      u"加算休1", u"対象休2", u"加算休2", u"対象休3", u"加算休3"},
            {u"1", u"一般社員", u"月", u"普通", u"8:30", u"17:30", u"通常", u"6:00", u"0:45", u"8:00", u"1:00", u"",
                u""},
            {u"2", u"夜間勤務専門の契約社員のタイプ", u"土", u"深夜", u"22:00", u"29:00", u"範囲内対象", u"", u"", u"",
                u"", u"", u""}}));
}

inline reports::Report leave_list() {
    return report_of(6, u"休暇出勤一覧表"_s,
        sheet_of({{u"名　称", u"休暇・出勤", u"標準"}, {u"日曜出勤", u"出勤", u""}, {u"有給休暇", u"休暇", u"標準"}}));
}

} // namespace support
