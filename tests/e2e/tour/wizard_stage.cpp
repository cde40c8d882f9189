// The first start of a new company: the wizard, answered and registered, then the main frame of the second start.

#include "base/literals.h"
#include "stage.h"
#include "store/files.h"
#include "support/person.h"
#include "ui/parts/picture_button.h"

namespace tour {

using namespace base;
using e2e::demand;

namespace {

QStringList seeded_day(const base::Settings& settings) {
    return e2e::rows_of(store::rovdata_path(settings), store::Kind::Rovdata,
        "select 種類名, 開始時間, 終了時間, 休憩勤務時間1, 休憩時間1 from kintype"
        " join kinsyu on kinsyu.システム番号 = 時間種類 where 曜日 = 0 order by 連番");
}

} // namespace

void answer_wizard(Tour& tour) {
    demand(tour.program().wizard() != nullptr, u"the first start doesn't show the wizard"_s);
    ui::fir_start_window& wizard = *tour.program().wizard();
    QApplication::setActiveWindow(&wizard);
    tour.picture_of(wizard, u"first-start"_s);
    support::type(u"Enter 830 Enter Enter Enter 830 Enter 1715 Enter 600 Enter 45 Enter 1715 Enter"_s);
    tour.picture_of(wizard, u"first-start-answered"_s);
    QTest::mouseClick(wizard.botan(), Qt::LeftButton);
    demand(!wizard.isVisible(), u"the wizard is still there"_s);

    tour.end();
    tour.start();
    demand(tour.program().wizard() == nullptr, u"the second start doesn't lead to the main frame"_s);
    const QStringList wanted{u"早朝\t0\t830\t0\t0"_s, u"通常\t830\t1715\t600\t45"_s, u"残業\t1715\t2400\t0\t0"_s};
    const QStringList day = seeded_day(tour.settings());
    demand(day == wanted, u"the day isn't the one that was answered: "_s + day.join(u" / "_s));
}

} // namespace tour
