#include "common/save_path.h"

#include "base/literals.h"
#include "base/text.h"
#include "platform/paths.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace common {

using namespace base;

namespace {

constexpr int key_length = 30;

QString folder_key(const QString& report_number) {
    return Trim(left_justified(u"H_ph_exp_"_s + report_number, key_length));
}

QString without_end_separator(const QString& folder) {
    return folder.endsWith(u'\\') || folder.endsWith(u'/') ? folder.chopped(1) : folder;
}

bool is_folder(const QString& path) {
    return !path.isEmpty() && QFileInfo(platform::portable(path)).isDir();
}

QString file_name_of(QString text) {
    text.replace(u'/', u'-');
    return text.remove(QRegularExpression(u"[\\p{Z}\\p{C}\\\\:*?\"<>|]"_s));
}

QString free_name(const QString& folder, const QString& name) {
    QString free = name + u".csv"_s;
    for (int number = 2; QFileInfo::exists(platform::portable(folder) + u'/' + free); ++number)
        free = u"%1(%2).csv"_s.arg(name).arg(number);
    return free;
}

} // namespace

std::optional<QString> ファイル保存ダイアログ(platform::Host& host, platform::SaveDialog record) {
    if (record.extension.startsWith(u'.'))
        record.extension.remove(0, 1);
    if (record.title.isEmpty())
        record.title = u"ﾌｧｲﾙを開く"_s;
    auto path = host.save_path(record);
    if (path)
        *path = path->section(QChar::Null, 0, 0);
    return path;
}

QString CSV保存先取得(const base::Settings& settings, platform::Host& host, store::SettingTables& tables,
    const QString& report_number, const QString& name) {
    const QString key = folder_key(report_number);
    const QString last = without_end_separator(tables.設定読込(store::losystem, key));
    const QString start = is_folder(last) ? last : platform::drive_root(settings.install_drive);
    const QString proposed = file_name_of(name);
    const auto path =
        ファイル保存ダイアログ(host, {u"ファイルを選択して下さい。"_s, start, u"csv"_s, u"CSV(*.csv)|*.csv"_s,
                                         proposed.isEmpty() ? proposed : free_name(start, proposed)});
    if (!path)
        return {};
    tables.設定書込(store::losystem, key, platform::native(QFileInfo(platform::portable(*path)).path()));
    return *path;
}

} // namespace common
