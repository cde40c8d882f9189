#pragma once

// Two hundred clerks who save at once over a server, each a process of its own, beside pgbench with the same
// statements.

namespace bench {

/// Runs one: ROOT EMPLOYEE SECONDS. Prints how long each save took, in microseconds, and the last that was confirmed.
int be_a_clerk(int argc, char** argv);

/// Prints throughput, median and 99th percentile, and whether every confirmed day stands in the tables; false if one
/// doesn't, or less was saved than is wanted.
bool print_clerks(int clerks, int seconds);

} // namespace bench
