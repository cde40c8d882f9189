#include "install/company.h"

#include "base/literals.h"
#include "install/dice.h"
#include "install/names.h"

#include <array>

namespace install {

using namespace base;

namespace {

constexpr std::array<QStringView, category_count> category_names{u"早朝", u"通常", u"残業", u"深夜", u"土曜"};

constexpr Band regular_weekday[]{
    {Category::Early, {500}, {800}},
    {Category::Normal, {800}, {1700}, {700}, {100}},
    {Category::Overtime, {1700}, {2200}},
    {Category::Night, {2200}, {500}},
};
constexpr Band regular_saturday[]{
    {Category::Early, {500}, {800}},
    {Category::Saturday, {800}, {1700}, {700}, {100}},
    {Category::Overtime, {1700}, {2200}},
    {Category::Night, {2200}, {500}},
};
constexpr Band night_day[]{
    {Category::Overtime, {1700}, {2200}},
    {Category::Night, {2200}, {500}, {600}, {45}},
};
constexpr Band part_weekday[]{
    {Category::Normal, {900}, {1500}, {500}, {45}},
    {Category::Overtime, {1500}, {1900}},
};
constexpr Band part_saturday[]{
    {Category::Saturday, {900}, {1500}, {500}, {45}},
    {Category::Overtime, {1500}, {1900}},
};

constexpr WorkType types[]{
    {TypeNumber::Regular, u"通常勤務", regular_weekday, regular_saturday},
    {TypeNumber::Night, u"夜勤", night_day, night_day},
    {TypeNumber::Part, u"パート", part_weekday, part_saturday},
};

constexpr Kind kinds[]{
    {KindNumber::DayOff, u"公休", 1, 0},
    {KindNumber::Sick, u"病欠", 0, 0},
    {KindNumber::PaidLeave, u"有休", 0, 0},
    {KindNumber::Substitute, u"振替休", 0, 0},
    {KindNumber::Work, u"通常", 1, 1},
    {KindNumber::SundayWork, u"日曜出勤", 0, 1},
};

constexpr int number_that_is_never_given = 9999;
constexpr int first_visible_number = 1001;

const WorkType& type_of(Dice& dice) {
    const int throw_of_100 = dice.below(100);
    return types[throw_of_100 < 70 ? 0 : throw_of_100 < 80 ? 1 : 2];
}

void write_bands(store::Database& rovdata, const WorkType& type) {
    store::Statement add = rovdata.prepare(
        "insert into kintype (システム番号, 勤務タイプ名, 連番, 曜日, 開始時間, 終了時間, 時間種類, 時間計算,"
        " 休憩勤務時間1, 休憩時間1, 休憩勤務時間2, 休憩時間2, 休憩勤務時間3, 休憩時間3)"
        " values (?, ?, ?, ?, ?, ?, ?, 0, ?, ?, 0, 0, 0, 0)");
    for (int weekday = 0; weekday < 7; ++weekday) {
        int place = 0;
        for (const Band& band : bands_of(type, weekday))
            add.bind(int(type.number), type.name, ++place, weekday, band.start.value, band.end.value,
                   int(band.category), band.break_threshold.value, band.break_time.value)
                .run();
    }
}

} // namespace

std::span<const Band> bands_of(const WorkType& type, int weekday) {
    return weekday == 6 ? type.saturday : type.weekday;
}

const Kind& kind(KindNumber number) {
    return kinds[int(number) - 1];
}

QList<Employee> employees(int count) {
    Dice dice{7};
    QList<Employee> staff;
    for (int i = 1; i <= count; ++i)
        staff.append({i < number_that_is_never_given ? i : i + 1, first_visible_number + i - 1, &type_of(dice)});
    // The numbers that people see were given by hand, in another order than the employees were entered.
    for (int i = count - 1; i > 0; --i)
        std::swap(staff[i].number, staff[dice.below(i + 1)].number);
    return staff;
}

void write_employees(store::Database& database, const QList<Employee>& staff) {
    store::Statement add = database.prepare(
        "insert into syain (システム番号, 社員番号, 社員名, フリガナ, 第１グループ, 第２グループ, 第３グループ)"
        " values (?, ?, ?, ?, '', '', '')");
    for (const Employee& employee : staff) {
        const Person who = person(employee.system_number - 1);
        add.bind(employee.system_number, employee.number, who.name, who.reading).run();
    }
}

void write_masters(store::Database& rovdata, const QList<Employee>& staff) {
    store::Statement add_category = rovdata.prepare("insert into kinsyu (システム番号, 種類名) values (?, ?)");
    for (int i = 0; i < category_count; ++i)
        add_category.bind(i + 1, category_names[size_t(i)]).run();
    for (const WorkType& type : types)
        write_bands(rovdata, type);
    store::Statement add_kind =
        rovdata.prepare("insert into kyutype (システム番号, 休暇名, 通常, 休出) values (?, ?, ?, ?)");
    for (const Kind& each : kinds)
        add_kind.bind(int(each.number), each.name, each.standard, each.work).run();
    store::Statement assign = rovdata.prepare("insert into syainkinmu (システム社員番号, 勤務タイプ) values (?, ?)");
    for (const Employee& employee : staff)
        assign.bind(employee.system_number, int(employee.type->number)).run();
}

void write_counters(store::Database& comsys, const QList<Employee>& staff) {
    store::Statement add = comsys.prepare("insert into bangou (番号名称, 番号) values (?, ?)");
    add.bind(u"勤務種類"_s, category_count).run();
    add.bind(u"勤務時間"_s, std::size(types)).run();
    add.bind(u"休暇種類"_s, std::size(kinds)).run();
    add.bind(u"社員番号"_s, staff.last().system_number).run();
}

} // namespace install
