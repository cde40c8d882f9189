#include "ui/parts/fonts.h"

#include "base/literals.h"

#include <QStringList>

namespace ui {

using namespace Qt::StringLiterals;

QFont screen_font() {
    QFont font;
    font.setFamilies({u"Yu Gothic UI"_s, u"Meiryo UI"_s, u"Meiryo"_s, u"Noto Sans CJK JP"_s, u"IPAPGothic"_s,
        u"IPAGothic"_s, u"sans-serif"_s});
    font.setPixelSize(13);
    return font;
}

} // namespace ui
