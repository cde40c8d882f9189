#include "pictures.h"

#include "base/literals.h"
#include "e2e/road/clerk.h"

#include <cstdio>

namespace tour {

using namespace base;

void Pictures::take(QWidget& of, const QString& name) {
    const QString path = m_folder.filePath(u"%1-%2%3.png"_s.arg(m_next++, 2, 10, QChar(u'0')).arg(name, m_suffix));
    e2e::demand(of.grab().save(path), u"can't write "_s + path);
    std::printf("%s\n", qPrintable(path));
    std::fflush(stdout);
}

} // namespace tour
