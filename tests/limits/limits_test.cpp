// The limits of hours, breaks and leave: figures against limits as values, and what is read, kept and shown over real
// files.

#include "base/numbers.h"
#include "limits/ent_jyougen.h"
#include "limits/jyougen_kimari.h"
#include "limits/words.h"
#include "support/company.h"
#include "support/stored.h"

using namespace limits;
using namespace base;

namespace {

minutes duration(const QString& text) {
    return std::chrono::hours(Val(text)) + minutes(Val(text.section(u':', 1)));
}

/// "50:00 30:00+8:00": this month and the one before it, overtime and work on holidays.
Figures worked(const QString& months) {
    Figures figures{.key = EmployeeKey(1), .number = u"1"_s, .name = u"社員"_s};
    const QStringList each = months.split(u' ', Qt::SkipEmptyParts);
    for (int back = 0; back < each.size(); ++back)
        figures.hours[size_t(back)] = {duration(each[back].section(u'+', 0, 0)), duration(each[back].section(u'+', 1))};
    return figures;
}

QString repeated(int months, const QString& each) {
    return (each + u' ').repeated(months);
}

Span november(int over = 7) {
    return {.month = 202611, .of_hours = 8, .of_leave = 8, .over = over, .leave_end = QDate(2027, 3, 31)};
}

Rules rules_with(bool special) {
    Rules rules;
    rules.special = special;
    return rules;
}

QString level_of(const Judgement& judgement, Measure measure) {
    const Judged* judged = judgement.of(measure);
    return judged == nullptr ? u"-"_s : u"%1 %2"_s.arg(figure_text(judged), level_word(judged->level)).trimmed();
}

/// A company of four with overtime (2), work on holidays (3) and a half day of leave (5); it is the 26th of November.
struct Company : support::Company {
    Company() {
        host.clock = QDateTime(QDate(2026, 11, 26), QTime(9, 0));
        exec(R"(insert into kinsyu values (1, '通常'), (2, '普通残業'), (3, '休日出勤'), (4, '深夜');
            insert into kyutype values (1, '公休', 1, 0), (2, '有休', 0, 0), (5, '半日有休', 0, 1);
            insert into syain (システム番号, 社員番号, 社員名)
                values (0, '', '全体'), (1, 30, '近い'), (2, 20, '超えた'), (3, 10, '何もない'), (4, 40, 'やめた');)");
    }
    void total(int employee, int month) const {
        rovdata().prepare("insert into rovmei values (?, ?, 0, 0, 0, 0, '')").bind(employee, month * 100 + 32).run();
    }
    void day(int employee, int key, int in, int out, int pause) const {
        rovdata().prepare("insert into rovmei values (?, ?, ?, ?, ?, 0, '')").bind(employee, key, in, out, pause).run();
    }
    void hours(int employee, int key, int category, int clock) const {
        rovdata().prepare("insert into kinjisyu values (?, ?, ?, ?)").bind(employee, key, category, clock).run();
    }
    void leave(int employee, int month, int kind, int family, int days) const {
        rovdata().prepare("insert into kinnisu values (?, ?, ?, ?, ?)").bind(employee, month, kind, family, days).run();
    }
    /// One is near, one over, one neither, and one has left.
    void fill() const {
        for (const int employee : {1, 2, 3})
            total(employee, 202611);
        total(4, 202609);
        for (const int employee : {1, 2, 3, 4})
            leave(employee, 202604, 2, 1, 5);
        hours(1, 202611'32, 2, 40'00);
        hours(2, 202611'32, 2, 45'01);
        hours(4, 202609'32, 2, 90'00);
    }
};

QStringList shown_names(const ent_jyougen& form) {
    QStringList names;
    for (const int i : form.shown)
        names << form.look.employees[i].figures.name;
    return names;
}

} // namespace

TEST(Limits, HoursAreOverAboveTheirLimitAndAHundredOnesAtIt) {
    struct Case {
        QString months;
        bool special;
        Measure measure;
        QString level;
    };
    const QList<Case> cases{
        {u"35:59"_s, false, Measure::Month, u"35:59 / 45:00"_s},
        {u"36:00"_s, false, Measure::Month, u"36:00 / 45:00 注意"_s},
        {u"45:00"_s, false, Measure::Month, u"45:00 / 45:00 注意"_s},
        {u"45:01"_s, false, Measure::Month, u"45:01 / 45:00 超過"_s},
        {u"45:01"_s, true, Measure::Month, u"45:01 / 45:00 注意"_s},
        {repeated(8, u"45:00"_s), false, Measure::Year, u"360:00 / 360:00 注意"_s},
        {repeated(7, u"45:00"_s) + u"45:01"_s, false, Measure::Year, u"360:01 / 360:00 超過"_s},
        {repeated(8, u"0"_s) + u"99:00"_s, false, Measure::Year, u"0:00 / 360:00"_s}, // the year before
        {repeated(8, u"90:01"_s), true, Measure::Year, u"720:08 / 720:00 超過"_s},
        {repeated(6, u"45:01"_s) + repeated(6, u"45:00"_s), true, Measure::MonthsAbove, u"6 / 6か月 注意"_s},
        {repeated(7, u"45:01"_s), true, Measure::MonthsAbove, u"7 / 6か月 超過"_s},
        {repeated(7, u"45:01"_s), false, Measure::MonthsAbove, u"-"_s},
        {u"45:00+54:59"_s, false, Measure::AllMonth, u"99:59 / 100:00 注意"_s},
        {u"45:00+55:00"_s, true, Measure::AllMonth, u"100:00 / 100:00 超過"_s},
        {u"0+99:00 0+61:00"_s, true, Measure::Average, u"80:00 / 80:00 注意"_s},
        {u"99:00 61:01"_s, true, Measure::Average, u"80:01 / 80:00 超過"_s}, // half a minute above
        {repeated(5, u"80:00"_s) + u"80:06"_s, true, Measure::Average, u"80:01 / 80:00 超過"_s},
        {repeated(6, u"80:00"_s) + u"99:00"_s, true, Measure::Average, u"80:00 / 80:00 注意"_s}, // seven months
        {u"80:00"_s, true, Measure::Average, u"40:00 / 80:00"_s},
    };
    for (const Case& of : cases)
        EXPECT_EQ(level_of(judge(worked(of.months), rules_with(of.special), november()), of.measure), of.level)
            << of.months.toStdString();
}

TEST(Limits, ABreakIsNeededAboveSixAndEightHoursOfWorkNotAtThem) {
    struct Case {
        const char* work;
        int pause;
        int needed;
    };
    for (const Case& of :
        {Case{"6:00", 0, 0}, {"6:01", 44, 45}, {"6:01", 45, 0}, {"8:00", 45, 0}, {"8:01", 59, 60}, {"8:01", 60, 0}}) {
        Figures figures = worked({});
        figures.days << WorkedDay{QDate(2026, 11, 2), duration(QString::fromLatin1(of.work)), minutes(of.pause)};
        const Judgement judgement = judge(figures, Rules(), november());
        EXPECT_EQ(judgement.breaks.isEmpty() ? 0 : judgement.breaks[0].needed.count(), of.needed) << of.work;
        EXPECT_EQ(judgement.level, of.needed == 0 ? Level::Fine : Level::Over) << of.work;
    }
}

TEST(Limits, WhatIsZeroIsNotLookedAt) {
    Rules off;
    off.figures.fill(0);
    off.figures[size_t(Figure::NearPercent)] = 80;
    off.special = true;
    Figures figures = worked(repeated(12, u"120:00+9:00"_s));
    figures.days << WorkedDay{QDate(2026, 11, 2), duration(u"9:00"_s), minutes(0)};
    const Judgement judgement = judge(figures, off, november(12));
    EXPECT_EQ(judgement.level, Level::Fine);
    EXPECT_EQ(judgement.judged.size(), 1); // the breaks, of which none is needed
    EXPECT_TRUE(judgement.breaks.isEmpty());
}

TEST(Limits, LeavePressesAsItsYearRunsOutAndIsABreachOnceItIsOver) {
    struct Case {
        int half_days;
        int over;
        QString level;
        QString nearest;
    };
    const QList<Case> cases{
        {9, 9, u"4.5 / 5日"_s, u"年休 あと 0.5日（残り 3か月）"_s},
        {9, 10, u"4.5 / 5日 注意"_s, u"年休 あと 0.5日（残り 2か月）"_s},
        {0, 11, u"0 / 5日 注意"_s, u"年休 あと 5日（残り 1か月）"_s},
        {9, 12, u"4.5 / 5日 超過"_s, u"年休 0.5日不足"_s},
        {10, 12, u"5 / 5日"_s, u"時間外（月） 0:00 / 45:00"_s},
    };
    for (const Case& of : cases) {
        Figures figures = worked({});
        figures.half_days = of.half_days;
        const Judgement judgement = judge(figures, Rules(), november(of.over));
        EXPECT_EQ(level_of(judgement, Measure::Leave), of.level);
        EXPECT_EQ(nearest_text(judgement, november(of.over)), of.nearest);
        EXPECT_EQ(judgement.of(Measure::Leave)->reached(), of.half_days * 100);
    }
}

TEST(Limits, AMonthLooksBackOverItsOwnYears) {
    Rules rules;
    rules.figures[size_t(Figure::LeaveYearFrom)] = 12;
    // Company months from the 21st: November ends on the 20th of December.
    const Span running = span_of(202611, rules, 21, QDate(2026, 12, 20));
    EXPECT_EQ(std::tuple(running.of_hours, running.of_leave, running.over), std::tuple(8, 12, 11));
    EXPECT_EQ(running.leave_end, QDate(2026, 12, 20));
    EXPECT_EQ(span_of(202611, rules, 21, QDate(2026, 12, 21)).over, 12);
    EXPECT_EQ(month_after(202601, -1), 202512);
    EXPECT_EQ(month_after(202612, 1), 202701);
}

TEST(Limits, FiguresComeFromTheMonthsSumsAndTheDaysOfTheMonth) {
    Company company;
    company.tree.settings.month_start_day = 21;
    company.total(1, 202610); // the month before is enough
    company.hours(1, 202611'32, 2, 104'30);
    company.hours(1, 202611'32, 3, 8'00);
    company.hours(1, 202611'32, 1, 160'00);
    company.hours(1, 202611'25, 2, 7'00); // a day lies in its month's sum
    company.hours(1, 202512'32, 2, 1'00);
    company.hours(1, 202511'32, 2, 2'00); // thirteen months ago
    company.leave(1, 202604, 2, 1, 3);
    company.leave(1, 202611, 5, 2, 1);
    company.leave(1, 202611, 2, 0, 9);       // days of a work category
    company.leave(1, 202603, 2, 1, 7);       // the year before
    company.day(1, 202611'20, 800, 1800, 0); // the last day of October
    company.day(1, 202611'21, 0, 0, 0);
    company.day(1, 202611'30, 2200, 3045, 45);
    company.day(1, 202612'20, 830, 1500, 20);

    const Look look = look_at(company.session, 202611);
    ASSERT_EQ(look.employees.size(), 1);
    const Figures& of = look.employees[0].figures;
    EXPECT_EQ(of.hours[0].overtime, duration(u"104:30"_s));
    EXPECT_EQ(of.hours[0].holiday_work, duration(u"8:00"_s));
    EXPECT_EQ(of.hours[11].overtime, duration(u"1:00"_s));
    EXPECT_EQ(of.half_days, 7);
    EXPECT_EQ(of.days, (QList<WorkedDay>{{QDate(2026, 11, 30), duration(u"8:00"_s), minutes(45)},
                           {QDate(2026, 12, 20), duration(u"6:10"_s), minutes(20)}}));
    EXPECT_EQ(lines_of(look.employees[0].judgement, look.kept.rules, look.span).last(),
        u"【超過】休憩不足　12/20（日） 勤務 6:10　休憩 0:20（45分必要）"_s);
    EXPECT_EQ(overview_words(company.session, 202611).value(EmployeeKey(1)), u"時間外超過"_s);
    EXPECT_TRUE(look_at(company.session, 202701).employees.isEmpty());
}

TEST(Limits, RulesAreTakenFromTheNamesUntilTheyAreRegistered) {
    Company company;
    company.tables.設定書込(u"rov_kihon"_s, u"上限時間外月"_s, u"42"_s);
    company.tables.設定書込(u"rov_kihon"_s, u"上限年休開始月"_s, u"13"_s); // no month
    const auto read = [&] { return look_at(company.session, 202611); };
    const Look before = read();
    EXPECT_FALSE(before.kept.chosen);
    EXPECT_EQ(before.kept.rules[Figure::OvertimeMonth], 42);
    EXPECT_EQ(before.kept.rules[Figure::LeaveYearFrom], 4);
    EXPECT_EQ(before.kept.rules.categories, (QHash<qint64, Counts>{{2, Counts::Overtime}, {3, Counts::HolidayWork}}));
    EXPECT_EQ(before.kept.rules.leave, (QHash<qint64, int>{{2, 2}, {5, 1}}));

    jyougen_kimari panel(company.session, before.kept, before.countable);
    panel.count(4, Counts::Overtime);
    panel.count(3, Counts::Not);
    panel.count_leave(5, 0);
    panel.rules.special = true;
    EXPECT_FALSE((company.host.answers = {platform::Answer::No}, panel.may_leave()));
    panel.register_Click();
    EXPECT_EQ(read().kept.rules, panel.rules);
    EXPECT_TRUE(read().kept.chosen);

    // Another PC changes one figure while this one changes another.
    jyougen_kimari here(company.session, read().kept, before.countable);
    company.tables.設定書込(u"rov_kihon"_s, u"上限合計平均"_s, u"75"_s);
    here.take_usual_figures();
    here.register_Click();
    EXPECT_EQ(read().kept.rules[Figure::OvertimeMonth], 45);
    EXPECT_EQ(read().kept.rules[Figure::AllAverage], 75);
}

TEST(Limits, TheScreenShowsWhatIsNearestFirstAndLeavesOutWhoIsFree) {
    Company company;
    company.fill();
    ent_jyougen form(company.session);
    form.Form_Load();
    EXPECT_EQ(form.ym, u"2026年11月"_s);
    EXPECT_EQ(shown_names(form), (QStringList{u"超えた"_s, u"近い"_s, u"何もない"_s}));
    EXPECT_EQ(form.msglab, u"3人　超過 1人　注意 1人"_s);
    EXPECT_EQ(form.lines(0), QStringList(u"【超過】時間外（月）　45:01 / 45:00　0:01 超えています"_s));
    EXPECT_EQ(form.lines(3), QStringList());
    form.set_only_off(true);
    EXPECT_EQ(shown_names(form), (QStringList{u"超えた"_s, u"近い"_s}));

    company.host.paths = {company.tree.folder.filePath(u"list.csv"_s)};
    form.export_csv();
    EXPECT_TRUE(support::bytes_of(company.tree.folder.filePath(u"list.csv"_s)).contains("45:01 / 45:00"));

    form.set_free(0, ent_jyougen::Part::Hours, true);
    EXPECT_EQ(shown_names(form), QStringList(u"近い"_s));
    form.set_only_off(false);
    const int place = form.place_of(EmployeeKey(2));
    EXPECT_TRUE(form.is_free(place, ent_jyougen::Part::Hours));
    EXPECT_EQ(form.look.employees[form.shown[place]].judgement.judged.size(), 1); // the leave
    form.set_free(place, ent_jyougen::Part::Hours, false);
    EXPECT_EQ(form.lines(0).size(), 1);
    form.step_month(-2);
    EXPECT_EQ(shown_names(form), QStringList(u"やめた"_s));
}
