#pragma once

// The company's way from files to a PostgreSQL server and back. All shared databases are copied while they are held,
// every table is proved to be the same, and only then the places change hands: the one without which no program works
// goes first and comes last, so that nobody opens a company that lies half here and half there. What was moved stays as
// it was: files in a folder beside, schemas under names with the time.

#include "install/options.h"
#include "install/tree.h"
#include "store/database.h"

#include <QDateTime>

namespace install {

/// Moves the company of the tree, after ending or undoing what a move that was broken off left. std::runtime_error
/// while a program is open on it or saved rows wait, and for a company that isn't in this tree, or lies there already;
/// store::Error for what can't be held, reached or written. Before the first place changes hands all stays as it was;
/// from then on a further run ends what this one couldn't.
void move_company(const Move& move, const QDateTime& now, const Say& say,
    std::chrono::milliseconds patience = store::default_patience);

} // namespace install
