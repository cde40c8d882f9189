#include "entry/work_type.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "entry/cells.h"
#include "entry/layout.h"

#include <algorithm>

namespace entry {

using namespace base;

namespace {

ClockNumber clock_in_column(const store::Row& row, int column) {
    return {row.number(column)};
}

/// Columns: 種類名, 開始時間, 終了時間, 時間計算, 時間種類 and the three break rules as 休憩勤務時間, 休憩時間.
Band band_of(const store::Row& row, int first_column) {
    const ClockNumber start = clock_in_column(row, first_column + 1);
    Band band{
        .name = Trim(row.text(first_column)),
        .start = time_to_minutes(start),
        .end = end_minutes(start, clock_in_column(row, first_column + 2)),
        .counts_from_inside = row.number(first_column + 3) == 1,
        .category = row.integer(first_column + 4),
    };
    for (int rule = 0; rule < 3; ++rule)
        band.rules[rule] = {time_to_minutes(clock_in_column(row, first_column + 5 + 2 * rule)),
            time_to_minutes(clock_in_column(row, first_column + 6 + 2 * rule))};
    return band;
}

void note_category(QList<Category>& list, const Band& band) {
    const auto known = [&](const Category& category) { return category.number == band.category; };
    if (list.size() < category_room && std::none_of(list.begin(), list.end(), known))
        list.append({band.category, band.name});
}

/// The bands of the work type that the text in parentheses tells, which has one place.
store::Statement schedule(store::Database& database, const char* type) {
    return database.prepare(std::string("select 曜日, 連番, 種類名, 開始時間, 終了時間, 時間計算, 時間種類,"
                                        " 休憩勤務時間1, 休憩時間1, 休憩勤務時間2, 休憩時間2, 休憩勤務時間3, 休憩時間3"
                                        " from kintype, kinsyu"
                                        " where kintype.システム番号 = ") +
                            type +
                            " and kinsyu.システム番号 = 時間種類"
                            " order by 曜日, 連番, 開始時間, 終了時間, 時間計算");
}

void read_schedule(MonthSheet& sheet, store::Statement& bands) {
    while (bands.step()) {
        const store::Row row = bands.row();
        const qint64 weekday = row.number(0);
        const qint64 number = row.number(1);
        if (weekday < 0 || weekday >= weekday_count || number < 0 || number >= band_slots)
            continue;
        const Band band = band_of(row, 2);
        sheet.band_table[weekday][number] = band;
        note_category(sheet.category_list, band);
    }
}

void show_kinds(base::Sheet& hyou_day, const QList<common::CountedKind>& kinds) {
    hyou_day.SetCols(static_cast<int>(kinds.size()) + strip::first_kind);
    int column = strip::first_kind;
    for (const common::CountedKind& kind : kinds) {
        hyou_day(strip::name, column) = kind.name;
        hyou_day(strip::tag, column) = kind.tag;
        hyou_day.SetCellBack(strip::name, column, kind.leave ? leave_back : holiday_work_back);
        format_strip_column(hyou_day, column++);
    }
}

void add_hours_column(base::Sheet& hyou, int column, const Category& category) {
    hyou(row::heading, column) = category.name;
    hyou(row::category_number, column) = digits(category.number);
    hyou.SetColWidth(column, category_width);
    hyou.SetColAlignment(column, Alignment::Center);
    hyou.SetCellBack(row::total, column, total_back);
}

void add_count_column(base::Sheet& hyou_day, const Category& category) {
    const int column = hyou_day.Cols();
    hyou_day.SetCols(column + 1);
    hyou_day(strip::name, column) = category.name;
    hyou_day(strip::tag, column) = digits(category.number);
    format_strip_column(hyou_day, column);
}

void add_category_columns(MonthSheet& sheet) {
    int column = sheet.hyou.Cols();
    sheet.hyou.SetCols(column + static_cast<int>(sheet.category_list.size()));
    for (const Category& category : sheet.category_list) {
        add_hours_column(sheet.hyou, column++, category);
        add_count_column(sheet.hyou_day, category);
    }
}

store::Statement type_of_employee(store::Database& database) {
    return database.prepare("select 勤務タイプ, (select coalesce(勤務タイプ名, '') from kintype"
                            " where システム番号 = 勤務タイプ order by rowid limit 1)"
                            " from syainkinmu where システム社員番号 = ? order by rowid limit 1");
}

WorkType read_type(store::Statement& types) {
    WorkType type{QString(), u"設定なし"_s};
    if (!types.step())
        return type;
    const store::Row row = types.row();
    type.kintypecd = digits(row.number(0));
    if (row.number(0) != 0 && !row.is_null(1))
        type.name = Trim(row.text(1));
    return type;
}

void lay_type(MonthSheet& sheet, store::Statement& bands, common::CountedKinds& kinds) {
    read_schedule(sheet, bands);
    show_kinds(sheet.hyou_day, kinds.read());
    add_category_columns(sheet);
}

void forget_type(MonthSheet& sheet) {
    sheet.band_table = {};
    sheet.category_list.clear();
}

} // namespace

WorkType 時間外フォーム呼出処理(store::Database& database, EmployeeKey employee) {
    auto types = type_of_employee(database);
    return employee.none() ? WorkType{QString(), u"設定なし"_s} : read_type(types.bind(employee));
}

void 勤務タイプデーター呼出処理(MonthSheet& sheet, store::Database& database, WorkTypeKey type) {
    forget_type(sheet);
    if (type.none())
        return;
    common::CountedKinds kinds(database);
    auto bands = schedule(database, "?");
    lay_type(sheet, bands.bind(type), kinds);
}

TypeOfEmployee::TypeOfEmployee(store::Database& database, EmployeeKey employee)
    : m_types(type_of_employee(database)),
      m_bands(
          schedule(database, "(select 勤務タイプ from syainkinmu where システム社員番号 = ? order by rowid limit 1)")),
      m_kinds(database) {
    m_bands.bind(employee).ask();
    m_types.bind(employee).ask();
}

WorkType TypeOfEmployee::read(MonthSheet& sheet) {
    forget_type(sheet);
    WorkType type = read_type(m_types);
    if (Val(type.kintypecd) != 0)
        lay_type(sheet, m_bands, m_kinds);
    return type;
}

} // namespace entry
