#include "entry/findings.h"

#include "base/literals.h"
#include "entry/cells.h"
#include "entry/day_figures.h"
#include "entry/tally.h"
#include "entry/unread_days.h"

#include <algorithm>

namespace entry {

using namespace base;

namespace {

constexpr QStringView captions[] = {
    u"計算していない日",
    u"出社・退社の片方だけの日",
    u"時間帯に入らない時間",
    u"在社より長い休憩",
    u"16時間を超える在社",
    u"合計・日数の不一致",
    u"登録後に呼び出せない日",
};

/// The kinds that aren't looked for, by their numbers, parted by commas.
const QString left_out_key = u"登録前確認なし"_s;

QString shown(minutes time) {
    return time_to_text(minutes_to_time(time));
}

/// A blank count and a count of 0 are the same.
QString shown_count(const QString& cell) {
    return cell.isEmpty() ? u"0"_s : cell;
}

class Search {
public:
    Search(const MonthSheet& sheet, const FindingKinds& left_out) : m_sheet(sheet), m_left_out(left_out) {}

    QList<Finding> whole() && {
        for (int r = row::first_day; r <= m_sheet.month.length(); ++r)
            look_at_day(r);
        look_at_sums();
        return std::move(m_found);
    }

private:
    void add(FindingKind kind, int r, const QString& text) {
        if (!m_left_out.contains(kind))
            m_found << Finding{kind, r, text};
    }

    void look_at_day(int r) {
        const bool waits = Val(m_sheet.mark(r)) == 2;
        m_any_waits |= waits;
        if (waits)
            add(FindingKind::NotCalculated, r, u"まだ計算していません"_s);
        const bool in = !m_sheet.hyou(r, col::clock_in).isEmpty();
        const bool out = !m_sheet.hyou(r, col::clock_out).isEmpty();
        if (in != out)
            add(FindingKind::OneClockTime, r, in ? u"退社時間がありません"_s : u"出社時間がありません"_s);
        else if (in)
            look_at_stay(r);
        if (is_not_read_back(m_sheet, r))
            add(FindingKind::NotReadBack, r, u"登録したあと、この画面では呼び出せません"_s);
    }

    void look_at_stay(int r) {
        const DayFigures day = day_figures(m_sheet, r, BreakFrom::Cell);
        const minutes stay = day.stay.length();
        const minutes pause = minutes_of(m_sheet.hyou(r, col::break_time));
        if (day.outside > minutes(0) && !m_sheet.category_list.isEmpty())
            add(FindingKind::OutsideBands, r, u"%1 がどの時間帯にも入っていません"_s.arg(shown(day.outside)));
        if (pause > stay)
            add(FindingKind::BreakTooLong, r,
                u"休憩 %1 が在社 %2 より長くなっています"_s.arg(shown(pause), shown(stay)));
        if (stay > longest_stay)
            add(FindingKind::LongStay, r, u"在社が %1 です"_s.arg(shown(stay)));
    }

    void look_at_sums() {
        if (m_any_waits || m_left_out.contains(FindingKind::Recount))
            return;
        MonthSheet recounted = m_sheet;
        tally_month(recounted);
        for (int column = col::break_time; column < m_sheet.hyou.Cols(); ++column)
            compare_totals(recounted, column);
        for (int column = 0; column < m_sheet.hyou_day.Cols(); ++column)
            compare_counts(recounted, column);
    }

    void compare_totals(const MonthSheet& recounted, int column) {
        const minutes stands = minutes_of(m_sheet.hyou(row::total, column));
        const minutes counted = minutes_of(recounted.hyou(row::total, column));
        if (column != col::remark && column != col::kind && stands != counted)
            add(FindingKind::Recount, row::total,
                u"%1の合計が %2、日の合計は %3 です"_s.arg(
                    m_sheet.hyou(row::heading, column), shown(stands), shown(counted)));
    }

    void compare_counts(const MonthSheet& recounted, int column) {
        const QString& stands = m_sheet.hyou_day(strip::count, column);
        const QString& counted = recounted.hyou_day(strip::count, column);
        if (count_of(stands) != count_of(counted))
            add(FindingKind::Recount, row::total,
                u"%1の日数が %2、数えると %3 です"_s.arg(
                    m_sheet.hyou_day(strip::name, column), shown_count(stands), shown_count(counted)));
    }

    const MonthSheet& m_sheet;
    const FindingKinds& m_left_out;
    QList<Finding> m_found;
    bool m_any_waits = false; ///< a day whose calculation will make all sums anew
};

} // namespace

QList<Finding> findings(const MonthSheet& sheet, const FindingKinds& left_out) {
    return Search(sheet, left_out).whole();
}

FindingKinds kinds_left_out(store::SettingTables& tables) {
    FindingKinds kinds;
    const QString numbers = tables.設定読込(store::losystem, left_out_key);
    for (const QStringView number : QStringView(numbers).split(u',', Qt::SkipEmptyParts))
        kinds.insert(FindingKind(number.toInt()));
    return kinds;
}

void leave_out(store::SettingTables& tables, const FindingKinds& kinds) {
    if (kinds == kinds_left_out(tables))
        return;
    QStringList numbers;
    for (int i = 0; i < int(finding_captions().size()); ++i)
        if (kinds.contains(FindingKind(i)))
            numbers << digits(i);
    tables.設定書込(store::losystem, left_out_key, numbers.join(u','));
}

bool calculation_helps(const QList<Finding>& found) {
    return std::ranges::any_of(found, [](const Finding& f) { return f.kind == FindingKind::NotCalculated; });
}

std::span<const QStringView> finding_captions() {
    return captions;
}

} // namespace entry
