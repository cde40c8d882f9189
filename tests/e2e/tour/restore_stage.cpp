// The backup that was made on leaving, put back under a second root: the same month must be there.

#include "base/literals.h"
#include "base/numbers.h"
#include "frame/backup.h"
#include "stage.h"

#include <QCoreApplication>
#include <QProcess>

namespace tour {

using namespace base;
using e2e::demand;

namespace {

void install(const QStringList& arguments) {
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.start(QCoreApplication::applicationDirPath() + u"/rovena-install"_s, arguments);
    demand(process.waitForFinished(-1) && process.exitCode() == 0, u"rovena-install "_s + arguments.join(u' '));
}

QString dump_of_month(Tour& tour) {
    return e2e::dump_tables(tour.settings(), Val(tour.entry_form().syainsyscd), tour.entry_form().sheet.month);
}

} // namespace

void restore_elsewhere(Tour& tour) {
    const QString backup = frame::shared_backup_folder(tour.settings(), tour.program().session().host.now().date());
    tour.open_month();
    const QString month = dump_of_month(tour);
    tour.end();
    const QString root = tour.root() + u"-restored"_s;
    install({root});
    install({u"restore"_s, backup, root});

    Tour second(tour, root);
    second.start();
    second.open_month();
    second.picture(u"month-restored"_s);
    demand(second.settings().server_root.startsWith(root), u"the restored program works on other data"_s);
    demand(dump_of_month(second) == month, u"the restored month isn't the one that was backed up"_s);
}

} // namespace tour
