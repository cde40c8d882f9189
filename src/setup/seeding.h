#pragma once

// The masters that a new company starts with: three work categories, one work type with the same bands on all weekdays,
// six kinds of day, the company-wide staff, and the type for each of them.
//
// It goes in two steps, so that a failure leaves the masters as they were: first all that lies outside `rovdata.mdb` is
// read and drawn, then everything in there is replaced in one transaction.

#include "base/settings.h"
#include "base/time.h"
#include "store/database.h"

#include <QStringList>
#include <array>
#include <optional>

namespace setup {

inline constexpr int seeded_band_count = 3; ///< early work, normal work, overtime
inline constexpr int kind_count = 6;

/// What the company answers about one band of a normal day.
struct Band {
    base::ClockNumber start;
    base::ClockNumber end;
    base::ClockNumber break_work; ///< length of work from which there is a break; 0 none
    base::ClockNumber break_time;
};
using Bands = std::array<Band, seeded_band_count>;

struct Seed {
    /// The company-wide staff, each as the texts of its fields in the order of `syain`; nothing if there is no
    /// `comsys.mdb`.
    std::optional<QList<QStringList>> staff;
    std::array<int, seeded_band_count> categories; ///< numbers, by band
    int type;
    std::array<int, kind_count> kinds;
};

/// Reads the staff, the row with number 0 left out, and draws the numbers. Those drawn before stay drawn, so each seed
/// has new ones. Throws store::Error.
Seed gather_seed(const base::Settings& settings);

/// Replaces `kinsyu`, `kintype`, `syainkinmu` and `kyutype`, and `syain` if the seed has a staff. Throws store::Error;
/// all of it stands as it was then.
void plant(store::Database& rovdata, const Seed& seed, const Bands& bands);

} // namespace setup
