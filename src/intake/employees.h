#pragma once

// The employees of the company, found by the number that a recorder writes.

#include "base/system_number.h"
#include "store/database.h"

#include <QHash>

namespace intake {

struct Employee {
    base::EmployeeKey key;
    QString number; ///< `社員番号` as the master has it
    QString name;
};

class Employees {
public:
    explicit Employees(store::Database& rovdata);

    const Employee& operator[](int index) const { return m_list[index]; }

    /// Found in half and full width, with and without zeros in front.
    struct Found {
        int index = -1; ///< -1 if none is meant
        QString reason; ///< why none is, in words
    };
    Found find(const QString& written) const;

private:
    QList<Employee> m_list;
    QHash<QString, QList<int>> m_by_number;
};

} // namespace intake
