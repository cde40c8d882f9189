#include "limits/jyougen_kimari.h"

#include "base/literals.h"

namespace limits {

using namespace base;

void jyougen_kimari::count(qint64 category, Counts as) {
    if (as == Counts::Not)
        rules.categories.remove(category);
    else
        rules.categories.insert(category, as);
}

void jyougen_kimari::count_leave(qint64 kind, int half_days) {
    if (half_days == 0)
        rules.leave.remove(kind);
    else
        rules.leave.insert(kind, half_days);
}

void jyougen_kimari::take_usual_figures() {
    rules.figures = Rules().figures;
}

void jyougen_kimari::register_Click() {
    keep_rules(m_session.tables, rules, m_kept);
}

bool jyougen_kimari::may_leave() const {
    return rules == m_kept.rules || m_session.host.ask(u"変えた決まりを登録せずに閉じますか？"_s, caption.toString(),
                                        platform::Buttons::YesNo) == platform::Answer::Yes;
}

} // namespace limits
