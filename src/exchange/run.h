#pragma once

// One run of the exchange manager: all exchange files in their order, again and again until nothing is left.
//
// Kept files (`jyusin/nokori/*.mdb`) come first, the oldest name first: they hold rows that were still unapplied when a
// PC remade its exchange files, and must not be applied over newer ones. A kept file is removed when its rows are
// applied; one that can't be read, or that holds unreadable rows, gets ".kowareta" behind its name and is left alone
// from then on. Then come the files 01 to 20. A file that another PC is writing for longer than the store's patience is
// left for the next run. Whatever is wrong with a file, the others are applied; if the tables themselves can't be
// written, all rows stay.

#include "base/settings.h"
#include "exchange/apply.h"

#include <QSet>
#include <QStringList>
#include <chrono>

namespace exchange {

class ManagerRun {
public:
    /// Settings and watch must outlive the run.
    ManagerRun(const base::Settings& settings, const Watch& watch,
        std::chrono::milliseconds patience = store::default_patience);

    /// Applies until a pass over all files finds no row. False if something was wrong that a person should know; the
    /// messages have been told then.
    bool apply_all();

    /// Whether some file still holds rows that a further run could take. Files that gave trouble don't count.
    bool rows_wait();

private:
    enum class Pass {
        Nothing, ///< no rows found
        Again,   ///< rows were taken, or kept files have come: start with the kept files again
        Stopped, ///< rows can't be taken now
    };

    Pass pass();
    Pass take_kept(const QString& path);
    Pass take(const QString& path);
    Pass apply(store::Database& exchange, const std::function<bool()>& may_take);
    Pass failed(const QString& path, const store::Error& error);
    void finish_kept(const QString& path, bool holds_errors);
    void set_aside(const QString& path);
    QStringList kept_files() const;
    QStringList exchange_files() const;
    QStringList not_skipped(QStringList paths) const;
    store::Database open(const QString& path) const;

    const base::Settings& m_settings;
    const Watch& m_watch;
    std::chrono::milliseconds m_patience;
    QSet<QString> m_skipped; ///< files left for a later run
    bool m_good = true;
};

/// How long the program waits at most.
struct Patience {
    std::chrono::milliseconds manager = std::chrono::seconds(10); ///< for another manager, which then sees to the rows
    std::chrono::milliseconds file = store::default_patience;     ///< for a file that another writes
};

/// The life of the program: holds the lock that stands for its window "jyusinkanri" and applies. Gives the exit
/// status: 1 if something was wrong, which has been told to the watch then; 0 also where another manager keeps the lock
/// and sees to the rows. Throws nothing of the store's.
int run_manager(const base::Settings& settings, const Watch& watch, const Patience& patience = {});

} // namespace exchange
