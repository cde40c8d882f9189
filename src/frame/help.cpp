#include "frame/help.h"

#include "base/literals.h"
#include "platform/paths.h"
#include "store/files.h"

#include <QUrl>

namespace frame {

using namespace base;

namespace {

constexpr int any_report = 0;

struct HelpPage {
    QStringView form;
    int report_no;
    QStringView page;
};

// The order of the pages of reports 4 to 6 doesn't follow the report numbers.
constexpr HelpPage help_pages[]{
    {u"ent_rovena", any_report, u"002-0.htm"},
    {u"ent_torikomi", any_report, u"002-1.htm"},
    {u"ent_jyougen", any_report, u"002-3.htm"},
    {u"ent_itiran", any_report, u"002-2.htm"},
    {u"mst_kinjikan", any_report, u"001-3-03.htm"},
    {u"mst_kinsyu", any_report, u"001-3-02.htm"},
    {u"mst_kintype", any_report, u"001-3-04.htm"},
    {u"mst_syain", any_report, u"001-3-01.htm"},
    {u"mst_kihon", any_report, u"001-3-06.htm"},
    {u"mst_kyuka", any_report, u"001-3-05.htm"},
    {u"fir_start", any_report, u"001-1.htm"},
    {u"rov_01", 1, u"003-1-01.htm"},
    {u"rov_01", 2, u"003-1-02.htm"},
    {u"rov_01", 3, u"003-1-03.htm"},
    {u"rov_01", 4, u"003-1-05.htm"},
    {u"rov_01", 5, u"003-1-06.htm"},
    {u"rov_01", 6, u"003-1-04.htm"},
};

QStringView page_of(QStringView form, int report_no) {
    for (const HelpPage& help : help_pages)
        if (help.form == form && (help.report_no == any_report || help.report_no == report_no))
            return help.page;
    return help_index;
}

} // namespace

QString help_address(const base::Settings& settings, const QString& page) {
    const QString path = store::own_path(settings, settings.local_root, u"help/") + page;
    if (!path.startsWith(u'/'))
        return u"file://localhost/"_s + path;
    return u"file://localhost"_s + QString::fromLatin1(QUrl::toPercentEncoding(path, "/"));
}

void ヘルプ表示(const base::Settings& settings, platform::Host& host, const QString& form, int report_no) {
    if (!form.isEmpty())
        host.open_document(help_address(settings, page_of(form, report_no).toString()));
}

} // namespace frame
