#pragma once

// A schema of a server as pg_dump keeps it, in the custom format that pg_restore reads too. The tools connect by the
// same words as the program and find the password as it does; none stands on their command line.

#include "store/held.h"

namespace store {

/// How long a tool may neither write nor end. Others can't write meanwhile.
inline constexpr std::chrono::minutes patience_with_tool(5);

/// Whether pg_dump and pg_restore are found on this PC.
bool can_dump();

/// Writes what is held, a database on a server, into `target`, an empty file or none. Code::Other with what pg_dump
/// said if that fails, Io where it stalls and was stopped.
void dump_into(const Held& source, const QString& target, std::chrono::milliseconds patience = patience_with_tool);

/// Makes an encrypted file of the kind of what a dump holds, rows with their numbers; `target` is an empty file or
/// none. Code::Damaged for a dump that isn't whole, Code::Other where pg_restore isn't found, Io where it stalls.
void file_of_dump(
    const QString& dump, Kind kind, const QString& target, std::chrono::milliseconds patience = patience_with_tool);

/// Reads all of the dump back and compares it with the source, row for row: Code::Damaged if it isn't the same.
void check_dump(const QString& dump, Kind kind, const Held& source);

} // namespace store
