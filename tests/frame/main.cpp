#include "backup_tree.h"

#include "frame/backup.h"
#include "support/fake_host.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace {

/// "backup DRIVE" answers every question of a backup with Yes; "save DRIVE FILE FIRST COUNT" saves numbers into one of
/// the live files, one after the other.
int child_main(const QStringList& task) {
    const base::Settings settings = BackupTree::settings_at(task.at(1));
    if (task.at(0) == QLatin1String("backup")) {
        support::FakeHost host;
        frame::バックアップ処理(settings, host);
        return int(host.shown.size()) - 1;
    }
    const BackupTree::Live live = BackupTree::live_files(settings).at(size_t(task.at(2).toInt()));
    for (int i = 0; i < task.at(4).toInt(); ++i)
        BackupTree::save(live, task.at(3).toInt() + i);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    const QCoreApplication app(argc, argv);
    if (argc > 1 && QByteArrayView(argv[1]) == "--child")
        return child_main(QCoreApplication::arguments().mid(2));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
