#include "store/files.h"

#include "base/literals.h"
#include "platform/paths.h"

namespace store {

using namespace base;

namespace {

QString below_server(const frame::Settings& settings, const QString& tail) {
    return platform::portable(settings.server_root) + tail;
}

} // namespace

QString comsys_path(const frame::Settings& settings) {
    return below_server(settings, u"/comdata/mst/comsys.mdb"_s);
}

QString allsystem_path(const frame::Settings& settings) {
    return below_server(settings, u"/comdata/mst/allsystem.mdb"_s);
}

QString rovdata_path(const frame::Settings& settings) {
    return data_folder(settings) + u"/rovdata.mdb"_s;
}

QString losys_path(const frame::Settings& settings) {
    return platform::portable(settings.local_root) + u"/"_s + settings.product_folder + u"/data/system/losys.mdb"_s;
}

QString data_folder(const frame::Settings& settings) {
    return below_server(settings, u"/comdata/data"_s);
}

QString exchange_folder(const frame::Settings& settings) {
    return data_folder(settings) + u"/jyusin"_s;
}

QString exchange_path(const frame::Settings& settings, int number) {
    return exchange_folder(settings) + u"/hanjyusin%1.mdb"_s.arg(number, 2, 10, QLatin1Char('0'));
}

} // namespace store
