#include "frame/button.h"

#include "base/literals.h"
#include "platform/paths.h"
#include "store/files.h"

namespace frame {

using namespace base;

namespace {

QString pictures(const base::Settings& settings) {
    return store::own_path(settings, settings.local_root, u"system/pic/");
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
