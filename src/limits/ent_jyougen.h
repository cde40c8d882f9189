#pragma once

// ent_jyougen, "上限の確認": the form of the screen that shows how near the employees are to the limits of their hours,
// breaks and leave. It runs without a display; a page shows the state, passes the acts on and refreshes after each. It
// writes nothing but whom the rules don't look at.

#include "base/sheet.h"
#include "limits/look.h"

namespace limits {

class ent_jyougen {
public:
    static constexpr QStringView caption = u"上限の確認";

    /// The session outlives the form.
    explicit ent_jyougen(frame::Session& session) : m_session(session) {}

    Look look;        ///< of the month
    QList<int> shown; ///< places in look.employees
    bool only_off = false;
    QString ym;     ///< the month, as dates are shown
    QString msglab; ///< how many are over and near
    QString notice; ///< what the person should know of the rules; empty if nothing
    bool close_wanted = false;

    void Form_Load(); ///< the month of today
    void step_month(int months);
    void read_again();
    void set_only_off(bool on);

    /// What is to be told of an employee, by the place in `shown`; empty for a place that isn't there.
    QStringList lines(int place) const;

    /// Whether the rules look at the employee's hours and breaks, or at the leave.
    enum class Part { Hours, Leave };
    bool is_free(int place, Part part) const;
    /// Kept at once, for all PCs; the list is read anew.
    void set_free(int place, Part part, bool on);

    /// The place of an employee in `shown`; -1 if not there.
    int place_of(base::EmployeeKey employee) const;

    /// Writes what is shown into a CSV file that the person chooses.
    void export_csv();

    void botan_Click(int element); ///< 0 leaves the screen

private:
    const Looked* at(int place) const;
    void choose_shown();
    base::Sheet sheet() const;

    frame::Session& m_session;
    int m_month = 0; ///< yyyymm
};

} // namespace limits
