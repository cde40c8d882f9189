#include "platform/file_set.h"
#include "platform/whole_file.h"

#include "base/literals.h"
#include "support/disk.h"
#include "support/stored.h"

#include <QDir>
#include <QTemporaryDir>
#include <QThread>
#include <future>
#include <gtest/gtest.h>

using namespace base;
using platform::Durability;

namespace {

struct WholeFile : testing::Test {
    QTemporaryDir folder;
    const QString path = folder.filePath(u"file"_s);

    QStringList files() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }
};

TEST_F(WholeFile, AFileThatStandsIsNotWrittenOverByANewOneAndNothingStaysBesideIt) {
    EXPECT_FALSE(platform::write_new_file(path, "first", Durability::Disk));
    EXPECT_EQ(platform::write_new_file(path, "second", Durability::Cache), std::errc::file_exists);
    EXPECT_EQ(support::bytes_of(path), "first");
    EXPECT_FALSE(platform::replace_file(path, "third", Durability::Disk));
    EXPECT_EQ(support::bytes_of(path), "third");
    EXPECT_EQ(files(), QStringList{u"file"_s});
}

TEST_F(WholeFile, AListThatTheDiskLostTakesNoFileOfTheSetWithIt) {
    for (const QByteArray& lost : {QByteArray(), QByteArray(64, '\0')}) {
        platform::replace_file(path, "the last good one", Durability::Cache);
        platform::replace_file(folder.filePath(platform::file_set_list.toString()), lost, Durability::Cache);
        platform::settle_set(folder.path());
        EXPECT_EQ(support::bytes_of(path), "the last good one");
        EXPECT_EQ(platform::file_of_set(folder.path(), u"file"_s), path);
    }
}

TEST_F(WholeFile, IsReplacedAlsoWhereAScannerHasItOpenForAMoment) {
    platform::replace_file(path, "first", Durability::Cache);
    std::promise<void> open;
    auto scanner = std::async(std::launch::async, [&] {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        open.set_value();
        QThread::msleep(100);
    });
    open.get_future().wait();
    EXPECT_FALSE(platform::replace_file(path, "second", Durability::Cache));
    scanner.wait();
    EXPECT_EQ(support::bytes_of(path), "second");
}

#ifdef Q_OS_LINUX
TEST_F(WholeFile, OneThatCannotBeWrittenToItsEndIsNotThereAtAll) {
    const support::ShortFiles disk(1000);
    EXPECT_TRUE(platform::write_new_file(path, QByteArray(1001, 'x'), Durability::Disk));
    EXPECT_EQ(files(), QStringList());
    EXPECT_FALSE(platform::write_new_file(path, QByteArray(1000, 'x'), Durability::Disk));
}
#endif

} // namespace
