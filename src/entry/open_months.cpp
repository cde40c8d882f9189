#include "entry/open_months.h"

#include "base/literals.h"
#include "store/files.h"

#include <utility>

namespace entry {

using namespace base;

OpenMonths::OpenMonths(const base::Settings& settings, QString pc)
    : m_slots(store::open_months_path(settings)), m_on_server(store::server_word(store::rovdata_path(settings))),
      m_pc(std::move(pc)) {}

void OpenMonths::say(const QString& line) {
    if (m_on_server)
        m_on_server->say(line);
    else
        m_slots.say(line);
}

void OpenMonths::open(EmployeeKey employee, const CompanyMonth& month) {
    m_month = u"%1 %2 "_s.arg(employee.value()).arg(month.month_key());
    say(m_month + m_pc);
}

void OpenMonths::close() {
    m_month.clear();
    say({});
}

QString OpenMonths::words() {
    QStringList pcs;
    for (const QString& line : m_on_server ? m_on_server->said_by_others() : m_slots.said_by_others())
        if (!m_month.isEmpty() && line.startsWith(m_month))
            pcs << line.sliced(m_month.size());
    pcs.sort();
    pcs.removeDuplicates();
    return pcs.isEmpty() ? QString() : u"この月は %1 でも開かれています"_s.arg(pcs.join(u"、"_s));
}

} // namespace entry
