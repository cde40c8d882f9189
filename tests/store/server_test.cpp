// A database on a server: the words that its SQL is put into, and what only a server does. Where no server is at hand
// (scripts/with-server), the words alone are looked at.

#include "store/held.h"
#include "store/schema.h"
#include "store/server.h"
#include "store/server_sql.h"
#include "store/silence.h"
#include "support/server_proxy.h"
#include "support/stored.h"
#include "test_tree.h"

#include <atomic>
#include <gtest/gtest.h>
#include <thread>
#include <vector>

using namespace base;
using namespace store;
using support::cut_all_connections, support::psql;

namespace {

QStringList fields_of(const QString& table) {
    return table == u"bangou" ? QStringList{u"番号名称"_s, u"番号"_s} : QStringList();
}

TEST(ServerSql, SaysWhatTheFilesSqlSays) {
    const std::pair<const char*, const char*> cases[]{
        {"select a from t where b=? and c between ? and ?", "select a from t where b=$1 and c between $2 and $3"},
        {"select ?1, ?2, ?1", "select $1, $2, $1"},
        {"select '?' || \"order by ?\" from t", "select '?' || \"order by ?\" from t"},
        {"select 'it''s ?', ?", "select 'it''s ?', $1"},
        {"select a from t order by a", "select a from t order by a nulls first"},
        {"select a from t order by a desc,b ASC, c limit 1",
            "select a from t order by a desc nulls last,b ASC nulls first, c nulls first limit 1"},
        {"select a from t order by a, rowid desc", "select a from t order by a nulls first, rowid desc"},
        {"select a from (select b from t order by f(b, c) desc) q order by 1",
            "select a from (select b from t order by f(b, c) desc nulls last) q order by 1 nulls first"},
        {"select 1 union select a from t order by 1; delete from t",
            "select 1 union select a from t order by 1 nulls first; delete from t"},
        {"select * from bangou", "select \"番号名称\", \"番号\" from bangou"},
        {"select rowid, * from \"bangou\" where 番号=?",
            "select rowid, \"番号名称\", \"番号\" from \"bangou\" where 番号=$1"},
        {"insert into t2 select bangou.*, ? from bangou",
            "insert into t2 select bangou.\"番号名称\", bangou.\"番号\", $1 from bangou"},
        {"select a from t cross join u on b=?", "select a from t inner join u on b=$1"},
        {"select count(*), 2 * 3 from bangou", "select count(*), 2 * 3 from bangou"},
        {"select * from elsewhere", "select * from elsewhere"},
        {"select * from (select 51, * from bangou)",
            "select * from (select 51, \"番号名称\", \"番号\" from bangou) as query_1"},
        {"select a from (select 1 a) as b, (select 2 c) d", "select a from (select 1 a) as b, (select 2 c) d"},
        {"insert into bangou values (?, 1)", "insert into bangou (\"番号名称\", \"番号\") values ($1, 1)"},
        {"insert into bangou (番号) values (1)", "insert into bangou (番号) values (1)"},
    };
    for (const auto& [sql, wanted] : cases)
        EXPECT_EQ(server_sql(sql, fields_of).toStdString(), wanted);
}

TEST(ServerSql, TellsWhatWritesFromWhatReads) {
    for (const char* reads :
        {" select 1", "with a as (select 1) select * from a", "with insert_ as (select 1) select 2"})
        EXPECT_FALSE(writes(reads)) << reads;
    for (const char* does : {"insert into t values (1)", "drop table t", "with a as (select 1) delete from t"})
        EXPECT_TRUE(writes(does)) << does;
}

TEST(ServerPlace, IsNamedByASmallFile) {
    const ServerPlace place{"service=rovena", u"rovdata"_s};
    EXPECT_EQ(server_place(bytes_of(place)), place);
    EXPECT_EQ(server_place("something else\nx\ny\n"), std::nullopt);
    EXPECT_EQ(server_place("rovena data server\n"), std::nullopt);
}

class OnAServer : public testing::Test {
protected:
    void SetUp() override {
        if (support::data_server().isEmpty())
            GTEST_SKIP() << "no server";
        Database::create(path, Kind::Comsys);
        place = server_place(bytes_of(path));
        ASSERT_TRUE(place);
    }

    TestTree tree;
    QString path = tree.folder.filePath(u"comsys.mdb"_s);
    std::optional<ServerPlace> place;
};

TEST_F(OnAServer, ADatabaseIsMissingOrOfAnotherKindOrTooNewAsAFileIs) {
    EXPECT_EQ(code_of([&] { Database::open(path, Kind::Rovdata); }), Code::OtherKind);
    EXPECT_EQ(code_of([&] { Database::create(path, Kind::Comsys); }), Code::Exists);
    psql(u"drop schema \"%1\" cascade"_s.arg(place->schema));
    cut_all_connections();
    EXPECT_EQ(code_of([&] { Database::open(path, Kind::Comsys); }), Code::Missing);
}

/// From now on the server asks one person for a password, and is reached over TLS at the address, with a certificate
/// that has expired. The folder gets the certificate of its issuer.
void lock_up(const QString& folder, const QString& person, const QString& password, const QString& address) {
    const QString server = support::server_folder(), hba = server + u"/data/pg_hba.conf"_s;
    const QString made = u"openssl req -new -x509 -subj /CN=kaisya -keyout ca.key -out ca.crt $new &&"
                         " openssl req -new -subj /CN=%1 -keyout %2/data/server.key -out csr $new &&"
                         " openssl x509 -req -in csr -CA ca.crt -CAkey ca.key -CAcreateserial -days -1"
                         " -out %2/data/server.crt && chown --reference=%2/data %2/data/server.key"_s;
    QProcess shell;
    shell.setWorkingDirectory(folder);
    shell.start(u"sh"_s,
        {u"-c"_s, u"new='-nodes -newkey ec -pkeyopt ec_paramgen_curve:prime256v1';"_s + made.arg(address, server)});
    ASSERT_TRUE(shell.waitForFinished() && shell.exitCode() == 0) << shell.readAllStandardError().toStdString();
    psql(u"create role %1 login password '%2'"_s.arg(person, password));
    psql(u"create database closed"_s);
    psql(u"revoke connect on database closed from public"_s);
    for (const auto& setting : {u"listen_addresses='%1'"_s.arg(address), u"ssl=on"_s})
        psql(u"alter system set "_s + setting);
    support::put_bytes(
        hba, u"local all %1 scram-sha-256\nhostssl all all 127.0.0.0/8 scram-sha-256\n"_s.arg(person).toUtf8() +
                 support::bytes_of(hba));
    support::tell_server(u"die"_s);
    support::tell_server(u"live"_s);
}

TEST_F(OnAServer, WhatKeepsAPersonAwayIsToldInWordsWithoutThePassword) {
    const QString address = u"127.77.%1.%2"_s.arg(getpid() / 250 % 250).arg(1 + getpid() % 250);
    ASSERT_NO_FATAL_FAILURE(lock_up(tree.folder.path(), u"tanaka"_s, u"himitsu"_s, address));
    const auto with_password = [this](const QByteArray& text) {
        const QString file = tree.folder.filePath(u"passwords-%1"_s.arg(text.size()));
        support::put_bytes(file, "*:*:*:*:" + text + '\n');
        QFile::setPermissions(file, QFile::ReadOwner);
        return " user=tanaka passfile=" + file.toUtf8();
    };
    const QByteArray right = with_password("himitsu"), wrong = with_password("chigau");
    const QByteArray tls = " host=" + address.toUtf8() + " sslmode=verify-full sslrootcert=";
    const struct {
        QByteArray words;
        Code code;
        QString says;
    } cases[]{
        {" host=/nowhere", Code::Away, u"サーバーとネットワークを確かめてください"_s},
        {" user=nobody", Code::Refused, u"この利用者は、このＰＣから接続できません"_s},
        {" dbname=nothing", Code::Refused, u"その名前のデータベースがありません"_s},
        {" user=tanaka passfile=/nowhere", Code::Refused, u"パスワードがありません"_s},
        {wrong, Code::Refused, u"利用者名かパスワードが違います"_s},
        {right + " dbname=closed", Code::Refused, u"接続する権限がありません"_s},
        {right + tls + tree.folder.filePath(u"ca.crt"_s).toUtf8(), Code::Refused, u"証明書を確かめられません。期限"_s},
        {right + tls + "/nowhere", Code::Refused, u"証明書を確かめられません"_s},
    };
    for (const auto& [words, code, says] : cases)
        try {
            support::put_bytes(path, bytes_of(ServerPlace{place->connection + words, place->schema}));
            Database::open(path, Kind::Comsys);
            ADD_FAILURE() << words.toStdString();
        } catch (const Error& error) {
            EXPECT_EQ(error.code(), code) << error.what();
            EXPECT_TRUE(error.text().contains(says)) << error.what();
            EXPECT_FALSE(error.text().contains(u"himitsu"_s) || error.text().contains(u"chigau"_s)) << error.what();
        }
    support::put_bytes(path, bytes_of(ServerPlace{place->connection + right, place->schema}));
    EXPECT_EQ(code_of([&] { Database::open(path, Kind::Comsys); }), Code::Forbidden) << "no clerk";
}

TEST_F(OnAServer, ASchemaOfAnotherVersionIsCalledByItsName) {
    const auto opened_with = [&](const QByteArray& words) {
        support::put_bytes(path, bytes_of(ServerPlace{place->connection + words, place->schema}));
        return code_of([&] { Database::open(path, Kind::Comsys); });
    };
    for (const auto& [version, code] : {std::pair(0, Code::Older), {schema_version + 1, Code::Newer}}) {
        psql(u"comment on schema \"%1\" is 'rovena %2 %3'"_s.arg(place->schema)
                 .arg(application_id(Kind::Comsys))
                 .arg(version));
        EXPECT_EQ(opened_with(" application_name=v" + QByteArray::number(version)), code);
    }
}

#ifdef Q_OS_LINUX
TEST_F(OnAServer, ASilentServerIsGivenUp) {
    support::ServerProxy proxy;
    const ServerPlace fresh{proxy.connection() + " tcp_user_timeout=5", u"never"_s};
    proxy.trouble_behind(8, support::Trouble::Silence); // before the first script
    EXPECT_EQ(
        code_of([&] { create_on_server(fresh, path, Kind::Comsys, {}, std::chrono::milliseconds(1)); }), Code::Io);
    proxy.end_trouble();
    support::put_bytes(path, bytes_of(ServerPlace{proxy.connection() + " tcp_user_timeout=50", place->schema}));
    Database database = Database::open(path, Kind::Comsys);
    proxy.stalled = true;
    EXPECT_EQ(code_of([&] { number_from(database, "select count(*) from bangou"); }), Code::Io);
    proxy.end_trouble();
}

TEST_F(OnAServer, ALongWaitIsToldWhereverTheProgramStandsStill) {
    int begun = 0, ended = 0;
    tell_silence({[&] { ++begun; }, [&] { ++ended; }});
    const auto told = qScopeGuard([] { tell_silence({}); });
    support::ServerProxy proxy;
    const QByteArray words = proxy.connection() + " connect_timeout=2 tcp_user_timeout=400";
    support::put_bytes(path, bytes_of(ServerPlace{words, place->schema}));
    std::optional<Database> database = Database::open(path, Kind::Comsys);
    number_from(*database, "select count(*) from bangou");
    EXPECT_EQ(begun, 0);
    proxy.stalled = true;
    EXPECT_EQ(code_of([&] { number_from(*database, "select count(*) from bangou"); }), Code::Io);
    EXPECT_EQ(begun, 1) << "asking";
    database.reset();
    EXPECT_EQ(code_of([&] { Database::open(path, Kind::Comsys); }), Code::Away);
    EXPECT_EQ(begun, 2) << "opening";
    EXPECT_EQ(ended, begun);
    proxy.end_trouble();
}
#endif

TEST_F(OnAServer, WhatAServiceFileSaysGoesBeforeTheProgramsOwnWords) {
    const QString file = tree.folder.filePath(u"services"_s);
    QByteArray service = "[clerks]\n" + place->connection;
    support::put_bytes(file, service.replace(' ', '\n') + "\noptions=-c statement_timeout=77s\n");
    qputenv("PGSERVICEFILE", QFile::encodeName(file));
    support::put_bytes(path, bytes_of(ServerPlace{"service=clerks", place->schema}));
    Database database = Database::open(path, Kind::Comsys);
    qunsetenv("PGSERVICEFILE");
    EXPECT_EQ(number_from(database, "select count(*) from bangou"), 0);
    EXPECT_EQ(number_from(database, "select setting from pg_settings where name = 'statement_timeout'"), 77'000);
}

TEST_F(OnAServer, ASchemaThatIsThereGetsWhatItLacksHoweverLongThatTakes) {
    psql(u"drop table \"%1\".bangou; drop index \"%1\".syain_key"_s.arg(place->schema));
    psql(u"create function slow() returns event_trigger language plpgsql as 'begin perform pg_sleep(0.5); end';"
         " create event trigger slow on ddl_command_start when tag in ('GRANT') execute function slow()"_s);
    const auto quick_again = qScopeGuard([] { psql(u"drop event trigger slow; drop function slow()"_s); });
    support::put_bytes(tree.folder.filePath(u"data-server"_s), place->connection + " tcp_user_timeout=50\n");
    psql(u"alter schema \"%1\" rename to comsys"_s.arg(place->schema));
    QFile::remove(path);
    Database database = Database::create(path, Kind::Comsys);
    EXPECT_EQ(number_from(database, "select count(*) from bangou"), 0);
    EXPECT_EQ(number_from(database, "select count(*) from pg_class where relname = 'syain_key'"
                                    " and relnamespace = 'comsys'::regnamespace"),
        1);
    psql(u"drop schema comsys cascade"_s);
}

TEST_F(OnAServer, WhoSetsItUpAtTheSameMomentFindsItMade) {
    support::put_bytes(tree.folder.filePath(u"data-server"_s), place->connection + '\n');
    std::atomic<int> filled = 0, refused = 0;
    std::vector<std::jthread> people;
    for (const QString& pc : {u"a/comsys.mdb"_s, u"b/comsys.mdb"_s, u"c/comsys.mdb"_s, u"d/comsys.mdb"_s})
        people.emplace_back([&, own = tree.folder.filePath(pc)] {
            try {
                QDir().mkpath(QFileInfo(own).path());
                Database::create(own, Kind::Comsys, [&](Database& made) {
                    ++filled;
                    made.exec("insert into bangou values ('of all', 1)");
                });
            } catch (const Error&) {
                ++refused;
            }
        });
    people.clear();
    EXPECT_EQ(refused, 0);
    EXPECT_EQ(filled, 1);
    Database database = Database::open(tree.folder.filePath(u"d/comsys.mdb"_s), Kind::Comsys);
    EXPECT_EQ(number_from(database, "select count(*) from bangou"), 1);
    psql(u"drop schema comsys cascade"_s);
}

TEST_F(OnAServer, WhoWasCutWhileFillingTakesNothingFromThoseWhoSetItUpNext) {
    support::put_bytes(tree.folder.filePath(u"data-server"_s), place->connection + '\n');
    Database other = Database::open(path, Kind::Comsys);
    const QString first = tree.folder.filePath(u"first.d/comsys.mdb"_s), next = tree.folder.filePath(u"comsys2.mdb"_s);
    QDir(tree.folder.path()).mkdir(u"first.d"_s);
    const auto fill = [&](Database&) {
        EXPECT_EQ(number_from(other, "select count(*) from pg_namespace where nspname='comsys'"), 0) << "isn't filled";
        const ServerPlace same{place->connection, u"comsys"_s};
        EXPECT_EQ(
            code_of([&] { create_on_server(same, next, Kind::Comsys, {}, std::chrono::milliseconds(1)); }), Code::Busy);
        psql(u"select pg_terminate_backend(pid, 10000) from pg_locks where locktype = 'advisory' and granted"_s);
        create_on_server(same, next, Kind::Comsys, [](Database& made) {
            Transaction part(made);
            made.exec("insert into bangou values ('next', 1)");
            part.commit();
        });
        throw std::runtime_error("the first ends");
    };
    EXPECT_THROW(Database::create(first, Kind::Comsys, fill), std::runtime_error);
    EXPECT_EQ(number_from(other, "select count(*) from comsys.bangou"), 1);
    psql(u"drop schema comsys cascade"_s);
}

TEST_F(OnAServer, AnOldConnectionThatWasCutGivesWayToANewOne) {
    cut_all_connections();
    Database database = Database::open(path, Kind::Comsys);
    EXPECT_EQ(number_from(database, "select count(*) from bangou"), 0);
}

TEST_F(OnAServer, AWriteThatIsCutIsToldAndLeavesNothing) {
    {
        Database database = Database::open(path, Kind::Comsys);
        Transaction transaction(database);
        database.exec("insert into bangou values ('half', 1)");
        cut_all_connections();
        EXPECT_EQ(code_of([&] { transaction.commit(); }), Code::Io);
    }
    Database database = Database::open(path, Kind::Comsys);
    EXPECT_EQ(number_from(database, "select count(*) from bangou"), 0);
}

TEST_F(OnAServer, ALetterInANumbersFieldIsRefusedAndEqualsNoNumber) {
    Database database = Database::open(path, Kind::Comsys);
    const auto add = [&](const QString& number) {
        database.prepare("insert into bangou values ('x', ?)").bind(number).run();
    };
    add(u" 12 "_s);
    add(QString());
    EXPECT_EQ(code_of([&] { add(u"12a"_s); }), Code::Misuse);
    EXPECT_FALSE(database.prepare("select 1 from bangou where 番号=?").bind(u"12a"_s).step());
    EXPECT_EQ(number_from(database, "select count(*) from bangou where 番号=12"), 1);
}

TEST_F(OnAServer, AFillThatFailsLeavesNoSchema) {
    const QString other = tree.folder.filePath(u"other.mdb"_s);
    EXPECT_THROW(
        Database::create(other, Kind::Comsys, [](Database&) { throw std::runtime_error("no"); }), std::runtime_error);
    EXPECT_FALSE(QFileInfo::exists(other));
    Database database = Database::open(path, Kind::Comsys);
    EXPECT_EQ(number_from(database, "select count(*) from pg_namespace where nspname like 'other-%'"), 0);
}

TEST_F(OnAServer, IsHeldStillCopiedIntoAFileAndTakesItsRowsBack) {
    const QString copy = tree.folder.filePath(u"copy.mdb"_s);
    const auto first_name = [&] {
        Database database = Database::open(path, Kind::Comsys);
        Statement first = database.prepare("select 社員名 from syain order by rowid");
        return first.step() ? first.row().text(0) : QString();
    };
    Database database = Database::open(path, Kind::Comsys, std::chrono::milliseconds(1));
    add_employees(database, 12'345);
    database.exec("delete from syain where システム番号 < 3; update syain set フリガナ=null; alter table syain add "
                  "column 色 text");
    {
        Held held(path, Kind::Comsys);
        EXPECT_EQ(code_of([&] { database.exec("delete from syain"); }), Code::Busy);
        EXPECT_FALSE(held.is_file());
        held.compact_into(copy);
        check_copy(copy, Kind::Comsys, held.rows());
    }
    {
        Database file = Database::open(copy, Kind::Comsys);
        EXPECT_EQ(number_from(file, "select count(*) from syain where フリガナ is null and 色 is null"), 12'343);
        EXPECT_EQ(number_from(file, "select min(rowid) from syain"), 3);
        file.exec("update syain set 社員名='戻' where rowid=3");
    }
    database.exec("delete from syain; insert into syain (社員名) values ('別')");
    Held(path, Kind::Comsys).take_over(copy);
    EXPECT_EQ(first_name(), u"戻"_s);
    database.exec("insert into syain (社員名) values ('次')");
    EXPECT_EQ(number_from(database, "select max(rowid) from syain"), 12'346);
}

} // namespace
