#pragma once

// All employees' standing against the limits as at the end of a month.

#include "frame/session.h"
#include "limits/judgement.h"
#include "limits/rules_store.h"

namespace limits {

struct Looked {
    Figures figures;
    Judgement judgement;
};

struct Look {
    KeptRules kept;
    Countable countable;
    Span span;
    QList<Looked> employees; ///< what is worst and nearest to its limit first, then by employee number
};

/// Reads and judges the month (yyyymm). Throws store::Error.
Look look_at(const frame::Session& session, int month_key);

/// What is over or near a limit, in a word or two, by employee; those of whom there is nothing to say are missing. What
/// an overview of the month says beside its employees.
QHash<base::EmployeeKey, QString> overview_words(const frame::Session& session, int month_key);

} // namespace limits
