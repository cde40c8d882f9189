#include "platform/paths.h"
#include "reports/company.h"
#include "reports/csv.h"
#include "support/disk.h"
#include "support/report_sheets.h"
#include "support/stored.h"

namespace reports {

struct Csv : Company {
    QStringList statuses;
    QString path = tree.folder.filePath(u"表.csv"_s);

    Csv() {
        report.帳票番号 = 5;
        report.midasi = {u"表,題"_s, u"小"_s};
        report.hyou = support::sheet_of({u"名|隠|計"_s, u"|x|12"_s, u"a\nb|y|1,234,5"_s});
        report.hyou.SetColWidth(1, 0);
        report.hyou.SetRowHeight(1, 0);
    }

    void write() {
        host.paths = {path};
        帳票CSV出力(report, session, [this](const QString& text) { statuses << text; });
    }
};

const QByteArray expected = "\x95\x5c,\x91\xe8\r\n\x8f\xac\r\n\r\n\r\n\r\n\x96\xbc,\x8cv\r\n,12\r\na\nb,12345\r\n";

TEST_F(Csv, HoldsHeadingsAndAllRowsWithoutHiddenColumnsAndCommas) {
    support::put_bytes(path, QByteArray(1000, 'x'));
    write();
    EXPECT_EQ(support::bytes_of(path), expected);
    EXPECT_EQ(statuses, (QStringList{u"出力開始"_s, u"出力終了"_s}));
    EXPECT_TRUE(host.shown.empty());
    EXPECT_EQ(tables.設定読込(u"losystem"_s, u"H_ph_exp_5"_s), platform::native(tree.folder.path()));
    EXPECT_EQ(host.dialogs[0].name, u"表,題_小.csv"_s);
    report.midasi = {u"明細  2026年 10月"_s, u"【7】佐藤"_s};
    EXPECT_EQ(csv_name(report, {}), u"明細_2026年 10月_7佐藤"_s);
    report.midasi = {u"社員"_s};
    report.帳票番号 = 1;
    EXPECT_EQ(csv_name(report, QDate(2026, 3, 5)), u"社員_2026年3月"_s);
}

TEST_F(Csv, SaysNothingWhenCancelledAndNamesAFileThatCantBeWritten) {
    帳票CSV出力(report, session, [this](const QString& text) { statuses << text; });
    EXPECT_TRUE(statuses.isEmpty());
    QDir().mkpath(path + u"/held"_s);
    write();
    EXPECT_EQ(host.shown,
        (std::vector<support::Shown>{{u"このファイルは使用中です。一度閉じてから再度データー出力をしてください"_s,
            u"書き込みエラー"_s, platform::Buttons::Ok}}));
    EXPECT_EQ(statuses, QStringList{u"出力開始"_s});
}

#ifdef Q_OS_LINUX
TEST_F(Csv, IsNotCalledWrittenWhereTheDiskIsFull) {
    const support::ShortFiles disk(expected.size() - 1);
    EXPECT_EQ(write_csv(report, path), Written::Failed);
    report.hyou.SetRows(200'000);
    EXPECT_EQ(write_csv(report, path), Written::Failed) << "nor one of many pieces";
}
#endif

TEST_F(Csv, NamesTheCellsInWhichACharacterWasReplaced) {
    report.hyou(2, 0) = u"𠮷田"_s;
    report.hyou(2, 1) = u"한"_s;
    write();
    EXPECT_TRUE(support::bytes_of(path).contains("\r\n?\x93\x63,12345\r\n"));
    ASSERT_EQ(host.shown.size(), 1U);
    EXPECT_TRUE(host.shown[0].text.contains(u"2行 名「𠮷田」"_s)) << host.shown[0].text.toStdString();
    EXPECT_FALSE(host.shown[0].text.contains(u"한"_s)) << "hidden";
    report.midasi[1] = u"𠮷"_s;
    report.hyou.SetRows(60);
    for (int row = 3; row < 60; ++row)
        report.hyou(row, 0) = u"한"_s;
    write();
    const QStringList told = host.shown[1].text.split(u'\n');
    EXPECT_EQ(told[1], u"見出し「𠮷」"_s);
    EXPECT_EQ(told.last(), u"ほか%1か所"_s.arg(1 + 58 - (told.size() - 2))) << "not all are named";
}

} // namespace reports
