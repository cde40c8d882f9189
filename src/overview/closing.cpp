#include "overview/closing.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "common/count_tag.h"
#include "entry/waiting_days.h"
#include "store/files.h"

#include <algorithm>

namespace overview {

using namespace base;

namespace {

using Kept = QHash<EmployeeKey, common::KeptSums>;

QString who(const EmployeeMonth& employee) {
    return employee.number + u"　"_s + employee.name;
}

class Against {
public:
    explicit Against(const CompanyMonth& month) : m_month(month) {}

    void look_at(const PictureRow& row) {
        if (!row.look || !row.look->is_off())
            return;
        for (int day = 1; day <= m_month.length(); ++day)
            add_day(row, day);
        add_findings(row, total_row);
        if (row.look->draft && row.look->draft_rows.isEmpty())
            add(row, total_row, u"手で入れた日数が未登録です"_s);
        if (!row.look->typed)
            add(row, total_row, u"何も入力されていません"_s);
    }

    QList<Told> told() && { return std::move(m_told); }

private:
    void add(const PictureRow& row, int day, const QString& what) {
        m_told << Told{row.employee->key, day, who(*row.employee), what};
    }

    void add_day(const PictureRow& row, int day) {
        add_findings(row, day);
        if (row.look->draft_rows.contains(day))
            add(row, day,
                row.look->clash_rows.contains(day) ? u"未登録で、ほかのＰＣでも変更されています"_s : u"未登録です"_s);
    }

    void add_findings(const PictureRow& row, int day) {
        for (const entry::Finding& finding : row.look->findings)
            if (finding.row == day)
                add(row, day, finding.text);
    }

    const CompanyMonth& m_month;
    QList<Told> m_told;
};

Closed refuse(frame::Session& session, const QString& why) {
    session.host.tell(why, u"締め"_s);
    return Closed::No;
}

const QString rows_wait = u"登録した日が、まだ反映されていません。\nしばらくしてから、もう一度締めてください。"_s;

/// Whether saved days of one of them aren't in the tables. Nothing can be posted while this PC has the turn.
bool any_waits(frame::Session& session, const QSet<qint64>& employees) {
    return !entry::those_waiting(session.settings, employees).isEmpty();
}

Kept sums_of_all(frame::Session& session, const CompanyMonth& month, const QList<EmployeeKey>& employees) {
    Kept sums;
    auto rovdata = store::Database::open(store::rovdata_path(session.settings), store::Kind::Rovdata);
    const store::Transaction view(rovdata, store::Transaction::Lock::Read);
    MonthLook look(session.settings, session.tables, rovdata, month);
    for (const EmployeeKey employee : employees)
        sums.insert(employee, sums_of(look.saved(employee)));
    return sums;
}

/// Why the month wasn't closed, to be told when the turn is given back; empty if it was.
QString close_in_turn(frame::Session& session, const CompanyMonth& month, const QList<EmployeeKey>& employees,
    const QSet<qint64>& numbers) {
    if (any_waits(session, numbers))
        return rows_wait;
    const Kept sums = sums_of_all(session, month, employees);
    const int key = month.month_key();
    if (!common::close_month(session.settings, key, common::noted_now(session.host.now()), sums))
        return u"この月は、ほかのＰＣで締められています。"_s;
    return {};
}

QString figure(const QString& what, qint64 value) {
    if (what.startsWith(sum::days))
        return digits(value) + u"日"_s;
    return u"%1:%2"_s.arg(value / 60).arg(std::abs(value % 60), 2, 10, QChar(u'0'));
}

QStringList all_names(const common::KeptSums& then, const common::KeptSums& now) {
    QStringList names = then.keys() + now.keys();
    std::ranges::sort(names);
    names.removeDuplicates();
    return names;
}

QStringList differences(
    const common::KeptSums& then, const common::KeptSums& now, const QHash<QString, QString>& names) {
    QStringList told;
    for (const QString& what : all_names(then, now)) {
        const qint64 more = now.value(what) - then.value(what);
        const bool counted = what.startsWith(sum::counted);
        const QString shown = counted ? what.mid(sum::counted.size()) : what;
        if (more == 0 || (counted && then.value(shown) != now.value(shown)))
            continue; // what is shown differs, and says more
        told << u"%1%2 %3 → %4"_s.arg(counted ? u"今の勤務タイプで計算し直すと "_s : QString(),
            names.value(shown, shown), figure(shown, then.value(shown)), figure(shown, then.value(shown) + more));
    }
    return told;
}

} // namespace

QList<Told> against_closing(std::span<const PictureRow> rows, const CompanyMonth& month) {
    Against against(month);
    for (const PictureRow& row : rows)
        against.look_at(row);
    return std::move(against).told();
}

Closed close(frame::Session& session, const CompanyMonth& month, const QList<EmployeeKey>& employees) {
    QSet<qint64> numbers;
    for (const EmployeeKey employee : employees)
        numbers << employee.value();
    if (!entry::wait_for_days(session, numbers).isEmpty())
        return refuse(session, rows_wait);
    QString refusal;
    {
        const frame::Turn turn(session.link);
        if (!turn.granted())
            return Closed::No;
        refusal = close_in_turn(session, month, employees, numbers);
    }
    return refusal.isEmpty() ? Closed::Yes : refuse(session, refusal);
}

bool reopen(frame::Session& session, const CompanyMonth& month) {
    const int key = month.month_key();
    const auto since = common::closed_since(session.settings, key);
    if (!since)
        return false;
    const auto answer = session.host.ask(common::closed_words(key, *since) +
                                             u"\n\n締めを解除すると、また入力と登録ができます。\n"
                                             u"解除した日時とＰＣは記録されます。\n\n締めを解除しますか？"_s,
        u"締めの解除"_s, platform::Buttons::YesNo);
    return answer == platform::Answer::Yes &&
           common::reopen_month(session.settings, key, common::noted_now(session.host.now()));
}

QHash<QString, QString> sum_names(store::Database& rovdata) {
    QHash<QString, QString> names{{sum::breaks, u"休憩時間"_s}, {sum::work, u"勤務時間"_s},
        {sum::days + u"-1"_s, u"出勤日数"_s}, {sum::days + u"-2"_s, u"休暇日数"_s}};
    for (const CategoryName& category : category_names(rovdata)) {
        names.insert(sum::category + digits(category.number), category.name);
        names.insert(sum::days + digits(category.number), category.name + u"の日数"_s);
    }
    for (const common::CountedKind& kind : common::counted_kinds(rovdata))
        names.insert(sum::days + kind.tag, kind.name + u"の日数"_s);
    return names;
}

QList<Told> changed_since_closing(
    std::span<const PictureRow> rows, const Kept& kept, const QHash<QString, QString>& names) {
    QList<Told> told;
    for (const PictureRow& row : rows)
        if (row.look)
            for (const QString& what : differences(kept.value(row.employee->key), row.look->sums, names))
                told << Told{row.employee->key, total_row, who(*row.employee), what};
    return told;
}

} // namespace overview
