#pragma once

// What the size of a company on a server costs.

namespace bench {

/// Prints the medians of loading and saving one employee's month in a company of this size and in one of ten employees,
/// in turns, with the facts in one table each and in 16 partitions. False if the large one is slower than is wanted.
bool print_size(int employees, int months);

} // namespace bench
