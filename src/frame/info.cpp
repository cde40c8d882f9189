#include "frame/info.h"

#include "base/literals.h"
#include "frame/error_list.h"
#include "frame/news.h"
#include "platform/paths.h"
#include "platform/whole_file.h"
#include "store/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <algorithm>

namespace frame {

using namespace base;

namespace {

constexpr int news_columns = 4;
constexpr int picture_width = 2000;
constexpr int text_width = 7000;
constexpr int space_between_items = 300;

constexpr QStringView maker_page = u"/mr/";
constexpr QStringView news_folder = u"/mr/info/";
constexpr QStringView news_file = u"intinfrov.dat";

/// The address of a place on the news server; nothing if none is set.
std::optional<QUrl> on_server(const base::Settings& settings, const QString& path) {
    std::optional<QUrl> address = news_server(settings.info_server);
    if (address)
        address->setPath(path, QUrl::DecodedMode);
    return address;
}

/// No more than the news file may have.
QByteArray read_bounded(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.read(most_news_bytes) : QByteArray();
}

/// A disk that takes nothing leaves things as if nothing had been fetched.
bool keep_file(const QString& path, const QByteArray& bytes) {
    return QDir().mkpath(QFileInfo(path).path()) && !platform::replace_file(path, bytes, platform::Durability::Cache);
}

} // namespace

info::info(Session session, Fetch& fetch, FetchTimes times) : m_session(session), m_fetch(fetch), m_times(times) {}

info::~info() {
    m_fetch.stop();
}

void info::Form_Load() {
    seihin_no = m_session.settings.version_text;
    書式設定_インフォメーション();
    intjyuflg = osirase = pic_info = m_session.settings.net_info == 1;
    down = news_server(m_session.settings.info_server).has_value();
}

void info::書式設定_インフォメーション() {
    hyou = Sheet(0, news_columns);
    hyou.SetColWidth(news_picture, picture_width);
    hyou.SetColWidth(news_text, text_width);
    hyou.SetColWidth(news_link, 0);
}

void info::Shown() {
    const QString picture = trn_folder() + u"/info_img.jpg"_s;
    page_picture = QFileInfo(picture).isFile() ? picture : QString();
    import_errors = error_count(m_session.settings);
    notify();
    if (m_session.settings.net_info == 1)
        インフォメーション取得処理();
}

void info::インフォメーション取得処理() {
    m_deadline = m_session.host.steady_now() + m_times.in_all;
    stop_fetch();
    if (QFileInfo::exists(news_path(m_session.settings)))
        return show_news();
    const auto address = on_server(m_session.settings, u"%1%2"_s.arg(news_folder, news_file));
    if (address)
        m_fetch.get(*address, limits_for(most_news_bytes), [this](const QByteArray* file) { keep_news(file); });
}

/// What isn't a news file, such as a page that says so, counts as not there.
void info::keep_news(const QByteArray* file) {
    const bool is_news = file != nullptr && (file->isEmpty() || !read_news(*file).isEmpty());
    if (is_news && keep_file(news_path(m_session.settings), *file))
        show_news();
}

void info::show_news() {
    const QList<NewsItem> items = read_news(read_bounded(news_path(m_session.settings)));
    hyou.SetRows(0);
    for (const NewsItem& item : items) {
        if (hyou.Rows() > 0) {
            hyou.SetRows(hyou.Rows() + 1);
            hyou.SetRowHeight(hyou.Rows() - 1, space_between_items);
        }
        const int row = hyou.Rows();
        hyou.SetRows(row + 1);
        hyou(row, news_text) = item.text;
        hyou(row, news_link) = item.link;
        if (QFileInfo(picture_path(item.picture)).isFile())
            hyou(row, news_picture) = picture_path(item.picture);
        else if (!item.picture.isEmpty())
            m_wanted.append({row, item.picture});
    }
    notify();
    m_session.tables.設定書込(store::rov_kihon, u"ネット情報"_s, u"0"_s);
    fetch_next_picture();
}

void info::fetch_next_picture() {
    if (m_wanted.isEmpty() || m_session.host.steady_now() >= m_deadline)
        return;
    const auto [row, name] = m_wanted.takeFirst();
    if (const auto address = on_server(m_session.settings, news_folder.toString() + name))
        m_fetch.get(*address, limits_for(most_picture_bytes),
            [this, row = row, name = name](const QByteArray* file) { keep_picture(row, name, file); });
}

void info::keep_picture(int row, const QString& name, const QByteArray* file) {
    if (file != nullptr && begins_as_picture(*file) && keep_file(picture_path(name), *file)) {
        hyou(row, news_picture) = picture_path(name);
        notify();
    }
    fetch_next_picture();
}

void info::drop_picture(int row) {
    if (!hyou.Contains(row, news_picture) || hyou(row, news_picture).isEmpty())
        return;
    QFile::remove(hyou(row, news_picture));
    hyou(row, news_picture).clear();
}

void info::intjyuflg_Click(bool ticked) {
    intjyuflg = pic_info = ticked;
    osirase = osirase || ticked; // it stands on pic_info, and a person who has just ticked the box wants to use it
    if (!ticked)
        stop_fetch();
    store_net_info(ticked ? 1 : 0);
    notify();
}

void info::stop_fetch() {
    m_wanted.clear();
    m_fetch.stop();
}

void info::store_net_info(int value) {
    m_session.tables.設定書込(store::losystem, u"ネット情報"_s, QString::number(value));
    m_session.settings.net_info = value;
}

void info::osirase_Click() {
    pic_info = true;
    notify();
    インフォメーション取得処理();
}

bool info::is_link(int row) const {
    return hyou.Contains(row, news_link) && web_address(hyou(row, news_link)).has_value();
}

void info::hyou_Click(int row) {
    if (is_link(row))
        m_session.host.open_document(web_address(hyou(row, news_link))->toString(QUrl::FullyEncoded));
}

void info::down_Click() {
    if (const auto address = on_server(m_session.settings, maker_page.toString()))
        m_session.host.open_document(address->toString(QUrl::FullyEncoded));
}

/// The last file gets no more than what is left of the whole time.
FetchLimits info::limits_for(qsizetype bytes) const {
    const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(m_deadline - m_session.host.steady_now());
    return {bytes, std::clamp(left, std::chrono::milliseconds(0), m_times.a_file)};
}

QString info::trn_folder() const {
    return store::own_path(m_session.settings, m_session.settings.local_root, u"data/trn");
}

QString info::picture_path(const QString& name) const {
    return trn_folder() + u"/info/"_s + name;
}

void info::notify() const {
    if (changed)
        changed();
}

QString news_path(const base::Settings& settings) {
    const QString drive = platform::install_root(settings.install_drive);
    return store::own_path(settings, drive, u"data/trn/info/") + news_file.toString();
}

} // namespace frame
