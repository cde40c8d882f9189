#include "exchange/apply.h"

#include "exchange_tree.h"

#include <gmock/gmock.h>

namespace exchange {

namespace {

struct Golden {
    const char* rule;
    std::vector<Rows> saves; ///< one after the other into the same file
    std::string tables;
};

const std::vector<Golden> goldens{
    {"a day's clock times are stored, and replaced by those of a later save",
        {{day_row(7, 20041001, u"830 1715 100 745"_s, u"遅刻"_s),
             day_row(7, 20041002, u"2150 2530 0 340"_s, u"O'Neill \"x\"　あ"_s)},
            {day_row(7, 20041001, u"900 1715 100 715"_s)}},
        "51|7|20041001|900|1715|100|715|\n"
        "51|7|20041002|2150|2530|0|340|O'Neill \"x\"　あ"},
    {"the month's row stands beside its days, and a January key stands as it is",
        {{day_row(7, 20041032, u"0 0 800 8000"_s), day_row(7, 8805, u"830 1715 100 745"_s),
            u"52|20041032|7|1|8000|8"_s}},
        "51|7|8805|830|1715|100|745|\n"
        "51|7|20041032|0|0|800|8000|\n"
        "52|7|20041032|1|8000|||"},
    {"every date that a save posts is taken: a leap day and the ends of the January keys too",
        {{u"54|20240229|7|3|公休|0"_s, u"54|8801|7|3|公休|0"_s, u"54|8831|7|3|公休|0"_s, u"54|20041032|7|3|公休|0"_s,
            day_row(7, 20041001, u"0 0 0 0"_s, QString(255, u'備'))}},
        "51|7|20041001|0|0|0|0|" + QString(255, u'備').toStdString() +
            "\n"
            "54|7|8801|3|公休|0||\n"
            "54|7|8831|3|公休|0||\n"
            "54|7|20041032|3|公休|0||\n"
            "54|7|20240229|3|公休|0||"},
    {"hours of a day are replaced as a whole: a category that lost its hours goes",
        {{day_row(7, 20041001, u"0 0 0 0"_s), u"52|20041001|7|1|745|8"_s, u"52|20041001|7|3|130|10"_s,
             u"52|20041002|7|1|800|8"_s},
            {day_row(7, 20041001, u"0 0 0 0"_s), u"52|20041001|7|1|0|8"_s, u"52|20041001|7|3|200|10"_s}},
        "51|7|20041001|0|0|0|0|\n"
        "52|7|20041001|3|200|||\n"
        "52|7|20041002|1|800|||"},
    {"rows of several employees and days in one run don't remove each other",
        {{u"52|20041001|7|1|100|8"_s, u"52|20041001|8|1|200|8"_s, u"52|20041002|7|1|300|8"_s,
            u"52|20041001|7|2|400|9"_s}},
        "52|7|20041001|1|100|||\n"
        "52|7|20041001|2|400|||\n"
        "52|7|20041002|1|300|||\n"
        "52|8|20041001|1|200|||"},
    {"a row of another kind ends the run",
        {{u"52|20041001|7|1|100|8"_s, day_row(7, 20041001, u"0 0 0 0"_s), u"52|20041001|7|2|400|9"_s}},
        "51|7|20041001|0|0|0|0|\n"
        "52|7|20041001|2|400|||"},
    {"an unreadable row doesn't end the run, whether its kind is known or not",
        {{u"52|20041001|7|1|100|8"_s, u"52|20041001|7|9|x|8"_s, u"52|20041001|7|2|200|9"_s, u"99|20041001"_s,
            u"52|20041001|7|3|300|9"_s}},
        "52|7|20041001|1|100|||\n"
        "52|7|20041001|2|200|||\n"
        "52|7|20041001|3|300|||"},
    {"an unreadable row of another kind ends the run like a good one",
        {{u"52|20041001|7|1|100|8"_s, u"54|20041001|7|x|公休|0"_s, u"52|20041001|7|2|200|9"_s}},
        "52|7|20041001|2|200|||"},
    {"where a day's first row is unreadable the next one removes",
        {{u"52|20041001|7|1|100|8"_s},
            {day_row(1, 20041001, u"0 0 0 0"_s), u"52|20041001|7|1|-|8"_s, u"52|20041001|7|2|200|9"_s}},
        "51|1|20041001|0|0|0|0|\n"
        "52|7|20041001|2|200|||"},
    {"counts of a month are replaced as a whole: a count that fell to nothing goes",
        {{u"53|200410|7|-1|0|21|0|0"_s, u"53|200410|7|-2|0|10|0|0"_s, u"53|200410|7|3|1|2|0|0"_s,
             u"53|200411|7|-1|0|20|0|0"_s},
            {day_row(7, 20041001, u"0 0 0 0"_s), u"53|200410|7|-1|0|31|0|0"_s, u"53|200410|7|4|2|0|0|0"_s}},
        "51|7|20041001|0|0|0|0|\n"
        "53|7|200410|-1|0|31||\n"
        "53|7|200411|-1|0|20||"},
    {"a save without counts leaves those of the month",
        {{u"53|200410|7|3|1|2|0|0"_s}, {day_row(7, 20041001, u"0 0 0 0"_s)}},
        "51|7|20041001|0|0|0|0|\n"
        "53|7|200410|3|1|2||"},
    {"a leave kind and a category of one number are two counts",
        {{u"53|200410|7|3|1|2|0|0"_s, u"53|200410|7|3|0|5|0|0"_s, u"53|200410|7|3|2|1|0|0"_s}},
        "53|7|200410|3|0|5||\n"
        "53|7|200410|3|1|2||\n"
        "53|7|200410|3|2|1||"},
    {"leave of a day is replaced, and number 0 only removes it",
        {{u"54|20041001|7|3|公休|0"_s, u"54|20041002|7|3|公休|0"_s, u"54|20041003|7|3|公休|0"_s,
             u"54|20041001|8|3|公休|0"_s},
            {u"54|20041001|7|4|有給|0"_s, u"54|20041002|7|0||"_s}},
        "54|7|20041001|4|有給|0||\n"
        "54|7|20041003|3|公休|0||\n"
        "54|8|20041001|3|公休|0||"},
};

void apply(const Tree& tree, qint64 batch = batch_rows, const Watch& watch = {}) {
    store::Database exchange = store::Database::open(tree.exchange_path(), store::Kind::Exchange);
    store::Database rovdata = store::Database::open(tree.rovdata_path(), store::Kind::Rovdata);
    apply_rows(
        exchange, rovdata, watch, [] { return true; }, batch);
}

} // namespace

TEST(Apply, SavesOfOneMonthEndInItsTablesWhereverABatchEndsAndHoweverOftenTheyAreApplied) {
    for (const Golden& golden : goldens)
        for (const qint64 batch : {qint64{1}, batch_rows}) {
            const Tree tree;
            for (const Rows& save : golden.saves)
                tree.post(save);
            const QByteArray posted = bytes_of(tree.exchange_path());
            apply(tree, batch);
            EXPECT_EQ(tree.tables(), golden.tables) << golden.rule;
            EXPECT_EQ(tree.left(), "") << golden.rule;
            put_bytes(tree.exchange_path(), posted); // as after a kill between the tables and the rows' leaving
            apply(tree, batch);
            EXPECT_EQ(tree.tables(), golden.tables) << golden.rule;
        }
}

TEST(Apply, RowsPostedWhileABatchIsTakenStayForTheNext) {
    const Tree tree;
    tree.post({u"54|20041001|7|3|公休|0"_s, u"54|20041002|7|3|公休|0"_s});
    std::vector<qint64> taken;
    apply(tree, 1, {.taken = [&](qint64 rows) {
        taken.push_back(rows);
        if (rows == 1)
            tree.post({u"54|20041003|7|3|公休|0"_s});
    }});
    EXPECT_THAT(taken, testing::ElementsAre(1, 2, 3));
    EXPECT_EQ(tree.tables(), "54|7|20041001|3|公休|0||\n54|7|20041002|3|公休|0||\n54|7|20041003|3|公休|0||");
}

TEST(Apply, ARowThatCannotBeReadIsSetAsideWithItsReason) {
    struct Case {
        QString row;
        const char* reason;
    };
    const std::vector<Case> cases{
        {u"99|20041001|7|1|100|8"_s, "種別「99」はわかりません"},
        {u"|20041001|7|1|100|8"_s, "種別がありません"},
        {u"52|20041001|7|1|8:30|8"_s, "時間「8:30」は数字ではありません"},
        {u"52|20041001|7|1|99999999999999999999|8"_s, "時間「99999999999999999999」は数字ではありません"},
        {u"52|20041001|7|1||8"_s, "時間がありません"},
        {u"53|-|7|-1|0|1"_s, "年月がありません"},
        {u"53|200410|7|-1|0|1.5"_s, "日数１「1.5」は数字ではありません"},
        {u"51|0|20041005120000"_s, "社員システム番号がありません"},
        {day_row(7, 20041001, u"830 1715 100 x"_s), "勤務時間「x」は数字ではありません"},
        {day_row(7, 20261345, u"830 1715 100 745"_s), "出社日「20261345」という日はありません"},
        {u"52|20260229|7|1|100|8"_s, "年月日「20260229」という日はありません"},
        {u"54|20041033|7|3|公休|0"_s, "年月日「20041033」という日はありません"},
        {u"54|0|7|3|公休|0"_s, "年月日「0」という日はありません"},
        {u"54|-1|7|3|公休|0"_s, "年月日「-1」という日はありません"},
        {u"54|8832|7|3|公休|0"_s, "年月日「8832」という日はありません"},
        {u"53|200413|7|-1|0|1"_s, "年月「200413」という月はありません"},
        {u"53|20041001|7|-1|0|1"_s, "年月「20041001」という月はありません"},
        {day_row(7, 20041001, u"830 1715 100 745"_s, QString(256, u'x')), "備考が255文字を超えています"},
        {u"x\ny"_s + QString(50, u'z') + u"|1"_s, "種別「x yzzzzzzzzzzzzzzzzz」はわかりません"},
    };
    for (const Case& c : cases) {
        const Tree tree;
        tree.post({u"54|20041001|9|3|公休|0"_s, c.row, u"54|20041002|9|3|公休|0"_s});
        QStringList told;
        apply(tree, batch_rows, {.trouble = [&](const QString& message) { told << message; }});
        EXPECT_EQ(tree.tables(), "54|9|20041001|3|公休|0||\n54|9|20041002|3|公休|0||") << c.reason;
        EXPECT_EQ(tree.left(), "") << c.reason;
        QStringList fields = c.row.split(u'|');
        std::ranges::replace(fields, u"-"_s, QString());
        fields.resize(6);
        EXPECT_EQ(tree.errors(tree.exchange_path()), fields.join(u'|').toStdString() + "|" + c.reason);
        EXPECT_EQ(told.join(u'\n').toStdString(), std::string("hanjyusin01.mdb 2件目: ") + c.reason);
    }
}

TEST(Apply, AnUnreadableRowKeepsAllItsFields) {
    const Tree tree;
    store::Database::open(tree.exchange_path(), store::Kind::Exchange)
        .exec(R"(insert into jyusin ("1","2","49") values ('a','99','z'))");
    apply(tree);
    EXPECT_EQ(
        Tree::lines(tree.exchange_path(), store::Kind::Exchange, R"(select "1","2","49" from jyusin_error)"), "a|99|z");
}

} // namespace exchange
