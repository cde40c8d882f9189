#include "exchange/apply.h"

#include "exchange_tree.h"
#include "support/told_cases.h"

#include <gmock/gmock.h>

namespace exchange {

namespace {

/// The row that a line of rows/apply.txt stands for.
QString row_of(const QString& line) {
    if (!line.startsWith(u"day "))
        return line;
    const auto part = [&](int first, int last) { return line.section(u' ', first, last); };
    return day_row(part(1, 1).toInt(), part(2, 2).toInt(), part(3, 6), part(7, -1));
}

void apply(const Tree& tree, qint64 batch = batch_rows, const Watch& watch = {}) {
    store::Database exchange = store::Database::open(tree.exchange_path(), store::Kind::Exchange);
    store::Database rovdata = store::Database::open(tree.rovdata_path(), store::Kind::Rovdata);
    apply_rows(
        exchange, rovdata, watch, [] { return true; }, batch);
}

} // namespace

TEST(Apply, SavesOfOneMonthEndInItsTablesWhereverABatchEndsAndHoweverOftenTheyAreApplied) {
    for (const auto& [shows, lines] : support::told_cases(QStringLiteral(ROVENA_ROWS "/apply.txt")))
        for (const qint64 batch : {qint64{1}, batch_rows}) {
            SCOPED_TRACE(shows.toStdString());
            const Tree tree;
            const qsizetype end = lines.indexOf(u"tables"_s);
            Rows save;
            for (const QString& line : lines.first(end + 1))
                if (line == u"save" || line == u"tables")
                    tree.post(std::exchange(save, {}));
                else
                    save << row_of(line);
            const QByteArray posted = bytes_of(tree.exchange_path());
            const std::string tables = lines.sliced(end + 1).join(u'\n').toStdString();
            apply(tree, batch);
            EXPECT_EQ(tree.tables(), tables);
            EXPECT_EQ(tree.left(), "");
            put_bytes(tree.exchange_path(), posted); // as after a kill between the tables and the rows' leaving
            apply(tree, batch);
            EXPECT_EQ(tree.tables(), tables);
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
