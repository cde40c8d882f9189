#include "reports/errform.h"

#include "frame/error_list.h"
#include "reports/company.h"
#include "support/recording_shop.h"
#include "support/stored.h"

namespace reports {

struct Errform : Company {
    support::RecordingShop shop;
    errform form{session, shop};

    QStringList shown(const QByteArray& file) {
        const QString path = frame::error_file_path(tree.settings);
        QDir().mkpath(QFileInfo(path).path());
        support::put_bytes(path, file);
        form.Form_Load();
        return rows(form.hyou, 0);
    }
};

TEST_F(Errform, EachLineIsARowWithoutItsQuotes) {
    const QString heading = u"エラー内容"_s;
    form.Form_Load();
    EXPECT_EQ(rows(form.hyou, 0), QStringList{heading}) << "without a file";
    EXPECT_TRUE(host.shown.empty());
    const std::pair<QByteArray, QStringList> cases[] = {
        {"\"2004/10/05 9:00 一件目\"\n\"二件目\"\r\n", {u"2004/10/05 9:00 一件目"_s, u"二件目"_s}},
        {" \"終わり\" ", {u"終わり"_s}}, {"x\n", {QString()}}, {"", {}}};
    for (const auto& [file, lines] : cases)
        EXPECT_EQ(shown(file), QStringList{heading} + lines) << file.toStdString();
}

TEST_F(Errform, TheListIsPrintedOrLeft) {
    tables.設定書込(u"losystem"_s, u"プリンター１"_s, u"PDF"_s);
    shown("\"一件目\"\n");
    form.botan_Click(1);
    ASSERT_EQ(shop.jobs.size(), 1U);
    EXPECT_FALSE(shop.jobs[0].pages.empty() || shop.jobs[0].pages[0].texts.filter(u"一件目"_s).isEmpty());
    shown("");
    form.botan_Click(1);
    EXPECT_EQ(form.msg_tai, u"印刷するページがありません。"_s);
    EXPECT_FALSE(form.close_wanted);
    form.botan_Click(0);
    EXPECT_TRUE(form.close_wanted);
}

} // namespace reports
