#include "store/database.h"
#include "support/disk.h"
#include "support/stored.h"
#include "test_tree.h"

#include <QFile>
#include <QRandomGenerator>
#include <QSet>

using namespace base;
using namespace store;

namespace {

constexpr int page = 4096;

struct Damage {
    const char* what;
    Code code;
    QByteArray (*make)(QByteArray intact);
};

QByteArray noise(QByteArray bytes, int from, int count) {
    QRandomGenerator random(1);
    for (int i = from; i < from + count; ++i)
        bytes[i] = char(bytes[i] ^ random.bounded(1, 256)); // never what stood there
    return bytes;
}

const Damage damages[]{
    {"empty", Code::Empty, [](QByteArray) { return QByteArray(); }},
    {"a plain database", Code::NotADatabase,
        [](QByteArray intact) { return intact.replace(0, 16, QByteArray("SQLite format 3\0", 16)); }},
    {"a few bytes", Code::NotADatabase, [](QByteArray intact) { return intact.left(7); }},
    {"less than a page", Code::NotADatabase, [](QByteArray intact) { return intact.left(page - 1); }},
    {"keyed otherwise", Code::WrongKey, [](QByteArray intact) { return noise(intact, 0, 16); }},
    {"a damaged header", Code::WrongKey, [](QByteArray intact) { return noise(intact, 100, 1); }},
    {"nothing but noise", Code::WrongKey, [](QByteArray intact) { return noise(intact, 0, int(intact.size())); }},
    {"a damaged page", Code::Damaged, [](QByteArray intact) { return noise(intact, page * 9 + 5, 1); }},
    {"noise behind the first page", Code::Damaged,
        [](QByteArray intact) { return noise(intact, page, int(intact.size()) - page); }},
    {"the first page alone", Code::Damaged, [](QByteArray intact) { return intact.left(page); }},
    {"cut in the middle", Code::Damaged, [](QByteArray intact) { return intact.left(page * 20 + 100); }},
};

class FileAtRisk : public testing::Test {
protected:
    QTemporaryDir folder;
    const QString path = folder.filePath(u"comsys.mdb"_s);

    QByteArray intact() {
        {
            Database database = Database::create(path, Kind::Comsys);
            add_employees(database, 3000);
        }
        return support::bytes_of(path);
    }

    void write() {
        Database database = Database::open(path, Kind::Comsys);
        database.exec("update syain set フリガナ=''");
    }

    void read_all() {
        Database database = Database::open(path, Kind::Comsys);
        number_from(database, "select sum(length(社員名)) from syain");
    }
};

TEST_F(FileAtRisk, EveryDamageIsCalledByItsName) {
    const QByteArray good = intact();
    for (const Damage& damage : damages) {
        support::put_bytes(path, damage.make(good));
        EXPECT_EQ(code_of([this] { read_all(); }), damage.code) << damage.what;
    }
    QFile::remove(path);
    EXPECT_EQ(code_of([this] { read_all(); }), Code::Missing);
    EXPECT_FALSE(QFile::exists(path)) << "opening makes no file";
}

TEST_F(FileAtRisk, ADatabaseOfAnotherKindOrALaterVersionIsRefused) {
    intact();
    EXPECT_EQ(code_of([this] { Database::open(path, Kind::Losys); }), Code::OtherKind);
    EXPECT_EQ(code_of([this] { Database::open(path, Kind::Any); }), std::nullopt);
    Database::open(path, Kind::Comsys).exec("pragma user_version=2");
    EXPECT_EQ(code_of([this] { Database::open(path, Kind::Comsys); }), Code::Newer);
}

TEST_F(FileAtRisk, EachKindOfTroubleIsToldInWordsOfItsOwnWithTheFile) {
    QSet<QString> texts;
    for (int code = 0; code <= int(Code::Other); ++code) {
        const QString text = Error(Code(code), u"共有/comsys.mdb"_s, u"select"_s, u"engine"_s).text();
        EXPECT_TRUE(text.contains(u"comsys.mdb\nengine"_s)) << text.toStdString();
        texts.insert(text);
    }
    EXPECT_EQ(texts.size(), int(Code::Other) + 1);
}

TEST_F(FileAtRisk, AnErrorNeverTellsTheValues) {
    Database database = Database::create(path, Kind::Comsys);
    try {
        database.prepare("insert into bangou (番号, nothing) values (?, ?)").bind(u"秘密"_s, 1).run();
        FAIL();
    } catch (const Error& error) {
        EXPECT_EQ(error.code(), Code::Misuse);
        EXPECT_TRUE(QString::fromUtf8(error.what()).contains(u"nothing"_s));
        EXPECT_FALSE(QString::fromUtf8(error.what()).contains(u"秘密"_s));
    }
}

#ifdef Q_OS_LINUX

using support::AsNobody, support::SmallDisk, support::enterable, support::readable;

TEST_F(FileAtRisk, AReadOnlyFileOrFolderIsReadAndNotWrittenAndAClosedFileNotOpened) {
    intact();
    const QString closed = folder.filePath(u"closed.mdb"_s);
    EXPECT_TRUE(QFile::copy(path, closed) && QFile::setPermissions(closed, QFile::WriteOwner));
    QFile::setPermissions(folder.path(), enterable);
    for (const auto permissions : {readable, readable | QFile::WriteOther}) {
        QFile::setPermissions(path, permissions);
        const AsNobody nobody;
        EXPECT_EQ(code_of([this] { write(); }), Code::ReadOnly);
        read_all();
        EXPECT_EQ(code_of([&] { Database::open(closed, Kind::Comsys); }), Code::NoAccess);
        EXPECT_EQ(code_of([this] { Database::create(folder.filePath(u"new.mdb"_s), Kind::Losys); }), Code::ReadOnly);
    }
}

TEST_F(FileAtRisk, OnAFullDiskNothingIsHalfWritten) {
    const SmallDisk disk(folder.path());
    Database database = Database::create(path, Kind::Comsys);
    database.exec("insert into bangou values ('before', 1)");
    if (!disk.mounted)
        database.exec("pragma max_page_count=30"); // a disk of its own needs the administrator
    EXPECT_EQ(code_of([&] { add_employees(database, 3000); }), Code::Full);
    EXPECT_EQ(number_from(database, "select count(*) from bangou"), 1);
    EXPECT_EQ(number_from(database, "select count(*) from syain"), 0);
    if (!disk.mounted)
        return;
    QFile rest(folder.filePath(u"rest"_s));
    EXPECT_TRUE(rest.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    while (rest.write(QByteArray(page, 'x')) == page) {
    }
    EXPECT_EQ(code_of([this] { Database::create(folder.filePath(u"new.mdb"_s), Kind::Losys); }), Code::Full);
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), (QStringList{u"comsys.mdb"_s, u"rest"_s}));
}

#endif

} // namespace
