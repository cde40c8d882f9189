#include "reports/pages/print_columns.h"

#include "base/text.h"
#include "reports/tallies/report.h"

#include <span>

namespace reports {

namespace {

constexpr std::nullopt_t centred = std::nullopt;
constexpr QStringView as_on_sheet; ///< the heading is the sheet's

constexpr CellKind あ = CellKind::Text;
constexpr CellKind 数 = CellKind::Numeric;
constexpr CellKind A = CellKind::Fixed;

/// The fields are those of 印刷項目.
struct PrintColumn {
    QStringView 項目名;
    double 項目幅; ///< mm
    CellKind 項目種別;
    int 項目桁数;
    QStringView 項目書式 = u"";
    std::optional<double> 項目位置 = 1.0; ///< mm
};

/// Of a work category.
constexpr PrintColumn hours{
    .項目名 = as_on_sheet, .項目幅 = category_width, .項目種別 = A, .項目桁数 = 6, .項目書式 = u"@"};

constexpr PrintColumn employee_list[]{
    {.項目名 = u"", .項目幅 = 8, .項目種別 = 数, .項目桁数 = 3, .項目書式 = u"####", .項目位置 = centred},
    {.項目名 = u"社員番号", .項目幅 = 26, .項目種別 = あ, .項目桁数 = 15},
    {.項目名 = u"社　　員　　名", .項目幅 = 59, .項目種別 = あ, .項目桁数 = 15},
    {.項目名 = u"勤務タイプ", .項目幅 = 85, .項目種別 = あ, .項目桁数 = 13},
};

constexpr PrintColumn work_category_list[]{
    {.項目名 = u"", .項目幅 = 8, .項目種別 = 数, .項目桁数 = 4, .項目書式 = u"####"},
    {.項目名 = u"勤務種類名", .項目幅 = 100, .項目種別 = あ, .項目桁数 = 30},
};

constexpr PrintColumn type_time{.項目名 = as_on_sheet, .項目幅 = 12, .項目種別 = A, .項目桁数 = 5, .項目書式 = u"@"};
constexpr PrintColumn work_type_list[]{
    {.項目名 = u"", .項目幅 = 8, .項目種別 = 数, .項目桁数 = 4, .項目書式 = u"####"},
    {.項目名 = u"勤務タイプ名", .項目幅 = 25, .項目種別 = あ, .項目桁数 = 15},
    {.項目名 = u"曜", .項目幅 = 5, .項目種別 = あ, .項目桁数 = 1, .項目位置 = centred},
    {.項目名 = u"勤務種類名", .項目幅 = 25, .項目種別 = あ, .項目桁数 = 13},
    type_time,
    type_time,
    {.項目名 = u"時間計算", .項目幅 = 19, .項目種別 = あ, .項目桁数 = 5},
    type_time,
    type_time,
    type_time,
    type_time,
    type_time,
    type_time,
};

// Of a day, on the attendance detail as on the work time list.
constexpr PrintColumn clock_in{.項目名 = u"出社時間", .項目幅 = 14, .項目種別 = A, .項目桁数 = 5, .項目書式 = u"@"};
constexpr PrintColumn clock_out{.項目名 = u"退社時間", .項目幅 = 14, .項目種別 = A, .項目桁数 = 5, .項目書式 = u"@"};
constexpr PrintColumn break_time{.項目名 = u"休憩時間", .項目幅 = 14, .項目種別 = A, .項目桁数 = 6, .項目書式 = u"@"};
constexpr PrintColumn work_time{.項目名 = u"勤務時間", .項目幅 = 14, .項目種別 = A, .項目桁数 = 6, .項目書式 = u"@"};

constexpr PrintColumn attendance_detail[]{
    {.項目名 = u"日", .項目幅 = 8, .項目種別 = 数, .項目桁数 = 2, .項目位置 = centred},
    {.項目名 = u"曜", .項目幅 = 6, .項目種別 = あ, .項目桁数 = 1},
    clock_in,
    clock_out,
    break_time,
    work_time,
    {.項目名 = u"備　考", .項目幅 = 30, .項目種別 = あ, .項目桁数 = 8, .項目書式 = u"@"},
    {.項目名 = u"出勤・休暇", .項目幅 = 20, .項目種別 = あ, .項目桁数 = 5, .項目書式 = u"@"},
};

constexpr PrintColumn work_time_list[]{
    {.項目名 = u"", .項目幅 = 8, .項目種別 = 数, .項目桁数 = 2, .項目位置 = centred},
    {.項目名 = u"", .項目幅 = 0, .項目種別 = 数, .項目桁数 = 1, .項目位置 = centred},
    {.項目名 = u"社員番号", .項目幅 = 25, .項目種別 = あ, .項目桁数 = 10},
    {.項目名 = u"社員名", .項目幅 = 30, .項目種別 = あ, .項目桁数 = 20},
    clock_in,
    clock_out,
    break_time,
    work_time,
    {.項目名 = u"備考", .項目幅 = 25, .項目種別 = あ, .項目桁数 = 6, .項目書式 = u"@"},
    {.項目名 = u"休暇", .項目幅 = 20, .項目種別 = あ, .項目桁数 = 5, .項目書式 = u"@"},
};

constexpr PrintColumn leave_list[]{
    {.項目名 = u"名称", .項目幅 = 40, .項目種別 = あ, .項目桁数 = 10, .項目書式 = u"@"},
    {.項目名 = u"休暇・出勤", .項目幅 = 30, .項目種別 = あ, .項目桁数 = 10, .項目位置 = centred},
    {.項目名 = u"標準", .項目幅 = 30, .項目種別 = あ, .項目桁数 = 10, .項目書式 = u"@", .項目位置 = centred},
};

constexpr PrintColumn error_list[]{
    {.項目名 = u"エラー内容", .項目幅 = 0, .項目種別 = 数, .項目桁数 = 0, .項目書式 = u"####", .項目位置 = 0.0},
    {.項目名 = u"", .項目幅 = 6, .項目種別 = 数, .項目桁数 = 2, .項目位置 = centred},
};

struct ReportColumns {
    std::span<const PrintColumn> columns;
    const PrintColumn* further = nullptr; ///< every column behind the table
    int 縦線区切 = 0;

    const PrintColumn* at(int col) const {
        if (col < 0)
            return nullptr;
        return col < std::ssize(columns) ? &columns[size_t(col)] : further;
    }
};

/// By the report's number less 1.
constexpr ReportColumns reports_columns[]{
    {.columns = employee_list},
    {.columns = work_category_list, .縦線区切 = 1},
    {.columns = work_type_list},
    {.columns = attendance_detail, .further = &hours, .縦線区切 = 1},
    {.columns = work_time_list, .further = &hours, .縦線区切 = 1},
    {.columns = leave_list, .縦線区切 = 1},
};

印刷項目 record(const PrintColumn& column, int 縦線区切, const QString& on_sheet) {
    return {.項目名 = column.項目名.isNull() ? base::Trim(on_sheet) : column.項目名.toString(),
        .項目種別 = column.項目種別,
        .項目桁数 = column.項目桁数,
        .項目書式 = column.項目書式.toString(),
        .項目幅 = column.項目幅,
        .項目位置 = column.項目位置,
        .縦線区切 = 縦線区切};
}

} // namespace

印刷項目 項目定義取得(int 列番号, const Report& report) {
    if (report.帳票番号 < 1 || report.帳票番号 > std::ssize(reports_columns))
        return {};
    const ReportColumns& table = reports_columns[report.帳票番号 - 1];
    const PrintColumn* column = table.at(列番号);
    if (!column)
        return {};
    return record(*column, table.縦線区切, report.hyou.Contains(0, 列番号) ? report.hyou(0, 列番号) : QString());
}

印刷項目 項目定義取得_エラー(int 列番号) {
    constexpr ReportColumns table{error_list};
    const PrintColumn* column = table.at(列番号);
    return column ? record(*column, table.縦線区切, {}) : 印刷項目();
}

} // namespace reports
