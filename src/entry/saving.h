#pragma once

// Saving: the changed days of the sheet as rows of the exchange file, which the exchange manager takes from there into
// the tables. The turn is taken, the exchange file held against other writers, the month read again and merged with the
// sheet in hand (merge.h); the rows of what comes of it are posted in the same transaction, so that a save that fails
// posts nothing, and nobody else's day comes in between. The marks stay, and a second save posts the same days again.

#include "entry/merge.h"
#include "frame/session.h"
#include "store/files.h"

#include <QStringList>

namespace entry {

/// Whose month it is.
struct PostedEmployee {
    QString number; ///< `社員番号`
    QString name;   ///< `社員名`
    qint64 key = 0; ///< `システム番号`
};

/// Number and name from "number:name"; the name may hold ":" itself.
PostedEmployee posted_employee(const QString& syalab, const QString& syainsyscd);

struct ChangedDay {
    int row;
    int date_key;
};

/// The days whose mark is set, in order, and behind them the month's total; empty if no day is marked.
/// A marked row past the end of the period stands for no day and is left out.
QList<ChangedDay> changed_days(const MonthSheet& sheet);

/// The texts of an exchange row from field "2" on; field "1" is never written.
using ExchangeRow = QStringList;

/// All rows of a save, in the order in which they are posted: kinds "51", "52", "53", "54". Empty if nothing changed.
/// `stamp` is the time of the save, yyyymmddhhmmss.
QList<ExchangeRow> rows_to_post(const MonthSheet& sheet, const PostedEmployee& employee, const QString& stamp);

/// The exchange file that takes the saves.
using store::posting_file;

/// Appends the rows to exchange file 01 in one transaction. A file that is remade at this moment is opened once more.
void post_rows(const base::Settings& settings, const QList<ExchangeRow>& rows);

/// Starting the exchange manager is the main PC's work; an error in it is ignored.
inline bool is_main_pc(const base::Settings& settings) {
    return settings.use_class == 0;
}
bool manager_running(frame::Session& session);
void start_manager(frame::Session& session);

enum class Saved {
    Nothing,     ///< nothing was changed, or the save ended with a message
    Posted,      ///<
    NothingLeft, ///< nothing is to be posted after the merge
};

/// A month that was changed with nobody there to decide.
struct UnaskedMonth {
    MonthSheet sheet;
    MonthAsRead read;
    PostedEmployee employee;
    QList<int> left;           ///< rows that somebody else changed as well: they were left as they are stored
    QList<int> alike;          ///< rows that somebody else saved alike meanwhile
    base::Sheet figures{0, 0}; ///< the sheet's cells as they were read
};

/// Posts the months, each merged with what is stored by now, in one turn and starts the manager: all of them, or none
/// with a message if the turn isn't to be had, one of the months is closed or the manager is still at work.
Saved post_months(frame::Session& session, QList<UnaskedMonth>& months);

struct SavedMonth {
    Saved saved = Saved::Nothing;
    /// How the month stands now, nothing if it wasn't read again. With clashes nothing was posted: the person is to
    /// decide. Without, it is the sheet that was posted, or of which nothing is left to be.
    std::optional<MergedMonth> month;
};

/// The whole save: turn, manager's absence, merging, posting, turn given up, manager started. Without a changed day, or
/// without an employee, nothing happens. Ends with a message and posts nothing if the turn isn't to be had, the
/// month is closed or the manager is still at work.
SavedMonth 保存処理(frame::Session& session, const MonthInHand& hand, const PostedEmployee& employee);

} // namespace entry
