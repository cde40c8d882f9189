#pragma once

// Deletions: what was deleted on a screen since it was opened. A line tells the last one and what still hangs on it,
// and it can be taken back; then the one before it is the last.

#include "masters/taken_rows.h"

#include <functional>

namespace masters {

struct Deletion {
    QString what;          ///< "社員 1001"
    QString hanging;       ///< what stays in the tables: "勤怠 94日が残っています"; empty if nothing does
    QList<TakenRows> rows; ///< of each file
    /// Why it can't go back although its number is free; empty text if it can. May be unset.
    std::function<QString()> obstacle = {};
};

class Deletions {
public:
    /// A deletion that found no row is none.
    void add(Deletion deletion);

    bool can_undo() const { return !m_all.isEmpty(); }

    /// "社員 1001 を削除しました（勤怠 94日が残っています）", or what came of the last undo and behind it the deletion
    /// that is now the last. Empty if nothing was deleted.
    QString line() const;

    /// Takes the last deletion back, if there is one. False, and the line says why, if it can't go back as things are;
    /// it stays the last one then.
    bool undo();

private:
    QList<Deletion> m_all;
    QString m_said;
};

/// A name as it stands in a line: cut where it is long, and with words of its own where it is empty.
QString short_name(const QString& name);

/// `words` with what the query counts for this number in place of "%1"; empty if that is 0.
QString hanging_on(qint64 number, store::Database& rovdata, std::string_view count, const QString& words);

} // namespace masters
