#pragma once

// The programs around the exchange files, each as a process of its own: saves, starts of the program, and managers.

#include "exchange_tree.h"
#include "support/killed.h"

namespace exchange {

using support::start_child;

/// How a task ended.
enum Ended { ended_well, ended_with_error, ended_busy, ended_read_only };

/// Posts a leave of employee 7 as a save does: the kind tells the save it comes from.
Ended post_leave(const base::Settings& settings, int date, int kind);

/// The same in a transaction of the caller.
void insert_leave(store::Database& exchange, int date, int kind);

/// What the writer of that number saves with its nth save: a month of its own, the days over and over.
constexpr int date_of_save(int writer, int save) {
    return 20040001 + writer * 100 + save % 28;
}

/// One act, of which none waits long for another program:
/// - "post ROOT DATE KIND" posts one leave,
/// - "start ROOT" remakes the exchange files,
/// - "manager ROOT" applies all,
/// - "reader ROOT" looks for waiting rows;
/// or many, each repeated where another program was in the way:
/// - "writer ROOT WRITER COUNT" posts so many leaves, the number of the save being the kind,
/// - "start", "manager" or "reader ROOT again" acts until the folder ROOT/done is there and says how often it did.
int child_main(const QStringList& task);

/// Waits until it has stopped, which is true, or ended.
bool stops(const QProcess& process);

/// Lets a stopped process go on; how it ended, -1 for a kill.
int ends(QProcess& process);

} // namespace exchange
