// What single lines of a recorder's file are taken for, and why some aren't taken.

#include "entry/company.h"
#include "intake/accept.h"
#include "intake/report.h"

using namespace intake;
using namespace base;

namespace {

constexpr auto in_and_out = u"社員番号=1,日付=2,出社時間=3,退社時間=4",
               without_date = u"社員番号=1,出社時間=2,退社時間=3",
               stamps = u"社員番号=1,打刻時刻=2,出退区分=3,出社の文字=着,退社の文字=帰";

/// The eras that recorders write, and two employees of one number.
class Lines : public testing::Test {
protected:
    Lines() {
        settings.era_name = {u"令和"_s, u"平成"_s, u"昭和"_s, u"大正"_s, u"明治"_s};
        settings.era_offset = {2018, 1988, 1925, 1911, 1867};
        company.host.clock = QDateTime(QDate(2026, 11, 26), QTime(9, 0));
        company.exec("insert into syain (システム番号, 社員番号, 社員名) values (4, 77, '甲'), (5, '0077', '乙')");
    }

    Preview seen(const QString& text, QStringView profile = in_and_out) {
        return look(company.session, read_recorder_file(text.toUtf8()), profile_of_text({}, profile.toString()));
    }

    /// "26/11/2 8:30-17:30" of a file of one line, or of one day, and else what is said of its first line.
    QString taken_for(const QString& text, QStringView profile = in_and_out) {
        const Preview preview = seen(text, profile);
        if (!preview.refused.isEmpty())
            return preview.refused;
        const PreviewLine& line = preview.lines[0];
        if (line.state == State::NotUnderstood || line.day < 0)
            return line.reason;
        const ImportDay& day = preview.days[line.day];
        return u"%1 %2-%3"_s.arg(day.date.toString(u"yy/M/d"_s), day.clock_in, day.clock_out);
    }

    entry::Company company;
    Settings& settings = company.tree.settings;
};

const QString no_date = u"日付「%1」: 日付ではありません"_s;

} // namespace

TEST_F(Lines, ADateIsReadAsItIsWrittenAndNearTodayWhereItsYearIsNot) {
    for (const auto& [written, day] : {std::pair{u"2026.11.2"_s, u"26/11/2"_s}, {u"2026年11月2日(月)"_s, u"26/11/2"_s},
             {u"２０２６／１１／２"_s, u"26/11/2"_s}, {u"26/11/2"_s, u"26/11/2"_s}, {u"令8/11/2"_s, u"26/11/2"_s},
             {u"r8.11.2"_s, u"26/11/2"_s}, {u"S64.1.7"_s, u"89/1/7"_s}, {u"大正15年12月24日"_s, u"26/12/24"_s},
             {u"T15/12/24"_s, u"26/12/24"_s}, {u"M45.7.29"_s, u"12/7/29"_s}, {u"5/29"_s, u"26/5/29"_s},
             {u"0529"_s, u"26/5/29"_s}})
        EXPECT_EQ(taken_for(u"20,%1,8:30,17:30"_s.arg(written)), day + u" 8:30-17:30"_s) << written.toStdString();
    for (const QString& none : {u"2026/11/31"_s, u"20261131"_s, u"112"_s, u"1234567890"_s, u"2026/11/2x"_s,
             u"2026/11/2/3"_s, u"R8/11"_s, u"X8.11.2"_s, u"昭8.13.2"_s, u"2/29"_s, u"26"_s})
        EXPECT_EQ(taken_for(u"20,%1,8:30,17:30"_s.arg(none)), no_date.arg(none)) << none.toStdString();
    EXPECT_EQ(taken_for(u"20,5/27,8:30,17:30"_s), u"まだ来ていない日です"_s) << "next year's is nearer";
    settings.era_offset = {};
    EXPECT_EQ(taken_for(u"20,8/11/2,8:30,17:30"_s), u"08/11/2 8:30-17:30"_s) << "without an era it is 2008";
}

TEST_F(Lines, ATimeMayCarryItsDay) {
    struct Case {
        QString in, out, taken_for;
    };
    for (const Case& c : {Case{u"2026-11-02T08:30:00"_s, u"2026-11-02T17:30:59"_s, u"26/11/2 8:30-17:30"_s},
             {u"202611020830"_s, u"202611030015"_s, u"26/11/2 8:30-0:15"_s},
             {u"2611020830"_s, u"1730"_s, u"26/11/2 8:30-17:30"_s},
             {u"2026/11/02(月) 8:30"_s, u"2026/11/02(月)17:30"_s, u"26/11/2 8:30-17:30"_s},
             {u"2026年11月2日8時半"_s, u"令和8年11月2日 17時30分"_s, u"26/11/2 8:30-17:30"_s},
             {u"8:30"_s, u"2026/11/3 17:30"_s, u"26/11/3 8:30-17:30"_s}, // its clock-out alone tells the day
             {u"8:30"_s, u"17:30"_s, u"日付がありません"_s}, {u""_s, u""_s, u"日付がありません"_s},
             {u"2026/11/31 8:30"_s, u"17:30"_s, u"出社時間「2026/11/31 8:30」: 日付ではありません"_s},
             {u"2026/11/2 8:30"_s, u"17:60"_s, u"退社時間「17:60」: 分と秒は 59 までです"_s},
             {u"2026/11/2"_s, u"2026/11/2"_s, u"時刻がありません"_s}})
        EXPECT_EQ(taken_for(u"20,%1,%2"_s.arg(c.in, c.out), without_date), c.taken_for) << c.in.toStdString();
}

TEST_F(Lines, WhatCantStandInADayIsSaid) {
    struct Case {
        QStringView profile;
        QString text, said;
    };
    for (const Case& c :
        {Case{in_and_out, u",2026/11/2,8:30,17:30"_s, u"社員番号がありません"_s},
            {in_and_out, u"77,2026/11/2,8:30,17:30"_s, u"社員番号 77 の社員が 2人います"_s},
            {in_and_out, u"20,2026/11/2,,17:30"_s, u"出社時間がありません"_s},
            {in_and_out, u"20,2026/11/2,8:30,8:30"_s, u"出社時間と退社時間が同じです"_s},
            {in_and_out, u"20,2026/11/2,2026/11/1 23:59,17:30"_s,
                u"出社時間が、その日の 0:00 から 23:59 までにありません"_s},
            {in_and_out, u"20,2026/11/2,8:30,2026/11/2 8:29"_s, u"退社時間が出社時間より前です"_s},
            {in_and_out, u"20,2026/11/2,8:30,2026/11/3 8:30"_s, u"24時間以上の勤務は入力できません"_s},
            {in_and_out, u"20,2026/11/2,8:30,2026/11/3 8:29"_s, u"26/11/2 8:30-8:29"_s},
            {in_and_out, u"20,2026/11/2,8:30,\n20,2026/11/2,,17:30"_s, u"26/11/2 8:30-17:30"_s},
            {in_and_out, u"20,2026/11/2,8:30,17:30\n20,2026/11/2,8:30,17:31"_s, u"同じ日に、時刻の違う行があります"_s},
            {stamps, u"20,2026/11/2 8:30,着\n20,2026/11/2 17:30,帰"_s, u"26/11/2 8:30-17:30"_s},
            {stamps, u"20,2026/11/2 8:30,帰\n20,2026/11/2 17:30,着"_s, u"組になる打刻がありません"_s},
            {stamps, u"20,2026/11/2 8:30,出\n20,2026/11/2 17:30,退"_s, u"出退区分「出」は出社でも退社でもありません"_s},
            {stamps, u"20,2026/11/1 0:30,\n20,2026/11/1 20:30,"_s, u"26/11/1 0:30-20:30"_s},
            {stamps, u"20,2026/11/1 0:30,\n20,2026/11/1 20:31,"_s, u"組になる打刻がありません"_s},
            {stamps, u"20,2026/11/2,"_s, u"時刻がありません"_s}, {stamps, u"20,8:30,"_s, u"日付がありません"_s},
            {u"日付=2", u"a,b"_s, u"社員番号の列を決めてください"_s},
            {u"社員番号=1,打刻時刻=2,退社時間=3", u"a,b"_s,
                u"打刻時刻の列と出社・退社の列は、どちらか一方にしてください"_s},
            {u"社員番号=1,出社時間=2", u"a,b"_s, u"出社時間と退社時間の列、または打刻時刻の列を決めてください"_s},
            {in_and_out, u" \n\r\n\u001a"_s, u"ファイルに行がありません"_s}})
        EXPECT_EQ(taken_for(c.text, c.profile), c.said) << c.text.toStdString();
}

TEST_F(Lines, CellsArePartedAndFreedOfTheirMarksAndADamagedLineSpoilsNoOther) {
    const auto cells = [](QByteArray bytes) {
        QStringList lines;
        for (const RecorderLine& line : read_recorder_file(bytes).lines)
            lines << u"%1:%2"_s.arg(line.number).arg(line.cells.join(u'|'));
        return lines.join(u' ');
    };
    for (const auto& [bytes, parted] :
        {std::pair{QByteArray("a,\" b, \"\"c\"\" \",d\r\n\r\n\"e\",f,"), u"1:a|b, \"c\"|d 3:e|f|"_s},
            {"\"a\"b,c\n\"d,e\n", u"1:\"a\"b|c 2:\"d|e"_s}, {"a;b,c\rd;e\r", u"1:a|b,c 2:d|e"_s},
            {"a\tb,c\n", u"1:a|b,c"_s}, {"  a   b \n", u"1:a|b"_s}, {"", u""_s}})
        EXPECT_EQ(cells(bytes), parted) << bytes.constData();
    EXPECT_EQ(read_recorder_file("\xe3\x81\x82,1\n\x82\xa0,2\n").encoding, u"UTF-8"_s) << "where it is even";
    EXPECT_EQ(read_recorder_file("\xef\xbb\xbf\x82\xa0\n").encoding, u"UTF-8"_s) << "as the mark says";
    EXPECT_EQ(read_recorder_file("a\nb,c\nd,e\n").columns(), 2);
    EXPECT_FALSE(open_recorder_file(company.tree.folder.path() + u"/none"_s).trouble.isEmpty());
}

TEST_F(Lines, WhatIsTypedInsteadIsTold) {
    struct Case {
        const char* stored;
        State state;
        QString said;
    };
    settings.month_start_day = 21;
    for (const Case& c : {Case{"", State::New, u""_s},
             {"insert into rovmei values (1, 20261102, 830, 1730, 100, 800, '')", State::Same, u""_s},
             {"insert into rovmei values (1, 20261102, 830, 1731, 100, 800, '')", State::Different,
                 u"入力済み: 8:30～17:31"_s},
             {"insert into rovmei values (1, 20261102, 0, 0, 100, 0, '')", State::Different, u"入力済み: 休憩 1:00"_s},
             {"insert into rovmei values (1, 20261102, 0, 0, 0, 0, '直行')", State::New, u""_s},
             {"insert into kyumei values (1, 20261102, 1, '有休', '0')", State::Different, u"入力済み: 区分「有休」"_s},
             {"insert into kyumei values (1, 20261102, 2, '公休', '')", State::New, u""_s}}) {
        company.exec("delete from rovmei; delete from kyumei");
        company.exec(c.stored);
        const Preview preview = seen(u"20,2026/11/2,8:30,17:30\n20,2026/1/2,8:30,17:30"_s);
        EXPECT_EQ(preview.days[1].state, c.state) << c.stored;
        EXPECT_EQ(preview.lines[0].reason, c.said) << c.stored;
        EXPECT_EQ(preview.lines[1].reason, u"年をまたぐ月の1月の日は、登録すると読み戻せません"_s);
    }
}

TEST_F(Lines, WhatBecameOfThemIsReportedLineByLine) {
    const Preview preview = seen(u"20,2026/11/2,8:30,17:30\n20,2026/11/2,,17:30\n20,2026/11/3,,\nx,2026/11/4,,\n"_s);
    EXPECT_EQ(summary(preview), u"新しい 2行、同じ 1行、違う 0行、読めない 1行。"_s);
    const Acceptance left_out{{{0, {Became::LeftOut, u"締め"_s}}}};
    for (const auto& [taken, became] :
        {std::pair{Acceptance(), u"\t"_s}, {{{{0, {Became::Posted}}}}, u"登録\t"_s}, {left_out, u"見送り\t締め"_s}})
        EXPECT_EQ(
            report(preview, taken), (QStringList{u"1\t20 山田:太郎\t2026/11/02\t8:30～17:30\t新しい\t"_s + became,
                                        u"2\t20 山田:太郎\t2026/11/02\t～17:30\t新しい\t"_s +
                                            (became.endsWith(u'\t') ? became + u"同じ日の行があります"_s : became),
                                        u"3\t20 山田:太郎\t2026/11/03\t～\t同じ\t\t時刻がありません"_s,
                                        u"4\tx\t2026/11/04\t～\t読めない\t\t社員番号 x は登録されていません"_s}));
    EXPECT_EQ(Acceptance().words(), u"取り込む日はありません。"_s);
}
