#include "setup/seeding.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "base/work_week.h"
#include "store/files.h"
#include "store/numbering.h"
#include "store/schema.h"

#include <QFileInfo>
#include <algorithm>

namespace setup {

using namespace base;

namespace {

constexpr QStringView type_name = u"通常勤務";
constexpr QStringView category_names[seeded_band_count] = {u"早朝", u"通常", u"残業"};

struct Kind {
    QStringView name;
    int standard; ///< `通常`
    int work;     ///< `休出`
};

constexpr Kind kinds[kind_count] = {
    {u"公休", 1, 0}, {u"病欠", 0, 0}, {u"有休", 0, 0}, {u"振替休", 0, 0}, {u"通常", 1, 1}, {u"日曜出勤", 0, 1}};

/// `syain` is the same in both databases.
std::span<const store::Field> staff_fields() {
    return std::ranges::find(store::tables_of(store::Kind::Comsys), u"syain", &store::Table::name)->fields;
}

/// The names of the fields as SQL lists them, from the constant tables.
QString staff_columns() {
    QStringList names;
    for (const store::Field& field : staff_fields())
        names << u'"' + field.name.toString() + u'"';
    return names.join(u", "_s);
}

QList<QStringList> staff_of(store::Database& comsys) {
    QList<QStringList> staff;
    auto rows = comsys.prepare(
        u"select %1 from syain where システム番号<>0 order by rowid"_s.arg(staff_columns()).toStdString());
    while (rows.step()) {
        QStringList texts;
        for (int column = 0; column < rows.row().columns(); ++column)
            texts << rows.row().text(column);
        staff << texts;
    }
    return staff;
}

std::optional<QList<QStringList>> company_staff(const base::Settings& settings) {
    const QString path = store::comsys_path(settings);
    if (!QFileInfo::exists(path))
        return std::nullopt;
    auto comsys = store::Database::open(path, store::Kind::Comsys);
    return staff_of(comsys);
}

void bind_field(store::Statement& row, int place, const store::Field& field, const QString& text) {
    if (field.type == store::FieldType::Number)
        row.bind_at(place, Val(text));
    else
        row.bind_at(place, Trim(text));
}

void plant_staff(store::Database& rovdata, const QList<QStringList>& staff) {
    const auto fields = staff_fields();
    const QString places = QStringList(fields.size(), u"?"_s).join(u", "_s);
    rovdata.exec("delete from syain");
    auto add = rovdata.prepare(u"insert into syain (%1) values (%2)"_s.arg(staff_columns(), places).toStdString());
    for (const QStringList& texts : staff) {
        add.reset();
        for (int i = 0; i < texts.size(); ++i)
            bind_field(add, i + 1, fields[size_t(i)], texts[i]);
        add.run();
    }
}

void plant_categories(store::Database& rovdata, const Seed& seed) {
    rovdata.exec("delete from kinsyu");
    auto add = rovdata.prepare("insert into kinsyu (システム番号, 種類名) values (?, ?)");
    for (int band = 0; band < seeded_band_count; ++band)
        add.bind(seed.categories[band], category_names[band]).run();
}

void plant_type(store::Database& rovdata, const Seed& seed, const Bands& bands) {
    rovdata.exec("delete from kintype");
    auto add = rovdata.prepare(
        "insert into kintype (システム番号, 勤務タイプ名, 連番, 曜日, 開始時間, 終了時間, 時間種類, 時間計算,"
        " 休憩勤務時間1, 休憩時間1, 休憩勤務時間2, 休憩時間2, 休憩勤務時間3, 休憩時間3)"
        " values (?, ?, ?, ?, ?, ?, ?, 0, ?, ?, 0, 0, 0, 0)");
    for (int weekday = 0; weekday < weekday_count; ++weekday)
        for (int i = 0; i < seeded_band_count; ++i)
            add.bind(seed.type, type_name, i + 1, weekday, bands[i].start.value, bands[i].end.value, seed.categories[i],
                   bands[i].break_work.value, bands[i].break_time.value)
                .run();
}

void assign_type(store::Database& rovdata, int type) {
    rovdata.exec("delete from syainkinmu");
    rovdata
        .prepare("insert into syainkinmu (システム社員番号, 勤務タイプ)"
                 " select システム番号, ? from syain order by rowid")
        .bind(type)
        .run();
}

void plant_kinds(store::Database& rovdata, const Seed& seed) {
    rovdata.exec("delete from kyutype");
    auto add = rovdata.prepare("insert into kyutype (システム番号, 休暇名, 通常, 休出) values (?, ?, ?, ?)");
    for (int i = 0; i < kind_count; ++i)
        add.bind(seed.kinds[i], kinds[i].name, kinds[i].standard, kinds[i].work).run();
}

} // namespace

Seed gather_seed(const base::Settings& settings) {
    Seed seed;
    seed.staff = company_staff(settings);
    for (int& number : seed.categories)
        number = store::採番(settings, u"勤務種類"_s);
    seed.type = store::採番(settings, u"勤務時間"_s);
    for (int& number : seed.kinds)
        number = store::採番(settings, u"休暇種類"_s);
    return seed;
}

void plant(store::Database& rovdata, const Seed& seed, const Bands& bands) {
    store::Transaction transaction(rovdata);
    if (seed.staff)
        plant_staff(rovdata, *seed.staff);
    plant_categories(rovdata, seed);
    plant_type(rovdata, seed, bands);
    assign_type(rovdata, seed.type);
    plant_kinds(rovdata, seed);
    transaction.commit();
}

} // namespace setup
