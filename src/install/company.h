#pragma once

// The made-up company's masters: work categories, work types with their bands, leave kinds and employees. Numbers are
// those that the numbering service would have given to a company that entered them in this order.

#include "base/time.h"
#include "store/database.h"

#include <QList>
#include <span>

namespace install {

/// Work categories by their number.
enum class Category { Early = 1, Normal, Overtime, Night, Saturday };
inline constexpr int category_count = 5;

/// A band of a day's schedule, with the one break rule that a band here has; a threshold of 0 is none.
struct Band {
    Category category;
    base::ClockNumber start;
    base::ClockNumber end;
    base::ClockNumber break_threshold{};
    base::ClockNumber break_time{};
};

enum class TypeNumber { Regular = 1, Night, Part };

struct WorkType {
    TypeNumber number;
    QStringView name;
    std::span<const Band> weekday; ///< Sunday to Friday
    std::span<const Band> saturday;
};

/// 0 is Sunday, 6 Saturday.
std::span<const Band> bands_of(const WorkType& type, int weekday);

/// Leave and work-day kinds by their number.
enum class KindNumber { DayOff = 1, Sick, PaidLeave, Substitute, Work, SundayWork };

struct Kind {
    KindNumber number;
    QStringView name;
    int standard; ///< `通常`
    int work;     ///< `休出`
};

const Kind& kind(KindNumber number);

struct Employee {
    int system_number;
    int number; ///< the one that people see
    const WorkType* type;
};

/// So many employees, the same ones each time: most on regular work, some on nights, some part-time. Their types live
/// as long as the program.
QList<Employee> employees(int count);

// The rows are added to what is there, in the transaction of the caller.

/// Rows of `syain` in either database.
void write_employees(store::Database& database, const QList<Employee>& staff);

/// Rows of `kinsyu`, `kintype`, `kyutype` and `syainkinmu`.
void write_masters(store::Database& rovdata, const QList<Employee>& staff);

/// Rows of `bangou`: the numbers given out so far. There is at least one employee.
void write_counters(store::Database& comsys, const QList<Employee>& staff);

} // namespace install
