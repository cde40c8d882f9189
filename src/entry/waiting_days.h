#pragma once

// Saved days that aren't in the tables yet. A save only posts; until the exchange manager has applied it, the tables
// hold the state before. An employee who is opened in between would show that state, and a person would type over days
// that stand otherwise by now. So opening an employee waits for that employee's posted rows first; those of others
// delay nobody.
//
// The rows alone tell: the manager lets them leave their file only after the tables hold them (see exchange/apply.h),
// so that a manager still at work needs no wait of its own. They move one way, from exchange file 01 to a kept file and
// into the tables, and are looked for in this order: none is missed between two looks.

#include "frame/session.h"
#include "store/error.h"

#include <QSet>
#include <functional>

namespace entry {

/// Whether an exchange file that can't be read for this reason holds nothing that the manager would take: it isn't
/// there, or is broken.
bool holds_no_rows(store::Code code);

/// Whether posted rows of the employee may still wait: those of a file that another program holds at the moment may.
/// Throws store::Error where a file isn't reached, as reading the month would.
/// Costs the opening of one file and the reading of the rows that wait in it.
bool days_wait(const base::Settings& settings, base::EmployeeKey employee);

/// Of these employees (`システム番号`), those of whom posted rows may still wait; all of them while another program
/// holds a file. Throws as days_wait().
QSet<qint64> those_waiting(const base::Settings& settings, const QSet<qint64>& employees);

/// Waits until no row of these employees waits, as 登録待ち does, but without a question: those of whom rows wait still
/// when the time is over.
QSet<qint64> wait_for_days(frame::Session& session, const QSet<qint64>& employees);

enum class Opening { Free, Refused };

/// Waits until no row of the employee waits, with the interface running, for at most 15 seconds; then the person is
/// asked whether to open the employee all the same. On the main PC the manager is started if it isn't running.
/// `waiting` is called once, when the wait begins.
Opening 登録待ち(frame::Session& session, base::EmployeeKey employee, const std::function<void()>& waiting);

} // namespace entry
