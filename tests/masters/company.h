#pragma once

// The company of the tests, and what its masters hold.

#include "base/literals.h"
#include "base/numbers.h"
#include "base/sheet.h"
#include "support/company.h"
#include "support/stored.h"

#include <gtest/gtest.h>

namespace masters {

using namespace base;
using platform::Answer;
using platform::Buttons;
using support::Shown;

constexpr int top = 2147483647; ///< the last number that a record can have

/// A name that a careless screen would damage.
inline const QString odd_name = u"　O'Neil \"x\"; --😀"_s;

class Company : public ::testing::Test, protected support::Company {
protected:
    /// The rows of a query, each as its columns joined by "|"; Null as "-".
    static QStringList rows(store::Database database, std::string_view sql) {
        return support::rows_of(std::move(database), sql, u"-"_s);
    }

    /// What fails while the company's masters are out of reach.
    template <typename Act>
    void fails_without_rovdata(Act act) {
        const QString path = store::rovdata_path(tree.settings), away = tree.folder.filePath(u"away"_s);
        QFile::rename(path, away);
        EXPECT_THROW(act(), store::Error);
        QFile::rename(away, path);
    }

    /// The last number that a counter has given out; 0 if it hasn't begun.
    int counter(const QString& name) {
        return rows(comsys(), "select 番号 from bangou where 番号名称='" + name.toStdString() + "'").value(0).toInt();
    }

    /// Lets the file take part in what is saved everywhere.
    void list_file(const QString& name) {
        allsystem().prepare("insert into allsystem (個別dataファイル) values (?)").bind(name).run();
    }

    void add_category(int number, const QString& name) {
        rovdata().prepare("insert into kinsyu (システム番号, 種類名) values (?, ?)").bind(number, name).run();
    }

    void add_employee(int key, const QString& number, const QString& name) {
        rovdata().prepare("insert into syain values (?, ?, ?, null, null, null, null)").bind(key, number, name).run();
    }

    /// One band of a type, with the first break rule.
    void add_band(int type, const QString& name, int weekday, int band, int start, int end, int category = 1,
        int mode = 0, int threshold = 0, int pause = 0) {
        rovdata()
            .prepare(
                "insert into kintype (システム番号, 勤務タイプ名, 曜日, 連番, 開始時間, 終了時間, 時間種類, 時間計算,"
                " 休憩勤務時間1, 休憩時間1) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?)")
            .bind(type, name, weekday, band, start, end, category, mode, threshold, pause)
            .run();
    }
};

/// The cells of a column below the heading.
inline QStringList column(const base::Sheet& sheet, int col) {
    QStringList cells;
    for (int row = sheet.FixedRows(); row < sheet.Rows(); ++row)
        cells << sheet(row, col);
    return cells;
}

} // namespace masters
