#include "masters/work_type_save.h"

#include "base/numbers.h"
#include "base/text.h"

namespace masters {

using namespace base;

namespace {

constexpr std::string_view add_row =
    "insert into kintype (システム番号, 勤務タイプ名, 曜日, 連番, 開始時間, 終了時間, 時間種類, 時間計算, "
    "休憩勤務時間1,"
    " 休憩時間1, 休憩勤務時間2, 休憩時間2, 休憩勤務時間3, 休憩時間3) values (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)";

/// The columns of the week in the order of the fields from `開始時間` on, and the place of the first.
constexpr int stored_cols[] = {band_col::start, band_col::end, band_col::category, band_col::mode, band_col::first_rule,
    band_col::first_rule + 1, band_col::first_rule + 2, band_col::first_rule + 3, band_col::first_rule + 4,
    band_col::last_rule};
constexpr int first_stored_place = 5;

bool is_kept(const WeekBuffer& week, int weekday, int band) {
    return !Trim(week(weekday, band, band_col::start)).isEmpty() || !Trim(week(weekday, band, band_col::end)).isEmpty();
}

void delete_rows(store::Database& rovdata, qint64 number) {
    rovdata.prepare("delete from kintype where システム番号=?").bind(number).run();
}

void add_bands(store::Database& rovdata, qint64 number, const QString& name, const WeekBuffer& week) {
    auto add = rovdata.prepare(add_row);
    for (int weekday = 0; weekday < weekday_count; ++weekday)
        for (int band = 1; band <= band_count; ++band) {
            if (!is_kept(week, weekday, band))
                continue;
            add.bind(number, name, weekday, band);
            for (int i = 0; i < int(std::size(stored_cols)); ++i)
                add.bind_at(first_stored_place + i, Val(week(weekday, band, stored_cols[i])));
            add.run();
        }
}

} // namespace

void replace_work_type(store::Database& rovdata, qint64 number, const QString& name, const WeekBuffer& week) {
    store::Transaction transaction(rovdata);
    delete_rows(rovdata, number);
    add_bands(rovdata, number, name, week);
    transaction.commit();
}

void delete_work_type(store::Database& rovdata, qint64 number) {
    store::Transaction transaction(rovdata);
    delete_rows(rovdata, number);
    transaction.commit();
}

} // namespace masters
