#pragma once

// The saves of several PCs, told by their clerks, and whether what is stored in the end can have come of them. A save
// that was confirmed before another one began can't stand over it; of two at the same time either may. One that was
// killed or refused may be there or not, but whole.

#include <algorithm>
#include <iomanip>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

namespace whole {

using Day = std::pair<qint64, qint64>; ///< employee and date

/// Times are microseconds of a clock that all processes share.
struct Save {
    int pc = 0;
    std::map<Day, qint64> clock_ins;
    qint64 begun = 0, over = 0;
    bool confirmed = false;
};

class Saves {
public:
    explicit Saves(std::vector<Save> saves) : m_saves(std::move(saves)) {}

    /// What is wrong with the clock-ins that are stored, a line a day; nothing if all is well.
    std::string faults(const std::map<Day, qint64>& stored) {
        take_as_there(stored);
        std::string told;
        for (const Day& day : all_days(stored)) {
            const auto found = stored.find(day);
            const bool well = found == stored.end()
                                  ? std::ranges::none_of(m_saves, [&](const Save& save) { return stands(save, day); })
                                  : !who_wrote(day, found->second).empty();
            if (!well)
                told += story(day, found == stored.end() ? "nothing" : std::to_string(found->second));
        }
        return told;
    }

private:
    static bool stands(const Save& save, const Day& day) { return save.confirmed && save.clock_ins.contains(day); }

    bool is_written_over(const Save& save, const Day& day) const {
        return std::ranges::any_of(
            m_saves, [&](const Save& later) { return stands(later, day) && later.begun > save.over; });
    }

    std::vector<Save*> who_wrote(const Day& day, qint64 clock_in) {
        std::vector<Save*> writers;
        for (Save& save : m_saves)
            if (const auto said = save.clock_ins.find(day);
                said != save.clock_ins.end() && said->second == clock_in && !is_written_over(save, day))
                writers.push_back(&save);
        return writers;
    }

    /// What one day of an unconfirmed save alone can have come from is there, and so are its other days.
    void take_as_there(const std::map<Day, qint64>& stored) {
        for (const auto& [day, clock_in] : stored)
            if (const std::vector<Save*> writers = who_wrote(day, clock_in); writers.size() == 1)
                writers.front()->confirmed = true;
    }

    std::set<Day> all_days(const std::map<Day, qint64>& stored) const {
        std::set<Day> days;
        for (const auto& [day, clock_in] : stored)
            days.insert(day);
        for (const Save& save : m_saves)
            for (const auto& [day, clock_in] : save.clock_ins)
                days.insert(day);
        return days;
    }

    std::string story(const Day& day, const std::string& holds) const {
        const qint64 first = std::ranges::min(m_saves, {}, &Save::begun).begun;
        const auto seconds = [&](qint64 time) { return double(time - first) / 1e6; };
        std::ostringstream told;
        told << std::fixed << std::setprecision(3) << "employee " << day.first << ", " << day.second << " holds "
             << holds << ", of the saves\n";
        for (const Save& save : m_saves)
            if (save.clock_ins.contains(day))
                told << "  " << save.clock_ins.at(day) << " at PC " << save.pc << " from " << seconds(save.begun)
                     << " to " << seconds(save.over)
                     << (save.confirmed ? " s, confirmed\n" : " s, cut off or refused\n");
        return told.str();
    }

    std::vector<Save> m_saves;
};

} // namespace whole
