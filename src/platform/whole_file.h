#pragma once

// New files that are there whole or not at all: written beside under a passing name, then renamed. A program that is
// killed on the way leaves at most the passing name behind.

#include <QByteArray>
#include <QString>
#include <system_error>

namespace platform {

/// What a power failure may take back.
enum class Durability {
    Disk,  ///< nothing: the call waits until the file and its name are on the disk
    Cache, ///< the file: it is in order for every program, but the disk is not waited for
};

/// Writes a file that doesn't exist yet. An existing file stays untouched and gives std::errc::file_exists; other
/// failures give the system's code. No error means that the file stands.
std::error_code write_new_file(const QString& path, const QByteArray& bytes, Durability durability);

} // namespace platform
