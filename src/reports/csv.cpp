#include "reports/csv.h"

#include "base/literals.h"
#include "base/numbers.h"
#include "common/save_path.h"

namespace reports {

using namespace base;

QString csv_name(const Report& report, QDate today) {
    QStringList parts = report.midasi[0].split(u"  "_s);
    QString whose_or_when = report.midasi[1];
    whose_or_when.remove(u'【').remove(u'】');
    if (!whose_or_when.isEmpty())
        parts << whose_or_when;
    else if (report.帳票番号 != 4 && report.帳票番号 != 5)
        parts << today.toString(u"yyyy年M月"_s);
    return parts.join(u'_');
}

void 帳票CSV出力(const Report& report, frame::Session& session, const std::function<void(const QString&)>& jyoulab) {
    const QString path = common::CSV保存先取得(session.settings, session.host, session.tables, digits(report.帳票番号),
        csv_name(report, session.host.now().date()));
    if (path.isEmpty())
        return;
    jyoulab(u"出力開始"_s);
    session.host.yield();
    const Written written = write_csv(report, path);
    if (written != Written::Failed) {
        jyoulab(u"出力終了"_s);
        session.host.yield();
    }
    common::tell_written(written, report.midasi, report.hyou, session.host);
}

} // namespace reports
