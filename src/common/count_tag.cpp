#include "common/count_tag.h"

#include "base/numbers.h"

namespace common {

using namespace base;

CountTag CountTag::of_kind(qint64 number, qint64 holiday_work) {
    return {number, holiday_work == 0 ? Leave : HolidayWork};
}

CountTag CountTag::read(const QString& text) {
    if (!is_kind_tag(text))
        return {Val(text), Figure};
    return {Val(QStringView(text).sliced(1)), text.front() == leave_letter ? Leave : HolidayWork};
}

QString CountTag::text() const {
    if (family == Leave)
        return leave_letter + digits(number);
    return family == HolidayWork ? holiday_work_letter + digits(number) : digits(number);
}

bool is_kind_tag(const QString& text) {
    return text.startsWith(leave_letter) || text.startsWith(holiday_work_letter);
}

} // namespace common
