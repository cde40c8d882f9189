#include "frame/button.h"

#include "base/literals.h"
#include "platform/paths.h"

namespace frame {

using namespace base;

namespace {

QString pictures(const base::Settings& settings) {
    return platform::portable(settings.local_root) + u'/' + settings.product_folder + u"/system/pic/"_s;
}

} // namespace

QString picture_folder(const base::Settings& settings) {
    return pictures(settings) + u"botan/"_s;
}

QString splash_path(const base::Settings& settings) {
    return pictures(settings) + u"splash.bmp"_s;
}

QString program_icon_path(const base::Settings& settings) {
    return pictures(settings) + u"icon/rovena.png"_s;
}

} // namespace frame
