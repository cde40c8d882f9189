#include "install/delivered.h"

#include "base/literals.h"
#include "install/attendance.h"
#include "install/company.h"
#include "install/standing.h"
#include "install/tree_settings.h"
#include "store/setup.h"

#include <algorithm>
#include <initializer_list>

namespace install {

using namespace base;

namespace {

struct Era {
    QStringView name;
    QStringView letter;
    int first_day;
    int last_day;
    int offset; ///< the Western year less the era year
};

constexpr Era eras[]{
    {u"大正", u"T", 19120730, 19261224, 1911},
    {u"昭和", u"S", 19261225, 19890107, 1925},
    {u"平成", u"H", 19890108, 20190430, 1988},
    {u"令和", u"R", 20190501, 99999999, 2018},
};

void write_settings(store::Statement add, std::initializer_list<Setting> settings) {
    for (const Setting& setting : settings)
        add.bind(setting.key, setting.value).run();
}

void deliver_sample_staff(store::Database& comsys, const Sample& sample) {
    const QList<Employee> staff = employees(sample.employees);
    write_employees(comsys, staff);
    write_counters(comsys, staff);
}

void deliver_comsys(store::Database& comsys, const Options& options) {
    store::Transaction transaction(comsys);
    store::Statement add_era =
        comsys.prepare("insert into waseihen (元号名, 略名, 開始日, 終了日, 差年) values (?, ?, ?, ?, ?)");
    for (const Era& era : eras)
        add_era.bind(era.name, era.letter, era.first_day, era.last_day, era.offset).run();
    comsys.exec("insert into syain (システム番号, 社員名, フリガナ) values (0, '全体', 'ゼンタイ')");
    write_settings(comsys.prepare("insert into kihon (項目名, データ) values (?, ?)"),
        {
            {u"和西暦表示"_s, u"0"_s},
            {u"特別ソフト"_s, u"0"_s},
            {u"月初日付"_s, u"1"_s},
            {u"先付け日付"_s, u"10"_s},
            {u"サーバー名"_s, options.server_name},
            {u"情報サーバー"_s, options.info_server},
            {u"総額表示"_s, u"0"_s},
            {u"消費税"_s, u"10"_s},
        });
    if (holds_masters(settings_of(options)))
        carry_on(comsys, settings_of(options));
    else if (options.sample)
        deliver_sample_staff(comsys, *options.sample);
    transaction.commit();
}

void deliver_allsystem(store::Database& allsystem, const Options& options) {
    if (holds_masters(settings_of(options)))
        store::register_product(allsystem, settings_of(options));
}

void deliver_rovdata(store::Database& rovdata, const Options& options) {
    if (!options.sample)
        return;
    store::Transaction transaction(rovdata);
    const QList<Employee> staff = employees(options.sample->employees);
    write_employees(rovdata, staff);
    write_masters(rovdata, staff);
    write_attendance(rovdata, staff, *options.sample);
    write_settings(rovdata.prepare("insert into rov_kihon (項目名, データ) values (?, ?)"),
        {{u"sokdataバージョン"_s, store::table_stamp.toString()}});
    transaction.commit();
}

void deliver_losys(store::Database& losys, const Options& options) {
    Options all = options;
    all.use_class = options.use_class.value_or(0);
    if (options.sample && options.printer.isEmpty())
        all.printer = u"PDF"_s;
    store::Statement add = losys.prepare("insert into losystem (項目名, データ) values (?, ?)");
    add.bind(u"ネット情報"_s, u"0"_s).run();
    for (const Setting& setting : settings_of_pc(all))
        add.bind(setting.key, setting.value).run();
}

struct Delivery {
    store::Kind kind;
    void (*rows)(store::Database&, const Options&);
};

constexpr Delivery deliveries[]{
    {store::Kind::Comsys, deliver_comsys},
    {store::Kind::Allsystem, deliver_allsystem},
    {store::Kind::Rovdata, deliver_rovdata},
    {store::Kind::Losys, deliver_losys},
    {store::Kind::Closings, [](store::Database&, const Options&) {}},
};

} // namespace

void deliver(store::Database& database, store::Kind kind, const Options& options) {
    std::ranges::find(deliveries, kind, &Delivery::kind)->rows(database, options);
}

} // namespace install
