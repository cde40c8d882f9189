#include "store/files.h"

#include "base/literals.h"
#include "platform/paths.h"

#include <QFileInfo>

namespace store {

using namespace base;

namespace {

QString below_server(const base::Settings& settings, const QString& tail) {
    return platform::portable(settings.server_root) + tail;
}

} // namespace

QString comsys_path(const base::Settings& settings) {
    return below_server(settings, u"/comdata/mst/comsys.mdb"_s);
}

QString allsystem_path(const base::Settings& settings) {
    return below_server(settings, u"/comdata/mst/allsystem.mdb"_s);
}

QString rovdata_path(const base::Settings& settings) {
    return data_folder(settings) + u"/rovdata.mdb"_s;
}

QString losys_path(const base::Settings& settings) {
    return own_path(settings, settings.local_root, u"data/system/losys.mdb");
}

QString drafts_path(const base::Settings& settings) {
    return own_path(settings, settings.local_root, u"data/system/sitagaki.mdb");
}

QString own_path(const base::Settings& settings, const QString& root, QStringView below) {
    return u"%1/%2/%3"_s.arg(platform::portable(root), settings.product_folder, below);
}

QString data_folder(const base::Settings& settings) {
    return below_server(settings, u"/comdata/data"_s);
}

QString closings_path(const base::Settings& settings) {
    return data_folder(settings) + u"/simekiri.mdb"_s;
}

QString open_months_path(const base::Settings& settings) {
    return data_folder(settings) + u"/hiraki.txt"_s;
}

QString exchange_folder(const base::Settings& settings) {
    return data_folder(settings) + u"/jyusin"_s;
}

QString exchange_path(const base::Settings& settings, int number) {
    return exchange_folder(settings) + u"/hanjyusin%1.mdb"_s.arg(number, 2, 10, QLatin1Char('0'));
}

QString journal_of(const QString& database) {
    return database + u"-journal"_s;
}

QString kept_name(const QString& database, QDateTime time) {
    const QFileInfo file(database);
    for (;; time = time.addSecs(1)) {
        const QString name =
            u"%1/%2-%3.mdb"_s.arg(file.path(), file.completeBaseName(), time.toString(u"yyyyMMdd-HHmmss"_s));
        if (!QFileInfo::exists(name) && !QFileInfo::exists(journal_of(name)))
            return name;
    }
}

} // namespace store
