#include "e2e/road/pictures.h"

#include "base/literals.h"
#include "e2e/road/steps.h"

#include <QWidget>
#include <cstdio>

namespace e2e {

using namespace base;

Pictures::Pictures(Taken taken, const QDir& folder, QString suffix)
    : m_taken(taken), m_folder(folder), m_suffix(std::move(suffix)),
      m_next(int(folder.entryList({u"*.png"_s}).size()) + 1) {}

void Pictures::take(QWidget& of, const QString& name) {
    if (m_taken == Taken::No)
        return;
    const QString path = m_folder.filePath(u"%1-%2%3.png"_s.arg(m_next++, 2, 10, QChar(u'0')).arg(name, m_suffix));
    demand(of.grab().save(path), u"can't write "_s + path);
    std::printf("%s\n", qPrintable(path));
    std::fflush(stdout);
}

} // namespace e2e
