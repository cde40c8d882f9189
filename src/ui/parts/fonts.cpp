#include "ui/parts/fonts.h"

#include "base/literals.h"

#include <QDirIterator>
#include <QFontDatabase>
#include <QStringList>

namespace ui {

using namespace Qt::StringLiterals;

void add_shipped_fonts(const QString& folder) {
    QDirIterator files(folder, QDir::Files);
    if (!files.hasNext() || QFontDatabase::hasFamily(u"MS Mincho"_s) || QFontDatabase::hasFamily(u"ＭＳ 明朝"_s))
        return;
    while (files.hasNext())
        QFontDatabase::addApplicationFont(files.next());
}

QFont screen_font() {
    QFont font;
    font.setFamilies({u"Yu Gothic UI"_s, u"Meiryo UI"_s, u"Meiryo"_s, u"Noto Sans CJK JP"_s, u"IPAPGothic"_s,
        u"IPAGothic"_s, u"sans-serif"_s});
    font.setPixelSize(13);
    return font;
}

} // namespace ui
