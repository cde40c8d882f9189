#include "intake/employees.h"

#include "base/literals.h"
#include "base/text.h"

namespace intake {

using namespace base;

namespace {

QString plain_number(const QString& written) {
    const QString even = written.normalized(QString::NormalizationForm_KC).trimmed();
    qsizetype zeros = 0;
    while (zeros + 1 < even.size() && even[zeros] == u'0')
        ++zeros;
    return even.sliced(zeros);
}

} // namespace

Employees::Employees(store::Database& rovdata) {
    auto query = rovdata.prepare("select システム番号, 社員番号, 社員名 from syain order by システム番号");
    while (query.step()) {
        const store::Row row = query.row();
        const Employee employee{EmployeeKey(row.number(0)), Trim(row.text(1)), Trim(row.text(2))};
        if (employee.number.isEmpty())
            continue;
        m_by_number[plain_number(employee.number)] << static_cast<int>(m_list.size());
        m_list << employee;
    }
}

Employees::Found Employees::find(const QString& written) const {
    if (written.isEmpty())
        return {-1, u"社員番号がありません"_s};
    const QList<int> found = m_by_number.value(plain_number(written));
    if (found.isEmpty())
        return {-1, u"社員番号 %1 は登録されていません"_s.arg(written)};
    if (found.size() > 1)
        return {-1, u"社員番号 %1 の社員が %2人います"_s.arg(written).arg(found.size())};
    return {found.first(), {}};
}

} // namespace intake
