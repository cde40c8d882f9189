#pragma once

// The table that the benchmarks print: a figure, its yardstick, and their ratio.

#include <string>
#include <vector>

namespace bench {

/// A line of the table. Figure and yardstick are names of registered benchmarks.
struct Line {
    std::string work;
    std::string figure;
    std::string yardstick;
    double wanted_ratio; ///< at most; 0: the ratio is only reported
    double wanted_time;  ///< microseconds at most; 0: the time is only reported
};

/// The benchmarks of each source, registered; their lines of the table.
std::vector<Line> setting_read();
std::vector<Line> month_load();
std::vector<Line> calculation();
std::vector<Line> drafts();
std::vector<Line> recorder_import();
std::vector<Line> overview();
std::vector<Line> apply();
std::vector<Line> masters();
std::vector<Line> work_time_lists();
std::vector<Line> limits_of_all();
std::vector<Line> printing();

/// Those of a data server; none where no server is at hand (scripts/with-server).
std::vector<Line> on_server();
bool server_at_hand();

} // namespace bench
