#include "masters/work_type_save.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"

#include <algorithm>

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
            const auto stored = stored_band(week, weekday, band);
            if (!stored)
                continue;
            add.bind(number, name, weekday, band);
            for (std::size_t i = 0; i < stored->size(); ++i)
                add.bind_at(first_stored_place + int(i), (*stored)[i]);
            add.run();
        }
}

} // namespace

std::optional<StoredBand> stored_band(const WeekBuffer& week, int weekday, int band) {
    if (!is_kept(week, weekday, band))
        return std::nullopt;
    StoredBand stored;
    std::ranges::transform(stored_cols, stored.begin(), [&](int col) { return Val(week(weekday, band, col)); });
    return stored;
}

void replace_work_type(store::Database& rovdata, qint64 number, const QString& name, const WeekBuffer& week) {
    store::Transaction transaction(rovdata);
    delete_rows(rovdata, number);
    add_bands(rovdata, number, name, week);
    transaction.commit();
}

QString stored_name(store::Database& rovdata, qint64 number) {
    auto query = rovdata.prepare("select 勤務タイプ名 from kintype where システム番号=? order by rowid");
    return query.bind(number).step() ? Trim(query.row().text(0)) : QString();
}

Deletion delete_work_type(store::Database& rovdata, qint64 number) {
    store::Transaction transaction(rovdata);
    Deletion deletion{.what = u"勤務タイプ "_s + short_name(stored_name(rovdata, number)),
        .hanging = hanging_on(number, rovdata,
            "select count(*) from syain where システム番号 in (select システム社員番号 from syainkinmu where "
            "勤務タイプ=?)",
            u"社員 %1人に割り当てられています"_s),
        .rows = {take_rows(rovdata, u"kintype"_s, number)}};
    transaction.commit();
    return deletion;
}

} // namespace masters
