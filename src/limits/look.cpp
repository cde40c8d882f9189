#include "limits/look.h"

#include "limits/words.h"
#include "store/files.h"

#include <algorithm>

namespace limits {

Look look_at(const frame::Session& session, int month_key) {
    auto rovdata = store::Database::open(store::rovdata_path(session.settings), store::Kind::Rovdata);
    Look look;
    look.countable = countable(rovdata);
    look.kept = read_rules(session.tables, look.countable);
    const Rules& rules = look.kept.rules;
    const int start_day = session.settings.month_start_day;
    look.span = span_of(month_key, rules, start_day, session.host.now().date());
    for (Figures& figures : read_figures(rovdata, look.span, rules, start_day)) {
        Judgement judgement = judge(figures, rules, look.span);
        look.employees << Looked{std::move(figures), std::move(judgement)};
    }
    std::ranges::stable_sort(look.employees, stands_before, &Looked::judgement);
    return look;
}

QHash<base::EmployeeKey, QString> overview_words(const frame::Session& session, int month_key) {
    QHash<base::EmployeeKey, QString> words;
    for (const Looked& employee : look_at(session, month_key).employees)
        if (const QString word = overview_word(employee.judgement); !word.isEmpty())
            words.insert(employee.figures.key, word);
    return words;
}

} // namespace limits
