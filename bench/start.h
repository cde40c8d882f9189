#pragma once

// Start to the first painted window, and the memory that the open attendance page has taken at its peak.
// Both are of whole processes, so they are measured beside the table of the benchmarks: medians of alternating starts.

namespace bench {

/// Prints the two lines; false if a wish is missed or a process failed.
bool print_start();

} // namespace bench
