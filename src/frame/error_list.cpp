#include "frame/error_list.h"

#include "base/literals.h"
#include "platform/paths.h"

#include <QFile>

namespace frame {

using namespace base;

QString error_file_path(const base::Settings& settings) {
    return platform::portable(settings.local_root) + u'/' + settings.product_folder + u"/data/trn/errmsg.txt"_s;
}

int error_count(const base::Settings& settings) {
    QFile file(error_file_path(settings));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    int count = 0;
    while (!file.atEnd())
        count += file.readLine().trimmed().isEmpty() ? 0 : 1;
    return count;
}

} // namespace frame
