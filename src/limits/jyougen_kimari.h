#pragma once

// "上限の決まり": the form of the company's rules: the figures, the special clause, and what each work category and day
// kind counts as.

#include "frame/session.h"
#include "limits/rules_store.h"

namespace limits {

class jyougen_kimari {
public:
    static constexpr QStringView caption = u"上限の決まり";

    /// Begins with the rules as they are kept; the session outlives the form.
    jyougen_kimari(frame::Session& session, KeptRules kept, Countable masters)
        : rules(kept.rules), countable(std::move(masters)), m_session(session), m_kept(std::move(kept)) {}

    Rules rules;
    Countable countable;

    Counts counts_as(qint64 category) const { return rules.categories.value(category, Counts::Not); }
    void count(qint64 category, Counts as);
    int half_days(qint64 kind) const { return rules.leave.value(kind); }
    void count_leave(qint64 kind, int half_days); ///< 0 to 2

    /// The figures as the law has them; what counts stays.
    void take_usual_figures();

    /// Keeps the rules, for all PCs.
    void register_Click();
    /// Whether the changes may be given up: asks where there are any.
    bool may_leave() const;

private:
    frame::Session& m_session;
    KeptRules m_kept;
};

} // namespace limits
