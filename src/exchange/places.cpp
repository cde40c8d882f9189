#include "exchange/places.h"

#include "base/literals.h"

#include <QDir>

namespace exchange {

using namespace base;

std::optional<QString> server_root_above(const QString& folder) {
    QDir dir(folder);
    do {
        if (dir.exists(u"comdata/data"_s))
            return dir.path();
    } while (dir.cdUp());
    return std::nullopt;
}

} // namespace exchange
