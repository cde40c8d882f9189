#pragma once

// Memory of the longest list. Its times stand in the table (see table.h).

namespace bench {

/// Prints the peak of this process while the work time list of 10,000 employees is tallied; false if it is too much.
bool print_list_memory();

} // namespace bench
