#include "reports/pages/print_columns.h"

#include "base/text.h"

#include <span>

namespace reports {

namespace {

constexpr std::nullopt_t C = std::nullopt; ///< centred
constexpr QStringView as_on_sheet;         ///< the heading is the sheet's

constexpr CellKind あ = CellKind::Text;
constexpr CellKind 数 = CellKind::Numeric;
constexpr CellKind A = CellKind::Fixed;

struct Column {
    QStringView 項目名;
    CellKind 項目種別;
    int 項目桁数;
    QStringView 項目書式;
    double 項目幅;
    std::optional<double> 項目位置;
};

constexpr Column hours{as_on_sheet, A, 6, u"@", 14, 1.0}; ///< of a work category

constexpr Column employee_list[]{
    {u"", 数, 3, u"####", 8, C},
    {u"社員番号", あ, 15, u"", 26, 1.0},
    {u"社　　員　　名", あ, 15, u"", 59, 1.0},
    {u"勤務タイプ", あ, 13, u"", 85, 1.0},
};

constexpr Column work_category_list[]{
    {u"", 数, 4, u"####", 8, 1.0},
    {u"勤務種類名", あ, 30, u"", 100, 1.0},
};

constexpr Column type_time{as_on_sheet, A, 5, u"@", 12, 1.0};
constexpr Column work_type_list[]{
    {u"", 数, 4, u"####", 8, 1.0},
    {u"勤務タイプ名", あ, 15, u"", 25, 1.0},
    {u"曜", あ, 1, u"", 5, C},
    {u"勤務種類名", あ, 13, u"", 25, 1.0},
    type_time,
    type_time,
    {u"時間計算", あ, 5, u"", 19, 1.0},
    type_time,
    type_time,
    type_time,
    type_time,
    type_time,
    type_time,
};

constexpr Column attendance_detail[]{
    {u"日", 数, 2, u"", 8, C},
    {u"曜", あ, 1, u"", 6, 1.0},
    {u"出社時間", A, 5, u"@", 14, 1.0},
    {u"退社時間", A, 5, u"@", 14, 1.0},
    {u"休憩時間", A, 6, u"@", 14, 1.0},
    {u"勤務時間", A, 6, u"@", 14, 1.0},
    {u"備　考", あ, 8, u"@", 30, 1.0},
    {u"出勤・休暇", あ, 5, u"@", 20, 1.0},
};

constexpr Column work_time_list[]{
    {u"", 数, 2, u"", 8, C},
    {u"", 数, 1, u"", 0, C},
    {u"社員番号", あ, 10, u"", 25, 1.0},
    {u"社員名", あ, 20, u"", 30, 1.0},
    {u"出社時間", A, 5, u"@", 14, 1.0},
    {u"退社時間", A, 5, u"@", 14, 1.0},
    {u"休憩時間", A, 6, u"@", 14, 1.0},
    {u"勤務時間", A, 6, u"@", 14, 1.0},
    {u"備考", あ, 6, u"@", 25, 1.0},
    {u"休暇", あ, 5, u"@", 20, 1.0},
};

constexpr Column leave_list[]{
    {u"名称", あ, 10, u"@", 40, 1.0},
    {u"休暇・出勤", あ, 10, u"", 30, C},
    {u"標準", あ, 10, u"@", 30, C},
};

constexpr Column error_list[]{
    {u"エラー内容", 数, 0, u"####", 0, 0.0},
    {u"", 数, 2, u"", 6, C},
};

struct ReportColumns {
    std::span<const Column> columns;
    const Column* further = nullptr; ///< every column behind the table
    int 縦線区切 = 0;

    const Column* at(int col) const {
        if (col < 0)
            return nullptr;
        return col < std::ssize(columns) ? &columns[size_t(col)] : further;
    }
};

/// By the report's number less 1.
constexpr ReportColumns reports_columns[]{
    {employee_list, nullptr, 0},
    {work_category_list, nullptr, 1},
    {work_type_list, nullptr, 0},
    {attendance_detail, &hours, 1},
    {work_time_list, &hours, 1},
    {leave_list, nullptr, 1},
};

印刷項目 record(const Column& column, int 縦線区切, const QString& on_sheet) {
    return {column.項目名.isNull() ? base::Trim(on_sheet) : column.項目名.toString(), column.項目種別, column.項目桁数,
        column.項目書式.toString(), column.項目幅, column.項目位置, 縦線区切};
}

} // namespace

印刷項目 項目定義取得(int 列番号, int 帳票番号, const base::Sheet& hyou) {
    if (帳票番号 < 1 || 帳票番号 > std::ssize(reports_columns))
        return {};
    const ReportColumns& report = reports_columns[帳票番号 - 1];
    const Column* column = report.at(列番号);
    if (!column)
        return {};
    return record(*column, report.縦線区切, hyou.contains(0, 列番号) ? hyou(0, 列番号) : QString());
}

印刷項目 項目定義取得_エラー(int 列番号) {
    constexpr ReportColumns table{error_list};
    const Column* column = table.at(列番号);
    return column ? record(*column, table.縦線区切, {}) : 印刷項目();
}

} // namespace reports
