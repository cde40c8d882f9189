#include "limits/rules_store.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"

#include <QStringList>
#include <algorithm>

namespace limits {

using namespace base;

namespace {

const QString key_start = u"上限"_s;
const QString special_key = u"上限特別条項"_s;
const QString overtime_key = u"上限時間外種類"_s;
const QString holiday_key = u"上限休日労働種類"_s;
const QString leave_key = u"上限年休種類"_s;
const QString half_key = u"上限半休種類"_s;
const QString free_key = u"上限対象外"_s; ///< and the employee's system number

constexpr int free_of_hours = 1;
constexpr int free_of_leave = 2;
constexpr int whole_day = 2;
constexpr int half_day = 1;

using Kept = QMap<QString, QString>;

QList<Named> named(store::Database& rovdata, std::string_view sql) {
    QList<Named> rows;
    auto query = rovdata.prepare(sql);
    while (query.step())
        rows << Named{query.row().number(0), Trim(query.row().text(1))};
    return rows;
}

bool holds_any(const QString& name, std::initializer_list<QStringView> words) {
    return std::ranges::any_of(words, [&](QStringView word) { return name.contains(word); });
}

void count_by_names(Rules& rules, const Countable& countable) {
    for (const Named& category : countable.categories) {
        if (holds_any(category.name, {u"休日", u"休出", u"日曜"}))
            rules.categories.insert(category.number, Counts::HolidayWork);
        else if (holds_any(category.name, {u"残業", u"時間外"}))
            rules.categories.insert(category.number, Counts::Overtime);
    }
    for (const Named& kind : countable.day_kinds)
        if (holds_any(kind.name, {u"有休", u"有給", u"年休", u"半休"}))
            rules.leave.insert(kind.number, kind.name.contains(u'半') ? half_day : whole_day);
}

template <typename Meaning>
void read_numbers(QHash<qint64, Meaning>& counts, const QString& numbers, Meaning meaning) {
    for (const QString& number : numbers.split(u',', Qt::SkipEmptyParts))
        counts.insert(Val(number), meaning);
}

/// The numbers that have the meaning, in order.
template <typename Meaning>
QString numbers_of(const QHash<qint64, Meaning>& counts, Meaning meaning) {
    QList<qint64> numbers = counts.keys(meaning);
    std::ranges::sort(numbers);
    QStringList texts;
    for (const qint64 number : numbers)
        texts << digits(number);
    return texts.join(u',');
}

void read_figures(Rules& rules, const Kept& kept) {
    for (int i = 0; i < figure_count; ++i) {
        const FigureRow& row = figure_rows()[size_t(i)];
        const auto found = kept.find(row.key.toString());
        if (found == kept.end())
            continue;
        const int figure = int_val(*found);
        if (row.least <= figure && figure <= row.most)
            rules.figures[size_t(i)] = figure;
    }
}

void read_free(Rules& rules, const Kept& kept) {
    for (auto at = kept.lowerBound(free_key); at != kept.end() && at.key().startsWith(free_key); ++at) {
        const EmployeeKey employee(Val(QStringView(at.key()).mid(free_key.size())));
        if (Val(*at) & free_of_hours)
            rules.free_hours.insert(employee);
        if (Val(*at) & free_of_leave)
            rules.free_leave.insert(employee);
    }
}

Kept texts_of(const Rules& rules) {
    Kept kept;
    for (int i = 0; i < figure_count; ++i)
        kept.insert(figure_rows()[size_t(i)].key.toString(), digits(rules.figures[size_t(i)]));
    kept.insert(special_key, rules.special ? u"1"_s : u"0"_s);
    kept.insert(overtime_key, numbers_of(rules.categories, Counts::Overtime));
    kept.insert(holiday_key, numbers_of(rules.categories, Counts::HolidayWork));
    kept.insert(leave_key, numbers_of(rules.leave, whole_day));
    kept.insert(half_key, numbers_of(rules.leave, half_day));
    return kept;
}

} // namespace

Countable countable(store::Database& rovdata) {
    return {named(rovdata, "select システム番号, 種類名 from kinsyu order by システム番号"),
        named(rovdata, "select システム番号, 休暇名 from kyutype order by システム番号")};
}

KeptRules read_rules(store::SettingTables& tables, const Countable& countable) {
    const Kept kept = tables.open(store::rov_kihon).beginning_with(key_start);
    KeptRules read{.rules = {}, .chosen = kept.contains(overtime_key)};
    read_figures(read.rules, kept);
    read_free(read.rules, kept);
    read.rules.special = Val(kept.value(special_key)) != 0;
    if (!read.chosen) {
        count_by_names(read.rules, countable);
        return read;
    }
    read_numbers(read.rules.categories, kept.value(overtime_key), Counts::Overtime);
    read_numbers(read.rules.categories, kept.value(holiday_key), Counts::HolidayWork);
    read_numbers(read.rules.leave, kept.value(leave_key), whole_day);
    read_numbers(read.rules.leave, kept.value(half_key), half_day);
    return read;
}

void keep_rules(store::SettingTables& tables, const Rules& rules, const KeptRules& before) {
    const Kept was = before.chosen ? texts_of(before.rules) : Kept();
    store::OpenSettings table = tables.open(store::rov_kihon);
    for (const auto& [key, text] : texts_of(rules).asKeyValueRange())
        if (!was.contains(key) || was.value(key) != text)
            table.設定書込(key, text);
    table.commit();
}

void keep_free(store::SettingTables& tables, EmployeeKey employee, const Rules& rules) {
    const int free = (rules.free_hours.contains(employee) ? free_of_hours : 0) +
                     (rules.free_leave.contains(employee) ? free_of_leave : 0);
    const QString key = free_key + digits(employee.value());
    store::OpenSettings table = tables.open(store::rov_kihon);
    if (free == 0)
        table.remove(key);
    else
        table.設定書込(key, digits(free));
    table.commit();
}

} // namespace limits
