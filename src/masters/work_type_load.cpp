#include "masters/work_type_load.h"

#include "base/numbers.h"
#include "base/text.h"

namespace masters {

using namespace base;

namespace {

/// Columns of the query.
enum Field { weekday, band, start, end, category, mode, first_rule };

constexpr std::string_view rows_of_type =
    "select 曜日, 連番, 開始時間, 終了時間, 時間種類, 時間計算, 休憩勤務時間1, 休憩時間1, 休憩勤務時間2, 休憩時間2,"
    " 休憩勤務時間3, 休憩時間3 from kintype where システム番号=? order by システム番号, 曜日, 連番, rowid";

void fill_band(WeekBuffer& week, const store::Row& row, const NameTable& categories, const NameTable& modes) {
    const auto slot = [&](int col) -> QString& { return week(row.integer(weekday), row.integer(band), col); };
    slot(band_col::start) = Trim(row.text(start));
    slot(band_col::end) = Trim(row.text(end));
    slot(band_col::category) = digits(row.number(category));
    slot(band_col::category_name) = categories.name_of(row.number(category));
    slot(band_col::mode) = digits(row.number(mode));
    slot(band_col::mode_name) = modes.name_of(row.number(mode));
    for (int col = band_col::first_rule; col <= band_col::last_rule; ++col)
        slot(col) = digits(row.number(first_rule + col - band_col::first_rule));
}

} // namespace

NameTable::NameTable(const ComboBox& combo) {
    for (int item = 0; item < combo.items.size(); ++item) {
        const Choice choice = combo.choice(item);
        m_entries << Entry{Val(choice.number), choice.name};
    }
}

QString NameTable::name_of(qint64 number) const {
    for (const Entry& entry : m_entries) {
        if (entry.name.isEmpty())
            break;
        if (entry.number == number)
            return entry.name;
    }
    return {};
}

QList<ForeignRow> load_work_type(
    store::Database& rovdata, qint64 number, const NameTable& categories, const NameTable& modes, WeekBuffer& week) {
    week.clear();
    QList<ForeignRow> foreign;
    auto query = rovdata.prepare(rows_of_type);
    query.bind(number);
    while (query.step()) {
        const store::Row row = query.row();
        const ForeignRow place{row.number(weekday), row.number(band)};
        const bool holds = WeekBuffer::holds(place.weekday, place.band);
        if (!holds || !week(row.integer(weekday), row.integer(band), band_col::category).isEmpty())
            foreign << place;
        if (holds)
            fill_band(week, row, categories, modes);
    }
    return foreign;
}

} // namespace masters
