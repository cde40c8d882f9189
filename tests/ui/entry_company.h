#pragma once

// A small company for the pages: three employees, one work type for all weekdays, three kinds of day.

#include "ui/install_tree.h"

/// Bands 8:30 to 17:30, 17:30 to 22:00 and 22:00 to 5:00; six hours of the first have a break of one hour.
struct EntryCompany : InstallTree {
    EntryCompany() {
        look_before_saving(false);
        auto database = rovdata();
        database.exec("insert into syain (システム番号, 社員番号, 社員名) values"
                      " (1, 3, '山田 太郎'), (2, 1, '佐藤 花子'), (3, 2, '田中 次郎');"
                      "insert into kinsyu values (1, '普通出勤'), (2, '普通残業'), (3, '深夜残業');"
                      "insert into kyutype (システム番号, 休暇名, 通常, 休出) values"
                      " (1, '公休', 1, 0), (2, '有休', 0, 0), (3, '休日出勤', 0, 1);"
                      "insert into syainkinmu values (1, 1), (2, 1)");
        auto band = database.prepare("insert into kintype values (1, '普通社員', ?, ?, ?, ?, ?, 0, ?, ?, 0, 0, 0, 0)");
        for (int weekday = 0; weekday < 7; ++weekday) {
            band.bind(1, weekday, 830, 1730, 1, 600, 100).run();
            band.bind(2, weekday, 1730, 2200, 2, 0, 0).run();
            band.bind(3, weekday, 2200, 500, 3, 0, 0).run();
        }
    }

    /// A PC that looks for nothing saves without a word.
    void look_before_saving(bool on) {
        tables.設定書込(QStringLiteral("losystem"), QStringLiteral("登録前確認なし"),
            on ? QString() : QStringLiteral("0,1,2,3,4,5,6"));
    }
};
