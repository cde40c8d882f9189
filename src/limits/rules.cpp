#include "limits/rules.h"

#include <algorithm>

namespace limits {

namespace {

constexpr QStringView article_34 = u"労働基準法第34条第1項";
constexpr QStringView article_36_4 = u"労働基準法第36条第4項";
constexpr QStringView article_36_5 = u"労働基準法第36条第5項";
constexpr QStringView article_36_6 = u"労働基準法第36条第6項";
constexpr int most_hours = 2000;
constexpr int hours_a_day = 24;

constexpr std::array<FigureRow, figure_count> rows{{
    {u"上限時間外月", u"時間外（月）", u"時間", 45, 0, most_hours, article_36_4},
    {u"上限時間外年", u"時間外（年）", u"時間", 360, 0, most_hours, article_36_4},
    {u"上限特別条項年", u"時間外（年、特別条項）", u"時間", 720, 0, most_hours, article_36_5},
    {u"上限特別条項月数", u"月の上限を超えてよい月数", u"か月", 6, 0, 12, article_36_5},
    {u"上限合計月", u"休日労働を含む（月、未満）", u"時間", 100, 0, most_hours, article_36_6},
    {u"上限合計平均", u"休日労働を含む（2～6か月平均）", u"時間", 80, 0, most_hours, article_36_6},
    {u"上限休憩短勤務", u"この時間を超える勤務に", u"時間", 6, 0, hours_a_day, article_34},
    {u"上限休憩短", u"必要な休憩", u"分", 45, 0, 480, article_34},
    {u"上限休憩長勤務", u"この時間を超える勤務に", u"時間", 8, 0, hours_a_day, article_34},
    {u"上限休憩長", u"必要な休憩", u"分", 60, 0, 480, article_34},
    {u"上限年休日数", u"年に取らせる年休", u"日", 5, 0, 40, u"労働基準法第39条第7項"},
    {u"上限注意割合", u"注意とする割合", u"％", 80, 1, 100, u""},
    {u"上限時間外開始月", u"時間外の年の始まり", u"月", 4, 1, 12, u""},
    {u"上限年休開始月", u"年休の年の始まり", u"月", 4, 1, 12, u""},
}};

} // namespace

std::span<const FigureRow, figure_count> figure_rows() {
    return rows;
}

Rules::Rules() : figures() {
    std::ranges::transform(rows, figures.begin(), &FigureRow::usual);
}

} // namespace limits
