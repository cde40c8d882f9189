#include "bench/posted_rows.h"

#include <algorithm>

namespace bench {

namespace {

constexpr int days = 31;
constexpr int categories = 4;

// Numbers of the rows of one save:
constexpr int day_rows = days + 1;
constexpr int hour_rows = day_rows * categories;
constexpr int count_rows = 8;
constexpr int save_rows = day_rows + hour_rows + count_rows + days;

} // namespace

Posted posted(int index) {
    const int employee = 1 + index / save_rows;
    int place = index % save_rows;
    const auto date = [](int day) { return 20261100 + std::min(day, days) + (day > days ? 1 : 0); };
    if (place < day_rows)
        return {51, employee, date(place + 1), 1715, 0};
    place -= day_rows;
    if (place < hour_rows)
        return {52, employee, date(place / categories + 1), 200 + place % categories, place % categories + 1};
    place -= hour_rows;
    if (place < count_rows)
        return {53, employee, 202611, 5, place + 1};
    return {54, employee, date(place - count_rows + 1), 0, 3};
}

void post_many(store::Database& exchange) {
    store::Transaction transaction(exchange);
    store::Statement day = exchange.prepare(
        R"(insert into jyusin ("2","3","4","5","6","7","8","9","10","11","12","13","14","15","16")
           values ('51','0','20261130120000','20261130120000','1',?,'社員','0',?,'830',?,?,'100','745',''))");
    store::Statement hours =
        exchange.prepare(R"(insert into jyusin ("2","3","4","5","6","7") values ('52',?,?,?,?,'8'))");
    store::Statement count =
        exchange.prepare(R"(insert into jyusin ("2","3","4","5","6","7","8","9") values ('53',?,?,?,'0',?,'0','0'))");
    store::Statement leave =
        exchange.prepare(R"(insert into jyusin ("2","3","4","5","6","7") values ('54',?,?,?,'有休','0'))");
    for (int i = 0; i < many_rows; ++i) {
        const Posted row = posted(i);
        if (row.kind == 51)
            day.bind(row.employee, row.date, row.date, row.value).run();
        else if (row.kind == 54)
            leave.bind(row.date, row.employee, row.number).run();
        else
            (row.kind == 52 ? hours : count).bind(row.date, row.employee, row.number, row.value).run();
    }
    transaction.commit();
}

} // namespace bench
