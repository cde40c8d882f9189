#pragma once

// The run-time settings: what start-up reads once and every floor reads afterwards.
// A plain struct that includes nothing of the project, so that any floor may take it by reference.

#include <QMap>
#include <QString>
#include <array>

namespace base {

inline constexpr int era_count = 6;

struct Settings {
    QString install_drive; ///< what every default path begins with: a drive letter, or the folder that holds the
                           ///< install tree (platform/paths.h)
    QString product_folder = QStringLiteral("rovena100"); ///< the program's own folder below a root
    QString version_text = QStringLiteral("R240-03");     ///< product code, dash, two-digit version

    /// The parts of the version text, as `allsystem` has them: "R240" and "03".
    QString product_code() const { return version_text.left(4); }
    QString version_no() const { return version_text.right(2).rightJustified(2, u'0'); }

    QString server_root; ///< root of the shared data; may be a UNC path; empty until the first setting is read
    QString local_root;  ///< root of the files of this PC; empty until the first setting is read

    int use_class = 0;       ///< 0 the main PC, 1 and 2 other PCs (2 remakes no exchange files and backs nothing up)
    int net_info = 0;        ///< 1: the information page fetches news
    int date_style = 0;      ///< 0 Western calendar, 1 Japanese era calendar
    int special_soft = 0;    ///< 1: neither splash picture nor information page
    QString server_name;     ///< host of the turn service
    QString info_server;     ///< host of the news, empty: none is fetched
    int forward_date = 0;    ///< days ahead that the short date entry still takes for this month
    int month_start_day = 1; ///< first day of the company month, 1 to 31

    /// The company's own days off by date number, or by month and day (mmdd) where they return each year: the names.
    QMap<int, QString> own_holidays;

    /// The era table, the newest era at index 0. Days are yyyymmdd; unused elements stay 0 and empty.
    std::array<int, era_count> era_start{};
    std::array<int, era_count> era_end{};
    std::array<QString, era_count> era_name{};
    std::array<int, era_count> era_offset{}; ///< the Western year minus the era year
};

} // namespace base
