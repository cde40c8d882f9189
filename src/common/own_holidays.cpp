#include "common/own_holidays.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"

namespace common {

using namespace base;

namespace {

const QString key_start = u"会社休日"_s;

QString key_of(int day) {
    return key_start + digits(day);
}

OwnHolidays read(store::OpenSettings& settings) {
    OwnHolidays days;
    for (const auto& [key, name] : settings.beginning_with(key_start).asKeyValueRange())
        if (const int day = int_val(QStringView(key).mid(key_start.size())); key == key_of(day))
            days.insert(day, name);
    return days;
}

} // namespace

OwnHolidays read_own_holidays(store::SettingTables& tables) {
    store::OpenSettings settings = tables.open(store::rov_kihon);
    return read(settings);
}

void keep_own_holidays(store::SettingTables& tables, const OwnHolidays& days) {
    store::OpenSettings settings = tables.open(store::rov_kihon);
    const OwnHolidays before = read(settings);
    for (const int day : before.keys())
        if (!days.contains(day))
            settings.remove(key_of(day));
    for (const auto& [day, name] : days.asKeyValueRange())
        if (before.value(day) != name)
            settings.設定書込(key_of(day), field_text(name));
    settings.commit();
}

} // namespace common
