#pragma once

// A small company in real files, and a report over it.

#include "base/numbers.h"
#include "masters/company.h"
#include "reports/tallies/report.h"

namespace reports {

using namespace base;

/// Employees 山田 (key 1, number 9), 田中 (2, 10) and 木村 (4, 100), the system's own row without a number; work type 5
/// for 山田; categories and kinds stored in no order.
inline constexpr std::string_view masters = R"(
    insert into syain (システム番号, 社員番号, 社員名) values
        (4, 100, '木村'), (2, 10, '田中'), (0, null, '全体'), (1, 9, '山田 ');
    insert into kinsyu values (12, '残業'), (11, '普通 ');
    insert into kyutype values (1, '有休', 0, 0), (2, '公休', 1, 0), (3, '出勤', 2, 1), (4, '休日出勤', 0, 1);
    insert into syainkinmu values (1, 5), (2, 77);
    insert into kintype values (5, '標準 ', 1, 6, 830, 1730, 11, 1, 600, 45, 0, 0, 0, 0),
        (5, '標準 ', 2, 1, 1730, 2530, 12, 2, 0, 0, 0, 0, 0, 0), (5, '標準 ', 1, 1, 0, 1200, 11, 0, 0, 0, 0, 0, 0, 0),
        (6, '消', 1, 1, 900, 1700, 99, 0, 0, 0, 0, 0, 0, 0);
)";

struct Company : masters::Company {
    Work work{session, {}, {}};
    Report report;

    Company() { exec(masters); }

    void sort_by_number() { tables.設定書込(u"losystem"_s, u"社員MLソート"_s, u"1"_s); }
    void show_eras() {
        tree.settings.date_style = 1;
        tree.settings.era_start[0] = 19890108;
        tree.settings.era_end[0] = 99999999;
        tree.settings.era_name[0] = u"平成"_s;
        tree.settings.era_offset[0] = 1988;
    }
    void choose_employees(const QString& first, const QString& last) { report.conditions.systancd = {first, last}; }

    /// A row's cells joined by "|".
    static QString row(const base::Sheet& sheet, int r) {
        QStringList cells;
        for (int col = 0; col < sheet.Cols(); ++col)
            cells << sheet(r, col);
        return cells.join(u'|');
    }
    static QStringList rows(const base::Sheet& sheet, int first = 1) {
        QStringList all;
        for (int r = first; r < sheet.Rows(); ++r)
            all << row(sheet, r);
        return all;
    }
};

} // namespace reports
