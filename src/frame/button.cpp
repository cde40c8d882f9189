#include "frame/button.h"

#include "base/literals.h"
#include "platform/paths.h"

namespace frame {

using namespace base;

namespace {

QString pictures(const Settings& settings) {
    return platform::portable(settings.local_root) + u'/' + settings.product_folder + u"/system/pic/"_s;
}

} // namespace

QString picture_path(const Settings& settings, QStringView file) {
    return pictures(settings) + u"botan/"_s + file.toString();
}

QString splash_path(const Settings& settings) {
    return pictures(settings) + u"splash.bmp"_s;
}

} // namespace frame
