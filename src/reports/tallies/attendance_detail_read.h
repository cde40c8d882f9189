#pragma once

// What report 4 shows of one employee's month. Masters are read once a tally, the employee's rows by key.

#include "common/saved_month.h"
#include "reports/tallies/report.h"
#include "reports/tallies/selection.h"
#include "store/database.h"

#include <QHash>

namespace reports {

struct DetailEmployee {
    base::EmployeeKey key;
    QString number;
    QString name;
};

enum class Found { Nothing, Data };

class DetailReader {
public:
    /// Opens the company's data for as long as this lives. Throws store::Error, as every read does.
    DetailReader(const frame::Session& session, const base::CompanyMonth& month);

    EmployeeRange everyone() { return all_employees(m_rovdata); }

    /// The employees of the range by system number, row 0 apart; of several rows under one number the first.
    QList<DetailEmployee> employees(const EmployeeRange& range);

    /// Reads into the freshly laid out sheets. Data: a day, a leave or hours of a category are stored for the month.
    /// The reads see one state of the file and hold no lock afterwards.
    Found read(Report& report, const DetailEmployee& employee);

private:
    struct Hours {
        int row;
        qint64 category;
        QString text;
    };

    Found read_days(base::Sheet& hyou, base::EmployeeKey employee);
    void show_kinds(base::Sheet& hyou_day) const;
    Found read_hours(Report& report, const DetailEmployee& employee);
    QList<Hours> stored_hours(base::EmployeeKey employee);
    int add_category(Report& report, qint64 category) const;
    Found read_leave(base::Sheet& hyou, base::EmployeeKey employee);
    void read_counts(base::Sheet& hyou_day, base::EmployeeKey employee);

    store::Database m_rovdata;
    common::SavedMonth m_saved;
    QHash<qint64, QString> m_categories;
    QList<common::CountedKind> m_kinds;
};

/// Makes a column of the strip look like the others.
void format_strip_column(base::Sheet& hyou_day, int col);

} // namespace reports
