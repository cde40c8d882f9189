#include "platform/slots.h"

#include "base/literals.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>
#ifdef Q_OS_LINUX
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>
#endif

using namespace base;
using platform::Slots;

class SlotsTest : public testing::Test {
protected:
    QStringList seen_by(Slots& one) {
        QStringList lines = one.said_by_others();
        lines.sort();
        return lines;
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(u"hiraki.txt"_s);
};

TEST_F(SlotsTest, EachReadsWhatTheOthersThatRunSayNow) {
    Slots first(path), second(path);
    EXPECT_EQ(seen_by(first), QStringList());
    first.say(u"一"_s);
    second.say(u"二"_s);
    EXPECT_EQ(seen_by(second), QStringList(u"一"_s)) << "its own line isn't among them";
    {
        Slots third(path);
        third.say(u"三"_s);
        first.say({});
        EXPECT_EQ(seen_by(second), QStringList(u"三"_s));
        first.say(QString(300, u'x'));
        EXPECT_EQ(seen_by(third), QStringList({u"x"_s.repeated(Slots::line_room), u"二"_s}));
    }
    EXPECT_EQ(seen_by(second).size(), 1) << "who has gone says nothing, though the line stands";
    Slots fourth(path);
    fourth.say(u"四"_s);
    EXPECT_EQ(QFile(path).size(), 3 * Slots::line_room) << "the slot of one that has gone is taken";
}

TEST_F(SlotsTest, AFileThatCantBeUsedSaysNothing) {
    Slots nowhere(folder.filePath(u"no/such/folder"_s));
    nowhere.say(u"一"_s);
    EXPECT_EQ(seen_by(nowhere), QStringList());
}

#ifdef Q_OS_LINUX
TEST_F(SlotsTest, AKilledProgramLeavesNoWordBehind) {
    int ready[2];
    ASSERT_EQ(pipe(ready), 0);
    const pid_t child = fork();
    if (child == 0) {
        Slots said(path);
        said.say(u"一"_s);
        (void)!write(ready[1], "", 1);
        for (;;)
            pause();
    }
    char byte = 0;
    ASSERT_EQ(read(ready[0], &byte, 1), 1);
    Slots other(path);
    EXPECT_EQ(seen_by(other), QStringList(u"一"_s));
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    EXPECT_EQ(seen_by(other), QStringList());
}
#endif
