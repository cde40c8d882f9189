#pragma once

// Which months are open on which PCs: a clerk sees quietly that somebody else has the same one before them. The word is
// kept in a file beside the data, or on the data server, and goes with the program that gave it. No rule goes by it:
// what two save is merged whether they knew of each other or not.

#include "base/company_month.h"
#include "base/settings.h"
#include "base/system_number.h"
#include "platform/slots.h"
#include "store/server_word.h"

#include <QSysInfo>

namespace entry {

class OpenMonths {
public:
    explicit OpenMonths(const base::Settings& settings, QString pc = QSysInfo::machineHostName());

    /// From now on this month is open on this PC, or none.
    void open(base::EmployeeKey employee, const base::CompanyMonth& month);
    void close();

    /// "この月は 経理2 でも開かれています"; empty if nobody else has it open.
    QString words();

private:
    void say(const QString& line);

    platform::Slots m_slots;
    std::unique_ptr<store::ServerWord> m_on_server; ///< there, what stands beside the data is this PC's alone
    QString m_pc;
    QString m_month; ///< employee and month as they are said; empty if none is open
};

} // namespace entry
