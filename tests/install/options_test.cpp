#include "base/literals.h"
#include "install/options.h"

#include <gtest/gtest.h>

using namespace base;
using namespace install;

namespace {

Request read(const QString& line) {
    return read_arguments(line.split(u' ', Qt::SkipEmptyParts));
}

TEST(Arguments, EachGoesToItsPlace) {
    const Request request =
        read(u"--use-class 2 /srv/root --server-name main --info-server news --printer PDF --assets a --assets b"
             " --server-root //main/qn --share-user u --share-password p"_s);
    ASSERT_EQ(request.problem, QString());
    const Options& options = request.options;
    EXPECT_EQ(options.use_class, 2);
    EXPECT_EQ((QStringList{options.root, options.server_name, options.info_server, options.printer, options.server_root,
                   options.share_user, options.share_password} +
                  options.assets)
                  .join(u' '),
        u"/srv/root main news PDF //main/qn u p a b"_s);
    EXPECT_FALSE(options.sample);
    EXPECT_EQ(read(u"/r --data-server service=rovena"_s).options.data_server, u"service=rovena"_s);
    EXPECT_EQ(read(u"/r --partitions 16 --data-server x"_s).options.partitions, 16);
    EXPECT_EQ(read(u"move /r --partitions 16 --to-server x"_s).move->partitions, 16);
}

TEST(Arguments, TheSampleTakesUpToTwoNumbersAndItsLastMonthMayStandAnywhere) {
    const auto sample = [](const QString& line) { return read(line).options.sample.value_or(Sample{0, 0, 0}); };
    EXPECT_EQ(sample(u"--sample /r"_s).employees, Sample{}.employees);
    EXPECT_EQ(sample(u"/r --sample 7"_s).employees, 7);
    EXPECT_EQ(sample(u"/r --sample 7 24 --use-class 1"_s).months, 24);
    EXPECT_EQ(sample(u"--until 202502 /r --sample"_s).until, 202502);
}

TEST(Arguments, ARestoreTakesAFolderAndARootUnlessItOnlyLists) {
    const Restore restore = read(u"restore /bk/3 /srv"_s).restore.value();
    EXPECT_EQ((QStringList{restore.folder, restore.root}), (QStringList{u"/bk/3"_s, u"/srv"_s}));
    EXPECT_FALSE(restore.only_list);
    EXPECT_TRUE(read(u"restore --list /bk/3"_s).restore->only_list);
    EXPECT_EQ(read(u"restore --list /bk/3"_s).problem, QString());
    EXPECT_FALSE(read(u"/restore"_s).restore);
    EXPECT_EQ(read(u"show /srv"_s).show, u"/srv"_s);
}

TEST(Arguments, AMoveTakesARootAndOneGoal) {
    EXPECT_EQ(read(u"move /srv --to-server service=rovena"_s).move->server, u"service=rovena"_s);
    const Request back = read(u"move --to-files /srv"_s);
    EXPECT_EQ(back.move->root + back.problem, u"/srv"_s);
    EXPECT_EQ(back.move->server, QString());
    for (const QString& line :
        {u"move /srv"_s, u"move --to-files"_s, u"move /srv --to-files --to-server x"_s, u"move /srv --to-server"_s,
            u"move /srv --to-files --partitions 16"_s, u"move /a /b --to-files"_s, u"move /srv --to-files --sample"_s})
        EXPECT_NE(read(line).problem, QString()) << line.toStdString();
}

TEST(Arguments, WhatCantBeUsedIsNamed) {
    for (const QString& line :
        {u""_s, u"--sample 5"_s, u"/a /b"_s, u"/a --colour red"_s, u"/a --use-class 3"_s, u"/a --use-class x"_s,
            u"/a --printer"_s, u"/a --sample 0"_s, u"/a --sample 5 9x"_s, u"/a --until 202613"_s, u"restore"_s,
            u"restore /bk"_s, u"restore --list"_s, u"restore /bk /a /b"_s, u"restore /bk /a --sample"_s,
            u"/a --until 202610"_s, u"/a --sample --until 202600"_s, u"/a --sample --until 210001"_s, u"show --list"_s,
            u"/a --share-password p --share-password-file f"_s, u"show"_s, u"show /a /b"_s,
            u"/a --data-server service=x --server-root /b"_s, u"/a --data-server"_s, u"/a --partitions 16"_s,
            u"/a --data-server x --partitions 1"_s, u"/a --server-backup"_s, u"/a --server-backup there"_s})
        EXPECT_NE(read(line).problem, QString()) << line.toStdString();
}

} // namespace
