#include "frame/startup.h"

#include "base/company_month.h"
#include "base/literals.h"
#include "base/numbers.h"
#include "base/text.h"
#include "common/own_holidays.h"
#include "frame/error_list.h"
#include "frame/exchange_files.h"
#include "frame/info.h"
#include "platform/paths.h"
#include "store/files.h"
#include "store/setup.h"

#include <QFile>
#include <cstdio>

namespace frame {

using namespace base;

std::unique_ptr<platform::ProgramLock> take_place(const base::Settings& settings) {
    constexpr std::chrono::milliseconds patience(2000);
    auto place =
        std::make_unique<platform::ProgramLock>(store::data_folder(settings), store::desktop_program.toString());
    if (!place->share(patience))
        throw std::runtime_error("バックアップからの復元中です。終わってから起動してください。");
    return place;
}

stg::stg(Session session, QString program_folder, std::function<void()> changed)
    : m_session(session), m_settings(session.settings), m_program_folder(std::move(program_folder)),
      m_changed(std::move(changed)) {}

Start stg::Form_Activate(const std::function<void(Start)>& show) {
    if (!read_settings())
        return Start::End;
    delete_news();
    const auto first_start = store::初期セットアップ(m_settings);
    store::db追加_テーブル(m_settings, m_session.tables);
    m_settings.own_holidays = common::read_own_holidays(m_session.tables);
    if (m_settings.use_class != 2)
        remake_exchange_files();
    const Start start = first_start ? Start::fir_start : Start::mainform;
    if (show)
        show(start);
    if (first_start)
        first_start->stand();
    return start;
}

bool stg::read_settings() {
    if (!起動時データー設定取得())
        return false;
    load_eras();
    return true;
}

bool stg::起動時データー設定取得() {
    Label1 = u"Ver."_s + m_settings.version_text;
    paint();
    m_settings.install_drive = platform::install_drive(m_program_folder);
    const Account account = read_settings_of_pc();
    if (platform::is_share(m_settings.server_root) && !connect_share(account))
        return false;
    read_shared_settings();
    if (m_settings.special_soft != 1) {
        Image1_Visible = true;
        paint();
    }
    return true;
}

stg::Account stg::read_settings_of_pc() {
    const QString server_key = u"サーバーＰＣ"_s, local_key = u"ローカルＰＣ"_s;
    const QString default_root = platform::install_root(m_settings.install_drive);
    store::OpenSettings losystem = m_session.tables.open(store::losystem);

    const QString server = losystem.設定読込(server_key);
    const QString local = losystem.設定読込(local_key);
    if (server.isEmpty())
        losystem.設定書込(server_key, default_root);
    if (local.isEmpty())
        losystem.設定書込(local_key, default_root);
    m_settings.use_class = int_val(losystem.設定読込(u"使用区分"_s));
    Account account{Trim(losystem.設定読込(u"winユーザー名"_s)), Trim(losystem.設定読込(u"winパスワード"_s))};
    m_settings.net_info = int_val(losystem.設定読込(u"ネット情報"_s));
    losystem.commit();
    m_settings.server_root = server.isEmpty() ? default_root : server;
    m_settings.local_root = local.isEmpty() ? default_root : local;
    return account;
}

bool stg::connect_share(Account account) {
    platform::Host& host = m_session.host;
    while (!host.connect_share(m_settings.server_root, account.user, account.password)) {
        if (host.ask(u"メインＰＣを起動してください。"_s, {}, platform::Buttons::OkCancel) == platform::Answer::Ok)
            return false;
        account.user = host.input(u"windowsアカウントを入力してください"_s).value_or(QString());
        account.password = host.input(u"Windowsパスワードトを入力してください"_s).value_or(QString());
    }
    return true;
}

void stg::read_shared_settings() {
    store::OpenSettings kihon = m_session.tables.open(store::kihon);
    // 総額表示 and 消費税 stand in the table for the other products of the suite.
    m_settings.date_style = int_val(kihon.設定読込(u"和西暦表示"_s));
    m_settings.special_soft = int_val(kihon.設定読込(u"特別ソフト"_s));
    m_settings.server_name = Trim(kihon.設定読込(u"サーバー名"_s));
    m_settings.info_server = Trim(kihon.設定読込(u"情報サーバー"_s));
    m_settings.forward_date = int_val(kihon.設定読込(u"先付け日付"_s));
    m_settings.month_start_day = valid_first_day(Val(kihon.設定読込(u"月初日付"_s)));
}

void stg::load_eras() {
    store::Database comsys = store::Database::open(store::comsys_path(m_settings), store::Kind::Comsys);
    store::Statement eras = comsys.prepare("select 開始日, 終了日, 差年, 元号名 from waseihen order by rowid desc");
    for (int i = 0; i < base::era_count && eras.step(); ++i) {
        const store::Row row = eras.row();
        m_settings.era_start[i] = row.integer(0);
        m_settings.era_end[i] = row.integer(1);
        m_settings.era_offset[i] = row.integer(2);
        m_settings.era_name[i] = row.text(3);
    }
}

/// A file that couldn't be read is told on the screen only when all is done: others wait while the files are remade.
void stg::remake_exchange_files() {
    QStringList troubles;
    const auto tell = [&] {
        if (!troubles.isEmpty())
            m_session.host.tell(troubles.join(u"\n\n"_s), u"交換ファイル"_s);
    };
    try {
        交換ファイル作成(m_settings, m_session.host.now(), [&](const QString& message) {
            troubles << message;
            if (!add_error(m_settings, message))
                std::fprintf(stderr, "%s\n", qUtf8Printable(message));
        });
    } catch (...) {
        tell();
        throw;
    }
    tell();
}

/// Each run fetches the news anew.
void stg::delete_news() const {
    QFile::remove(news_path(m_settings));
}

void stg::paint() {
    if (m_changed)
        m_changed();
    m_session.host.yield();
}

} // namespace frame
