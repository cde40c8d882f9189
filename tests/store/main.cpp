#include "children.h"

#include "base/literals.h"
#include "store/error.h"
#include "store/files.h"
#include "store/numbering.h"

#include <cstdio>
#include <gtest/gtest.h>
#include <thread>

using namespace base;
using namespace store;

namespace {

void say(const QString& line) {
    std::puts(qUtf8Printable(line));
    std::fflush(stdout);
}

int draw_numbers(const QString& root, int count) {
    base::Settings settings;
    settings.server_root = root;
    for (int i = 0; i < count; ++i)
        say(QString::number(採番(settings, u"社員番号"_s)));
    return 0;
}

int add_a_counter(const QString& path) {
    try {
        Database database = Database::open(path, Kind::Comsys, std::chrono::milliseconds(50));
        Transaction transaction(database);
        database.exec("insert into bangou values ('child', 1)");
        transaction.commit();
        say(u"done"_s);
    } catch (const Error& error) {
        say(QString::number(int(error.code())));
    }
    return 0;
}

/// A page cache that holds hardly anything makes the engine write into the file long before the commit.
int die_while_writing(const QString& path) {
    Database database = Database::open(path, Kind::Comsys);
    database.exec("pragma cache_size=2");
    Transaction transaction(database);
    database.exec("pragma user_version=1"); // changes the first page
    database.exec("update syain set フリガナ='half done'");
    say(u"ready"_s);
    std::this_thread::sleep_for(std::chrono::minutes(5));
    return 0;
}

int child_main(const QStringList& task) {
    if (task.at(0) == u"number")
        return draw_numbers(task.at(1), task.at(2).toInt());
    return task.at(0) == u"write" ? add_a_counter(task.at(1)) : die_while_writing(task.at(1));
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    if (argc > 1 && QByteArrayView(argv[1]) == "--child")
        return child_main(application.arguments().mid(2));
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
