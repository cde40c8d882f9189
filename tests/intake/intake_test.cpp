// Files of recorders, written by hand, from their bytes into the tables.

#include "entry/company.h"
#include "intake/accept.h"
#include "intake/profile_store.h"
#include "support/stored.h"

using namespace intake;
using namespace base;

namespace {

struct Company : entry::Company {
    Company() {
        host.clock = QDateTime(QDate(2026, 11, 26), QTime(9, 0));
        tree.settings.era_name = {u"令和"_s, u"平成"_s};
        tree.settings.era_offset = {2018, 1988};
    }
    /// The days of the tables as days_in() tells them.
    QStringList saved() const {
        auto database = rovdata();
        auto query = database.prepare("select 社員番号, 出社日, 出社時間, 退社時間 from rovmei, syain"
                                      " where システム番号 = 社員システム番号 and 出社日 % 100 < 32"
                                      " and (出社時間 or 退社時間) order by システム番号, 出社日");
        QStringList days;
        while (query.step()) {
            const auto row = query.row();
            days << u"%1 %2 %3-%4"_s.arg(row.text(0), date_of_number(row.number(1)).toString(u"yy/M/d"_s),
                time_to_text(ClockNumber{row.number(2)}), time_to_text(ClockNumber{row.number(3) % 2400}));
        }
        return days;
    }
};

RecorderFile recorder_file(const QString& name) {
    return read_recorder_file(support::bytes_of(QStringLiteral(ROVENA_RECORDER_FILES "/") + name));
}

/// "20 11/2 8:28-17:45" of the days that are in a state.
QStringList days_in(State state, const Preview& preview) {
    QStringList days;
    for (const ImportDay& day : preview.days)
        if (day.state == state)
            days << u"%1 %2 %3-%4"_s.arg(day.number, day.date.toString(u"yy/M/d"_s), day.clock_in, day.clock_out);
    return days;
}

/// "12 reason" of the lines that weren't understood.
QStringList not_understood(const Preview& preview) {
    QStringList lines;
    for (const PreviewLine& line : preview.lines)
        if (line.state == State::NotUnderstood)
            lines << u"%1 %2"_s.arg(line.number).arg(line.reason);
    return lines;
}

struct Case {
    QString file;
    QString profile; ///< empty where the headings say enough
    QString read_as;
    QStringList days;
    QStringList not_understood;
};

const QList<Case> cases{
    {u"stamps.csv"_s, {}, u"UTF-8 コンマ"_s,
        {u"20 26/11/2 8:28-17:45"_s, u"20 26/11/4 8:31-17:40"_s, u"3 26/11/2 21:55-6:10"_s, u"3 26/11/3 21:58-6:02"_s},
        {u"9 組になる打刻がありません"_s, u"14 組になる打刻がありません"_s, u"15 社員番号 9999 は登録されていません"_s,
            u"16 打刻時刻「2026/11/05 8」: 8時間か 8分か分かりません"_s}},
    {u"marked.txt"_s, {}, u"CP932 タブ"_s, {u"20 26/11/2 8:30-18:20"_s, u"3 26/11/2 22:00-7:15"_s},
        {u"3 出退区分「外出」は出社でも退社でもありません"_s, u"7 組になる打刻がありません"_s,
            u"8 1日に 2回の勤務があります"_s, u"9 1日に 2回の勤務があります"_s, u"10 1日に 2回の勤務があります"_s,
            u"11 1日に 2回の勤務があります"_s}},
    {u"in_and_out.csv"_s, {}, u"UTF-8 コンマ"_s,
        {u"20 26/11/2 8:15-19:00"_s, u"20 26/11/4 22:00-6:30"_s, u"20 26/11/5 9:00-1:30"_s,
            u"20 26/11/12 8:30-17:30"_s},
        {u"8 退社時間がありません"_s, u"9 同じ日に、時刻の違う行があります"_s, u"10 同じ日に、時刻の違う行があります"_s,
            u"11 日付「2026-11\uFFFD-02」: 日付ではありません"_s, u"12 社員番号 \"20 は登録されていません"_s,
            u"13 出社時間が、その日の 0:00 から 23:59 までにありません"_s, u"16 まだ来ていない日です"_s,
            u"17 社員番号 合計 は登録されていません"_s}},
    {u"era.txt"_s, {}, u"UTF-16 セミコロン"_s,
        {u"20 18/1/5 8:30-17:30"_s, u"20 26/11/2 8:30-17:30"_s, u"20 26/11/3 8:30-17:30"_s, u"20 26/11/4 8:30-17:30"_s,
            u"20 26/11/5 8:30-17:30"_s, u"20 26/11/6 8:30-0:10"_s, u"3 19/5/1 8:30-0:00"_s},
        {u"8 日付「令和8年13月1日」: 日付ではありません"_s}},
    {u"blanks.dat"_s, u"社員番号=1,日付=2,出社時間=3,退社時間=4"_s, u"UTF-8 空白"_s,
        {u"20 26/11/2 8:30-18:00"_s, u"20 26/11/4 0:00-8:00"_s, u"3 26/11/3 9:00-17:30"_s}, {}},
};

} // namespace

TEST(Intake, AFileOfEachKindIsReadTakenOverOnceAndTheSameTheSecondTime) {
    for (const Case& of : cases) {
        SCOPED_TRACE(of.file.toStdString());
        Company company;
        const RecorderFile file = recorder_file(of.file);
        EXPECT_EQ(file.encoding + u' ' + file.separator, of.read_as);
        const Profile profile = of.profile.isEmpty() ? guessed_profile(file) : profile_of_text(u"表"_s, of.profile);
        keep_profile(company.tables, profile_of_text(u"表"_s, profile_text(profile)));
        EXPECT_EQ(profile_text(kept_profile(company.tables, u"表"_s).value()), profile_text(profile));
        const Preview seen = look(company.session, file, profile);
        EXPECT_EQ(seen.refused, u""_s);
        EXPECT_EQ(days_in(State::New, seen), of.days);
        EXPECT_EQ(not_understood(seen), of.not_understood);
        EXPECT_EQ(company.saved() + company.posted(), QStringList()) << "a preview writes nothing";
        const Acceptance taken = accept(company.session, seen, days_to_accept(seen, false), Into::Tables);
        EXPECT_EQ(taken.count(Became::Posted), of.days.size());
        company.apply();
        EXPECT_EQ(company.saved(), of.days);
        const Preview again = look(company.session, file, profile);
        EXPECT_EQ(days_in(State::Same, again), of.days);
        EXPECT_EQ(days_to_accept(again, true), QList<int>());
    }
}

// What the tables get is what the clerk's own typing of the days would give them: breaks, categories, kinds, sums.
TEST(Intake, AcceptedDaysArePostedAsIfTheyHadBeenTyped) {
    const auto saved_by = [](const std::function<void(Company&)>& work) {
        Company company;
        work(company);
        QStringList rows = company.posted();
        return rows;
    };
    const QStringList imported = saved_by([](Company& company) {
        const RecorderFile file = recorder_file(u"stamps.csv"_s);
        Preview seen = look(company.session, file, guessed_profile(file));
        accept(company.session, seen, {0, 2}, Into::Tables);
    });
    const QStringList typed = saved_by([](Company& company) {
        entry::ent_rovena form(company.session);
        form.Form_Load();
        form.hyou_syain_Click(1);
        for (const auto& [cell, clock] : QList<std::pair<Cell, QString>>{
                 {{2, 2}, u"828"_s}, {{2, 3}, u"1745"_s}, {{4, 2}, u"831"_s}, {{4, 3}, u"1740"_s}, {{5, 2}, {}}}) {
            form.hyou_Click(cell);
            entry::type(form, clock);
        }
        form.botan_Click(1);
    });
    EXPECT_GT(typed.size(), 30);
    EXPECT_EQ(imported, typed);
}

TEST(Intake, NothingThatWasTypedIsLostToAFile) {
    Company company;
    company.exec(
        "insert into rovmei values (1, 20261102, 815, 1700, 100, 745, '直行'), (2, 20261102, 2155, 3010, 0, 815, '')");
    company.exec("insert into kyumei values (1, 20261104, 1, '有休', '0')");
    entry::ent_rovena form(company.session);
    form.Form_Load();
    form.hyou_syain_Click(2); // 田中, with a draft of the third
    form.hyou_Click({3, 2});
    entry::type(form, u"2100"_s);
    form.hyou_Click({3, 3});
    const RecorderFile file = recorder_file(u"stamps.csv"_s);
    const Profile profile = guessed_profile(file);
    Preview seen = look(company.session, file, profile);
    EXPECT_EQ(days_in(State::Different, seen),
        (QStringList{u"20 26/11/2 8:28-17:45"_s, u"20 26/11/4 8:31-17:40"_s, u"3 26/11/3 21:58-6:02"_s}));
    EXPECT_EQ(days_in(State::Same, seen), QStringList(u"3 26/11/2 21:55-6:10"_s));
    EXPECT_EQ(days_to_accept(seen, false), QList<int>());

    company.exec("update rovmei set 出社時間 = 820 where 社員システム番号 = 1"); // by another PC, after the preview
    const Acceptance taken = accept(company.session, seen, days_to_accept(seen, true), Into::Tables);
    EXPECT_EQ(taken.words(), u"1日を登録しました。1日を下書きに入れました。1日は取り込みませんでした。"_s);
    EXPECT_EQ(taken.days.first().reason, u"確認した後に、その日の内容が変わりました"_s);
    company.apply();
    EXPECT_EQ(company.saved(),
        (QStringList{u"20 26/11/2 8:20-17:00"_s, u"20 26/11/4 8:31-17:40"_s, u"3 26/11/2 21:55-6:10"_s}));
    form.hyou_syain_Click(2);
    EXPECT_EQ(form.sheet.hyou(3, 2) + u'-' + form.sheet.hyou(3, 3), u"21:58-6:02"_s);
    EXPECT_EQ(form.standing(), u"未登録 1日"_s);

    seen = look(company.session, file, profile);
    EXPECT_EQ(days_in(State::Same, seen).size(), 3) << "a draft counts as typed";
    company.host.running.insert(store::manager_program.toString()); // a save isn't to be had
    const Acceptance refused = accept(company.session, seen, days_to_accept(seen, true), Into::Tables);
    EXPECT_EQ(refused.words(), u"1日は取り込みませんでした。"_s);
    const auto cancel = [](int, int) { return false; };
    EXPECT_EQ(accept(company.session, seen, {0}, Into::Tables, cancel).words(), u"途中でやめました。"_s);
    EXPECT_EQ(company.posted(), QStringList());
}
