#include "picture.h"

#include "base/literals.h"
#include "e2e/road/clerk.h"

#include <cstdio>

namespace tour {

using namespace base;

void save_picture(QWidget& of, const QDir& out, const QString& name) {
    const QString path = out.filePath(name + u".png"_s);
    e2e::demand(of.grab().save(path), u"can't write "_s + path);
    std::printf("%s\n", qPrintable(path));
    std::fflush(stdout);
}

} // namespace tour
