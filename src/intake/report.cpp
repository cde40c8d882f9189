#include "intake/report.h"

#include "base/literals.h"

#include <array>

namespace intake {

using namespace base;

namespace {

constexpr std::array<QStringView, 3> words_of_outcomes{u"登録", u"下書き", u"見送り"};

} // namespace

QStringView outcome_words(Became became) {
    return words_of_outcomes[size_t(became)];
}

QStringList report(const Preview& preview, const Acceptance& taken) {
    QStringList lines;
    for (const PreviewLine& line : preview.lines) {
        const auto outcome = taken.days.find(line.day);
        const bool come_to = outcome != taken.days.end();
        const QString became = come_to ? outcome_words(outcome->became).toString() : QString();
        const QString reason = come_to && !outcome->reason.isEmpty() ? outcome->reason : line.reason;
        lines << QStringList{QString::number(line.number), line.employee, line.date, line.times,
            state_words(line.state).toString(), became, reason}
                     .join(u'\t');
    }
    return lines;
}

QString summary(const Preview& preview) {
    QStringList parts;
    for (int state = 0; state < state_count; ++state)
        parts << u"%1 %2行"_s.arg(state_words(State(state))).arg(preview.count(State(state)));
    return parts.join(u"、"_s) + u"。"_s;
}

} // namespace intake
