#include "frame/error_list.h"

#include "base/literals.h"
#include "frame/drive_tree.h"
#include "support/disk.h"
#include "support/stored.h"

#include <gtest/gtest.h>

using namespace base;

class ErrorList : public testing::Test {
protected:
    ErrorList() {
        QDir().mkpath(QFileInfo(path).path());
        QDir().mkpath(store::exchange_folder(tree.settings));
    }

    bool add(const QString& message) const { return frame::add_error(tree.settings, message); }
    QByteArray lines() const { return support::bytes_of(path); }

    DriveTree tree;
    const QString path = frame::error_file_path(tree.settings);
};

TEST_F(ErrorList, ALineThatWasBrokenOffStaysALineOfItsOwn) {
    support::put_bytes(path, "\"broken off");
    EXPECT_TRUE(add(u" next\n one "_s));
    EXPECT_TRUE(lines().startsWith("\"broken off\n\"") && lines().endsWith(" next one\"\n")) << lines().constData();
    EXPECT_EQ(frame::error_count(tree.settings), 2);
}

#ifdef Q_OS_LINUX
TEST_F(ErrorList, WhatFindsNoRoomWaitsAndIsWrittenWholeBeforeTheNext) {
    const QByteArray before = '"' + QByteArray(300, 'x') + "\"\n";
    support::put_bytes(path, before);
    {
        const support::ShortFiles full(before.size() + 10);
        EXPECT_FALSE(add(u"first"_s));
        EXPECT_EQ(lines(), before) << "no half line";
    }
    EXPECT_TRUE(add(u"second"_s));
    EXPECT_EQ(frame::error_count(tree.settings), 3);
    EXPECT_LT(lines().indexOf("first"), lines().indexOf("second"));
}
#endif

TEST_F(ErrorList, WithNoPlaceToWriteItIsNotKeptAndNothingElseFails) {
    QDir().mkpath(path);
    QDir(store::exchange_folder(tree.settings)).removeRecursively();
    support::put_bytes(store::exchange_folder(tree.settings), "in the way");
    EXPECT_FALSE(add(u"lost"_s));
    EXPECT_TRUE(frame::write_waiting_errors(tree.settings)) << "there are none";
    EXPECT_EQ(frame::error_count(tree.settings), 0);
}
