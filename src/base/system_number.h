#pragma once

// System numbers (`システム番号`), the keys of the masters' rows. Each master's is a type of its own that has to be
// made by its name: an employee's number can't be given where a work type's is meant.

#include <QHashFunctions>

namespace base {

template <typename Master>
class SystemNumber {
public:
    constexpr SystemNumber() = default; ///< of no row
    constexpr explicit SystemNumber(qint64 value) : m_value(value) {}
    constexpr qint64 value() const { return m_value; }
    constexpr bool none() const { return m_value == 0; } ///< 0 is no row's number
    friend constexpr bool operator==(SystemNumber, SystemNumber) = default;
    friend size_t qHash(SystemNumber number, size_t seed = 0) { return ::qHash(number.m_value, seed); }

private:
    qint64 m_value = 0;
};

using EmployeeKey = SystemNumber<struct EmployeeMaster>;
using WorkTypeKey = SystemNumber<struct WorkTypeMaster>;

} // namespace base
