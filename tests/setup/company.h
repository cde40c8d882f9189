#pragma once

// The company of the masters' tests on a PC with two printers, and its settings.

#include "masters/company.h"

namespace setup {

using namespace base;

class Company : public masters::Company {
protected:
    Company() { host.printer_names = {u"Office"_s, u"PDF"_s}; }

    QStringList rows(std::string_view sql) { return masters::Company::rows(rovdata(), sql); }

    QString shared(const QString& key) { return tables.設定読込(u"kihon"_s, key); }
    QString of_this_pc(const QString& key) { return tables.設定読込(u"losystem"_s, key); }
    void set_shared(const QString& key, const QString& value) { tables.設定書込(u"kihon"_s, key, value); }
    void set_of_this_pc(const QString& key, const QString& value) { tables.設定書込(u"losystem"_s, key, value); }
};

} // namespace setup
