#pragma once

// `info`, the landing page: the version, and the news that the maker's server keeps. The news file is fetched once a
// run and read again on every later visit; pictures stay on this PC. A fetch that fails leaves no news, and nobody is
// told.

#include "base/sheet.h"
#include "frame/fetch.h"
#include "frame/session.h"

#include <QStringList>
#include <functional>

namespace frame {

/// How long the news server is waited for.
struct FetchTimes {
    std::chrono::milliseconds a_file{5'000};
    std::chrono::milliseconds in_all{10'000};
};

/// The news lies on the program's own drive, wherever the roots lie: each start deletes it there, so that each run
/// fetches it anew. The pictures lie under this PC's root.
QString news_path(const base::Settings& settings);

/// Columns of `hyou`.
enum NewsColumn { news_picture = 0, news_text = 1, news_link = 2 };

class info {
public:
    static constexpr QStringView Caption = u"インフォメーション";

    /// Fetches through `fetch`, which outlives the form.
    info(Session session, Fetch& fetch, FetchTimes times = {});
    ~info();
    info(const info&) = delete;
    info& operator=(const info&) = delete;

    /// What the page shows at once; no file and no server is touched.
    void Form_Load();
    /// The page is on the screen: the news is read, and fetched if it isn't there and wanted.
    void Shown();

    void intjyuflg_Click(bool ticked);
    void osirase_Click();
    /// Opens the row's link, if it has one that may be opened (see is_link()).
    void hyou_Click(int row);
    /// Opens the maker's page on the news server, if one is set.
    void down_Click();

    bool is_link(int row) const;
    /// The picture of a row turned out to be none: it goes, and a later run fetches it anew.
    void drop_picture(int row);

    QString seihin_no;      ///< the version
    bool intjyuflg = false; ///< "インターネットから情報を受信する"
    bool osirase = false;   ///< whether the button is there
    bool pic_info = false;  ///< whether the news is there to be seen
    bool down = false;      ///< whether the button is there: a news server is set
    base::Sheet hyou;       ///< a row an item and a low one between two; picture path, text, link (hidden)
    QString page_picture;   ///< path of the page's own picture, empty if there is none
    int import_errors = 0;  ///< messages that the exchange side has left

    /// Called when something of the above has changed.
    std::function<void()> changed;

private:
    void 書式設定_インフォメーション();
    void インフォメーション取得処理();
    void keep_news(const QByteArray* file);
    void show_news();
    void stop_fetch();
    void fetch_next_picture();
    void keep_picture(int row, const QString& name, const QByteArray* file);
    FetchLimits limits_for(qsizetype bytes) const;
    QString trn_folder() const;
    QString picture_path(const QString& name) const;
    void store_net_info(int value);
    void notify() const;

    struct WantedPicture {
        int row;
        QString name;
    };

    Session m_session;
    Fetch& m_fetch;
    FetchTimes m_times;
    std::chrono::steady_clock::time_point m_deadline;
    QList<WantedPicture> m_wanted;
};

} // namespace frame
