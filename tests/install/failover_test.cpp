// A company on two servers, the second of which takes the first one's place: by the programs themselves and by servers
// that die (scripts/with-server).

#include "company.h"
#include "support/data_server.h"
#include "support/killed.h"

#include <QDir>
#include <QTemporaryDir>
#include <optional>

namespace install {

class TwoServers : public testing::Test {
protected:
    void SetUp() override {
        if (support::data_server().isEmpty())
            GTEST_SKIP() << "no server";
        database.emplace();
        support::tell_server(u"follow"_s);
    }
    void TearDown() override {
        if (database)
            support::tell_server(u"alone"_s);
    }

    int run(const QString& program, const QStringList& arguments) const {
        return support::status_of(
            *support::start_program(qEnvironmentVariable("ROVENA_BIN") + u'/' + program, arguments));
    }

    /// As a clerk's day from a time recorder is; 0 if it is confirmed.
    int save(const QByteArray& day) const {
        const QString file = folder.filePath(u"stamps.csv"_s);
        support::put_bytes(file, "社員番号,日付,出勤,退勤\n1001," + day + ",8:35,17:40\n");
        return run(u"rovena-import"_s, {file, u"--root"_s, root});
    }

    /// The one that follows stands first, where whoever looks at nothing else would meet it.
    QByteArray both_servers() const {
        const QByteArray first = support::server_folder().toUtf8();
        return database->connection().replace(first, first + "/copy," + first);
    }

    QTemporaryDir folder{QDir::tempPath() + u"/../two-XXXXXX"_s}; // beside what the first server alone serves
    const QString root = folder.filePath(u"root"_s);
    std::optional<support::OwnDatabase> database;
};

TEST_F(TwoServers, WhatWasConfirmedIsThereAndTheNextDayIsSavedWhenTheSecondHasTakenOver) {
    ASSERT_EQ(run(u"rovena-install"_s, {root, u"--data-server"_s, QString::fromUtf8(both_servers()), u"--sample"_s,
                                           u"3"_s, u"1"_s, u"--until"_s, u"202501"_s}),
        0);
    Options options;
    options.root = root;
    const base::Settings settings = settings_of(options);
    const QString rovdata = rovdata_path(settings);
    ASSERT_EQ(save("2025/02/03"), 0);
    support::tell_server(u"die"_s);
    EXPECT_NE(save("2025/02/04"), 0);
    try {
        Database::open(rovdata, Kind::Rovdata);
        ADD_FAILURE() << "a server that takes no writes";
    } catch (const store::Error& error) {
        EXPECT_EQ(error.code(), Code::Away) << error.what();
        EXPECT_TRUE(error.text().contains(u"待機系"_s)) << error.what();
    }
    support::tell_server(u"lead"_s);
    EXPECT_EQ(save("2025/02/04"), 0);
    EXPECT_EQ(run(u"jyusinkanri"_s, {u"--root"_s, settings.server_root}), 0) << "all is applied";
    EXPECT_EQ(rows_of(rovdata, Kind::Rovdata,
                  "select distinct 出社日 from rovmei where 出社日 between 20250203 and 20250228 and 出社時間 > 0"
                  " order by 出社日"),
        (QStringList{u"20250203"_s, u"20250204"_s}));
}

} // namespace install
