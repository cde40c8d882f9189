// A tree whose shared data lies on a server. Without one at hand (scripts/with-server) only what is refused is looked
// at.

#include "company.h"
#include "install/tree_settings.h"
#include "support/data_server.h"

#include <QTemporaryDir>
#include <stdexcept>

namespace install {

class ServerTree : public testing::Test {
protected:
    Options options(const QString& root) const {
        Options made;
        made.root = folder.filePath(root);
        made.data_server = QString::fromUtf8(support::data_server());
        return made;
    }

    base::Settings run(const Options& options) const {
        install::run(options, folder.filePath(u"bin"_s), [](const QString&) {});
        return settings_of(options);
    }

    /// As another role than the one that made the tables.
    void open_as(const QString& path, const QByteArray& role) const {
        const auto place = server_place(support::bytes_of(path)).value();
        support::put_bytes(path, bytes_of(ServerPlace{place.connection + " user=" + role, place.schema}));
    }

    QTemporaryDir folder;
};

TEST_F(ServerTree, IsMadeOnceAndFoundByOtherPcsWhoseClerksChangeNoTable) {
    if (support::data_server().isEmpty())
        GTEST_SKIP() << "no server";
    Options first = options(u"one"_s);
    first.sample = Sample{3, 1};
    first.partitions = 3;
    const base::Settings one = run(first), two = run(options(u"two"_s));
    EXPECT_EQ(server_place(support::bytes_of(rovdata_path(two))), (ServerPlace{support::data_server(), u"rovdata"_s}));
    QStringList shown;
    list_settings(folder.filePath(u"two"_s), [&](const QString& line) { shown << line; });
    EXPECT_EQ(shown.filter(u"データサーバー"_s),
        QStringList{u"データサーバー = "_s + QString::fromUtf8(support::data_server())});
    const QStringList rows = all_rows(rovdata_path(one), Kind::Rovdata);
    EXPECT_GT(rows.size(), 60);
    run(options(u"one"_s));
    EXPECT_EQ(all_rows(rovdata_path(two), Kind::Rovdata), rows) << "made once";
    support::psql(u"drop table rovdata.kyumei"_s);
    QFile::remove(rovdata_path(two));
    run(options(u"two"_s));
    const QString parts = u"select count(*) from pg_inherits where inhparent='rovdata.%1'::regclass"_s;
    for (const QString& table : {u"kyumei"_s, u"rovmei"_s})
        EXPECT_EQ(rows_of(rovdata_path(one), Kind::Rovdata, parts.arg(table).toStdString()), QStringList{u"3"_s});

    support::psql(u"create role tanaka login in role rovena_clerk"_s);
    open_as(rovdata_path(two), "tanaka");
    Database rovdata = Database::open(rovdata_path(two), Kind::Rovdata);
    rovdata.exec("insert into kinsyu values (99, '夜'); delete from kinsyu where システム番号=99");
    try {
        rovdata.exec("drop table kinsyu");
        ADD_FAILURE() << "a clerk dropped a table";
    } catch (const store::Error& error) {
        EXPECT_EQ(error.code(), Code::Forbidden);
    }
}

TEST_F(ServerTree, IsRefusedWithAPasswordOrOtherWordsOrWhereACompanyLiesInFiles) {
    const auto refused = [&](const QString& words) {
        Options bad;
        bad.root = folder.filePath(u"bad"_s);
        bad.data_server = words;
        EXPECT_THROW(run(bad), std::runtime_error) << words.toStdString();
        EXPECT_FALSE(QFileInfo::exists(rovdata_path(settings_of(bad))));
    };
    refused(u"host=db password=secret"_s);
    refused(u"host=db sslpassword=secret"_s);
    refused(u"postgresql://u:secret@db/x"_s);
    refused(u"hst=db"_s);
    if (support::data_server().isEmpty()) {
        Options files;
        files.root = folder.filePath(u"files"_s);
        run(files);
        files.data_server = u"service=rovena"_s;
        EXPECT_THROW(run(files), std::runtime_error);
    }
}

} // namespace install
