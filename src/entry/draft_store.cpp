#include "entry/draft_store.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "store/database.h"
#include "store/files.h"

#include <QFile>
#include <algorithm>
#include <optional>

namespace entry {

using namespace base;

namespace {

/// A draft is written between two keys: it waits for nobody for long.
constexpr std::chrono::milliseconds patience(500);

bool is_damage(store::Code code) {
    using enum store::Code;
    return code == Empty || code == NotADatabase || code == WrongKey || code == Damaged || code == OtherKind;
}

std::optional<store::Database> open_drafts(const base::Settings& settings) {
    const QString path = store::drafts_path(settings);
    if (!QFile::exists(path))
        return std::nullopt;
    return store::Database::open(path, store::Kind::Drafts, patience);
}

store::Database open_or_make(const base::Settings& settings) {
    if (auto database = open_drafts(settings))
        return std::move(*database);
    return store::Database::create(store::drafts_path(settings), store::Kind::Drafts);
}

TypedDay day_from(const store::Row& fields, int first) {
    return {fields.text(first), fields.text(first + 1), fields.text(first + 2), fields.text(first + 3),
        fields.text(first + 4), fields.text(first + 5), fields.text(first + 6)};
}

void bind_day(store::Statement& insert, int first, const TypedDay& day) {
    const QString* const texts[] = {&day.clock_in, &day.clock_out, &day.break_time, &day.remark, &day.kind_number,
        &day.kind_name, &day.holiday_work};
    for (const QString* text : texts)
        insert.bind_at(first++, *text);
}

void add_days(store::Database& database, const Draft& draft) {
    auto insert = database.prepare("insert into sitagaki values (?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?,?)");
    for (const DraftDay& day : draft.days) {
        insert.bind(draft.employee, date_number(day.date));
        bind_day(insert, 3, day.before);
        bind_day(insert, 10, day.typed);
        insert.bind_at(17, int(day.break_from == BreakFrom::Cell));
        insert.bind_at(18, int(day.pending));
        insert.bind_at(19, int(day.posted));
        insert.run();
    }
}

constexpr QStringView posted_tag = u"登録 ";
constexpr QStringView beneath_tag = u"登録前 ";

void add_counts(store::Database& database, const Draft& draft, int month_key) {
    auto insert = database.prepare("insert into sitagaki_nissu values (?,?,?,?)");
    for (const auto& [tag, days] : draft.counts.asKeyValueRange())
        insert.bind(draft.employee, month_key, tag, days).run();
    for (const auto& [tag, days] : draft.posted_counts.asKeyValueRange())
        insert.bind(draft.employee, month_key, posted_tag.toString() + tag, days).run();
    for (const auto& [tag, days] : draft.counts_beneath.asKeyValueRange())
        insert.bind(draft.employee, month_key, beneath_tag.toString() + tag, days).run();
}

/// Neither a posted one nor something of a day.
bool is_typed_count(const QString& tag) {
    return !tag.startsWith(posted_tag) && !tag.startsWith(beneath_tag) && tag.indexOf(u' ') != 8;
}

/// All figures that lay beneath a day, in one text.
constexpr QStringView figures_tag = u"前";
constexpr QChar between_figures = u'\n';
constexpr QChar behind_tag = u'\t';

QString one_text(const Hours& figures) {
    QStringList texts;
    for (const auto& [tag, time] : figures.asKeyValueRange())
        texts << tag + behind_tag + time;
    return texts.join(between_figures);
}

Hours figures_from(const QString& text) {
    Hours figures;
    for (const QString& figure : text.split(between_figures, Qt::SkipEmptyParts))
        figures.insert(figure.section(behind_tag, 0, 0), figure.section(behind_tag, 1));
    return figures;
}

/// The versions of a day that lie beneath it, each in one text: the fields of the day, and behind them its figures.
constexpr QStringView versions_tag = u"下";
constexpr QChar between_fields(0x1f); ///< a unit separator

QString version_tag(qsizetype i) {
    return versions_tag.toString() + QString::number(i).rightJustified(3, u'0');
}

QString one_text(const DayVersion& version) {
    const TypedDay& day = version.typed;
    return QStringList{day.clock_in, day.clock_out, day.break_time, day.remark, day.kind_number, day.kind_name,
        day.holiday_work, one_text(version.figures)}
        .join(between_fields);
}

DayVersion version_from(const QString& text) {
    const QStringList fields = text.split(between_fields);
    if (fields.size() < 8)
        return {};
    return {{fields[0], fields[1], fields[2], fields[3], fields[4], fields[5], fields[6]}, figures_from(fields[7])};
}

/// A day before it was typed anew: beneath it, as it was typed, and the marks.
constexpr QStringView undecided_tag = u"未決";
constexpr QChar between_versions(0x1e); ///< a record separator

QString one_text(const DraftDay& day) {
    return QStringList{one_text(DayVersion{day.before, day.figures}), one_text(DayVersion{day.typed, day.hours}),
        digits(int(day.break_from == BreakFrom::Cell)), digits(int(day.pending))}
        .join(between_versions);
}

DraftDay undecided_from(QDate date, const QString& text) {
    const QStringList parts = text.split(between_versions);
    const DayVersion before = version_from(parts.value(0)), typed = version_from(parts.value(1));
    return {date, before.typed, typed.typed, BreakFrom(Val(parts.value(2))), Val(parts.value(3)) != 0, false,
        typed.figures, before.figures};
}

/// What else is known of days stands beside the counts, under their day and tag.
void add_what_is_known(store::Database& database, const Draft& draft, int month_key) {
    auto insert = database.prepare("insert into sitagaki_nissu values (?,?,?,?)");
    const auto add = [&](QDate day, const QString& tag, const QString& text) {
        insert.bind(draft.employee, month_key, u"%1 %2"_s.arg(date_number(day)).arg(tag), text).run();
    };
    for (const DraftDay& day : draft.days) {
        for (const auto& [tag, time] : day.hours.asKeyValueRange())
            add(day.date, tag, time);
        if (!day.figures.isEmpty())
            add(day.date, figures_tag.toString(), one_text(day.figures));
        for (qsizetype i = 0; i < day.beneath.size(); ++i)
            add(day.date, version_tag(i), one_text(day.beneath[i]));
    }
    for (const DraftDay& day : draft.undecided)
        add(day.date, undecided_tag.toString(), one_text(day));
}

/// A count, or what is known of a day of the draft.
void take_in(Draft& draft, const QString& tag, const QString& text) {
    for (DraftDay& day : draft.days)
        if (const QString own = digits(date_number(day.date)) + u' '; tag.startsWith(own)) {
            if (const QString figure = tag.sliced(own.size()); figure == figures_tag)
                day.figures = figures_from(text);
            else if (figure.startsWith(versions_tag))
                day.beneath << version_from(text);
            else if (figure == undecided_tag)
                draft.undecided << undecided_from(day.date, text);
            else
                day.hours.insert(figure, text);
            return;
        }
    if (tag.startsWith(posted_tag))
        draft.posted_counts.insert(tag.sliced(posted_tag.size()), text);
    else if (tag.startsWith(beneath_tag))
        draft.counts_beneath.insert(tag.sliced(beneath_tag.size()), text);
    else
        draft.counts.insert(tag, text);
}

void take_away(store::Database& database, EmployeeKey employee, const CompanyMonth& month) {
    database.prepare("delete from sitagaki where 社員システム番号 = ? and 年月日 between ? and ?")
        .bind(employee, date_number(month.first()), date_number(month.last()))
        .run();
    database.prepare("delete from sitagaki_nissu where 社員システム番号 = ? and 年月 = ?")
        .bind(employee, month.month_key())
        .run();
}

/// A file that isn't there is whole.
bool is_whole(const base::Settings& settings) {
    try {
        auto database = open_drafts(settings);
        if (!database)
            return true;
        auto check = database->prepare("pragma quick_check(1)");
        return check.step() && check.row().text(0) == u"ok";
    } catch (const store::Error& error) {
        if (!is_damage(error.code()))
            throw;
        return false;
    }
}

} // namespace

QString put_away_damaged_drafts(const base::Settings& settings) {
    if (is_whole(settings))
        return {};
    const QString path = store::drafts_path(settings);
    const QString kept = store::kept_name(path, QDateTime::currentDateTime());
    if (!QFile::rename(path, kept))
        throw store::Error(store::Code::ReadOnly, path, {}, {});
    store::put_away_journal(path);
    return kept;
}

Draft read_draft(const base::Settings& settings, EmployeeKey employee, const CompanyMonth& month) {
    Draft draft{employee, {}, {}};
    auto database = open_drafts(settings);
    if (!database)
        return draft;
    auto days = database->prepare("select * from sitagaki where 社員システム番号 = ? and 年月日 between ? and ?"
                                  " order by 年月日");
    days.bind(employee, date_number(month.first()), date_number(month.last()));
    while (days.step()) {
        const store::Row fields = days.row();
        draft.days << DraftDay{date_of_number(fields.number(1)), day_from(fields, 2), day_from(fields, 9),
            BreakFrom(fields.integer(16)), fields.number(17) != 0, fields.number(18) != 0};
    }
    auto counts = database->prepare("select 種類, 日数 from sitagaki_nissu where 社員システム番号 = ? and 年月 = ?"
                                    " order by 種類");
    counts.bind(employee, month.month_key());
    while (counts.step())
        take_in(draft, counts.row().text(0), counts.row().text(1));
    return draft;
}

void keep_draft(const base::Settings& settings, const Draft& draft, const CompanyMonth& month) {
    if (draft.isEmpty() && !QFile::exists(store::drafts_path(settings)))
        return;
    auto database = open_or_make(settings);
    store::Transaction transaction(database);
    take_away(database, draft.employee, month);
    add_days(database, draft);
    add_counts(database, draft, month.month_key());
    add_what_is_known(database, draft, month.month_key());
    transaction.commit();
}

DraftsWaiting drafts_waiting(const base::Settings& settings) {
    DraftsWaiting waiting;
    auto database = open_drafts(settings);
    if (!database)
        return waiting;
    auto days = database->prepare("select 社員システム番号, 年月日, 登録済 from sitagaki");
    while (days.step()) {
        const QDate date = date_of_number(days.row().number(1));
        const int month = CompanyMonth::of(date, settings.month_start_day).month_key();
        waiting.months_of[days.row().number(0)][month] |= days.row().number(2) == 0;
    }
    auto counts = database->prepare("select 社員システム番号, 年月, 種類 from sitagaki_nissu");
    while (counts.step())
        waiting.months_of[counts.row().number(0)][counts.row().integer(1)] |= is_typed_count(counts.row().text(2));
    for (const QMap<int, bool>& months : std::as_const(waiting.months_of)) {
        waiting.months += int(months.size());
        waiting.unsaved += int(std::ranges::count(months, true));
    }
    return waiting;
}

QSet<qint64> drafts_waiting(const base::Settings& settings, const CompanyMonth& month) {
    QSet<qint64> employees;
    auto database = open_drafts(settings);
    if (!database)
        return employees;
    auto rows = database->prepare("select 社員システム番号 from sitagaki where 年月日 between ? and ?"
                                  " union select 社員システム番号 from sitagaki_nissu where 年月 = ?");
    rows.bind(date_number(month.first()), date_number(month.last()), month.month_key());
    while (rows.step())
        employees.insert(rows.row().number(0));
    return employees;
}

QString waiting_words(const base::Settings& settings) {
    try {
        const int months = drafts_waiting(settings).unsaved;
        return months == 0 ? QString() : u"未登録の月が %1件あります"_s.arg(months);
    } catch (const store::Error&) {
        return {};
    }
}

bool is_checked(const base::Settings& settings, EmployeeKey employee, const CompanyMonth& month) {
    auto database = open_drafts(settings);
    return database && database->prepare("select 1 from kakuninzumi where 社員システム番号 = ? and 年月 = ?")
                           .bind(employee, month.month_key())
                           .step();
}

void set_checked(const base::Settings& settings, EmployeeKey employee, const CompanyMonth& month) {
    if (is_checked(settings, employee, month))
        return;
    auto database = open_or_make(settings);
    store::Transaction transaction(database);
    database.prepare("insert into kakuninzumi values (?,?)").bind(employee, month.month_key()).run();
    transaction.commit();
}

} // namespace entry
